#pragma once

#include "ledger/posting/TableLockRetry.h"

#include <cstdint>
#include <functional>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// Applies every unposted payment to its invoices, takes it off its customer's balance and writes
// its unposted voucher: all of them in one transaction, or none.
class PaymentPostingRun {
public:
    explicit PaymentPostingRun(store::Database& db) : db_(db) {}

    static constexpr const char* JVCtlMessage = "Unable to open JV Control table exclusively.";
    static constexpr const char* PaymentsLockMessage =
        "Unable to lock Payments table... this table is being updated by another job.";
    static constexpr const char* BalancesLockMessage =
        "Unable to lock Customer Balance table... this table is being updated by another job.";

    // The voucher names a cheque "Check" where the country says so.
    bool CheckWording = false;

    // Told the number of payments once the tables are held, then after each payment.
    std::function<void(std::int64_t count)> OnStart;
    std::function<void()> OnPaymentPosted;

    // Returns how many payments were posted. Raises whatever failed, with nothing written.
    std::int64_t Run(const ledger::LockRetryQuestion& askRetry);

private:
    store::Database& db_;
};

} // namespace corvane::receivables
