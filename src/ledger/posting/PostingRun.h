#pragma once

#include "ledger/posting/TableLockRetry.h"

#include <cstdint>
#include <functional>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// Carries every unposted voucher, whatever its period and source, into the history and the
// totals and marks it posted: all of them in one transaction, or none.
class PostingRun {
public:
    explicit PostingRun(store::Database& db) : db_(db) {}

    static constexpr const char* JVLockMessage =
        "Unable to lock JVs table... this table is being updated by another job.";
    static constexpr const char* ActualLockMessage =
        "Unable to lock GL Actual table... this table is being updated by another job.";

    // Told the number of vouchers once the tables are locked, then after each voucher.
    std::function<void(std::int64_t count)> OnStart;
    std::function<void()> OnVoucherPosted;

    // Returns how many vouchers were posted. Raises whatever failed, with nothing written.
    std::int64_t Run(const LockRetryQuestion& askRetry);

private:
    std::int64_t RunLocked(const LockRetryQuestion& askRetry);
    store::Database& db_;
};

} // namespace corvane::ledger
