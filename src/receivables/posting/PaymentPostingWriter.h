#pragma once

#include "receivables/posting/PaymentPosting.h"
#include "store/BulkWriter.h"

#include <cstdint>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// Writes what posting a payment does to the payment and its invoices, inside the run's
// transaction; the voucher and the customer's balance go through the invoice run's writer.
class PaymentPostingWriter {
public:
    explicit PaymentPostingWriter(store::Database& db);

    void MarkPosted(std::int64_t paymentId);
    // Adds the line's amounts to the invoice's totals and makes Owing what the totals leave.
    void Settle(const InvoiceSettlement& settlement);

private:
    store::BulkLookup payment_;
    store::BulkUpdate posted_;
    store::BulkLookup invoice_;
    store::BulkUpdate settled_;
};

} // namespace corvane::receivables
