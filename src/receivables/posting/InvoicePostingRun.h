#pragma once

#include "ledger/posting/TableLockRetry.h"

#include <cstdint>
#include <functional>
#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// Turns every printed, unposted invoice into its unposted voucher, its customer's balance, its
// stock movements and, for a payment taken at the point of sale, a finished payment with its own
// voucher: all of them in one transaction, or none.
class InvoicePostingRun {
public:
    explicit InvoicePostingRun(store::Database& db) : db_(db) {}

    static constexpr const char* JVCtlMessage = "Unable to open JV Control table exclusively.";
    static constexpr const char* InvoicesLockMessage =
        "Unable to lock Invoices table... this table is being updated by another job.";
    static constexpr const char* BalancesLockMessage =
        "Unable to lock Customer Balance table... this table is being updated by another job.";
    static constexpr const char* StockLockMessage =
        "Unable to lock Item Balance table... this table is being updated by another job.";
    static constexpr const char* PmtCtlMessage =
        "Unable to open AR Payment Control table exclusively.";

    // The payment's voucher names a cheque "Check" where the country says so.
    bool CheckWording = false;

    // Told the number of invoices once the tables are held, then after each invoice.
    std::function<void(std::int64_t count)> OnStart;
    std::function<void()> OnInvoicePosted;

    // Returns how many invoices were posted. Raises whatever failed, with nothing written.
    std::int64_t Run(const ledger::LockRetryQuestion& askRetry);

private:
    store::Database& db_;
};

} // namespace corvane::receivables
