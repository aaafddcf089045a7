#include "ledger/posting/PostingRun.h"

#include "ledger/posting/LedgerWriter.h"
#include "ledger/posting/VoucherReader.h"
#include "store/Database.h"
#include "store/FileError.h"
#include "store/LockManager.h"
#include "store/Table.h"

namespace corvane::ledger {

namespace {

// Both locks are held to the end of the run, whatever happens inside it.
class RunLocks {
public:
    RunLocks(store::Database& db, const LockRetryQuestion& askRetry)
        : jv_(db, "JV"), actual_(db, "GLActual"), jvLock_(jv_, PostingRun::JVLockMessage, askRetry),
          actualLock_(actual_, PostingRun::ActualLockMessage, askRetry) {}

private:
    store::Table jv_, actual_;
    store::TableLock jvLock_, actualLock_;
};

} // namespace

std::int64_t PostingRun::Run(const LockRetryQuestion& askRetry) {
    try {
        return RunLocked(askRetry);
    } catch (const store::FileError& e) {
        // A failing disk or a damaged file says what did not happen and that nothing changed:
        // by now the transaction has rolled back and the locks are given back.
        throw store::FileError(e.ErrorCode(), store::NotDoneMessage("Posting", e), e.Reason());
    }
}

std::int64_t PostingRun::RunLocked(const LockRetryQuestion& askRetry) {
    // A refusal of the second lock unwinds the first: the members are destroyed in reverse.
    RunLocks locks(db_, askRetry);
    // The history is not locked, but no other job may hold it locked while rows go in.
    auto historyWrites =
        db_.Locks().GuardWrite(db_.LockSlot(store::Database::MainSchema, "GLHist"), "GLHist");
    store::Transaction transaction(db_, {"JV", "GLActual", "GLHist"});
    VoucherReader reader(db_);
    // Read again under the locks and inside the transaction: the list may have changed since
    // the form counted it, and the lines are not locked until the transaction holds them.
    const auto vouchers = reader.ReadUnposted();
    if (OnStart) OnStart(static_cast<std::int64_t>(vouchers.size()));
    if (vouchers.empty()) return 0;
    LedgerWriter writer(db_);
    for (const auto& voucher : vouchers) {
        // The voucher is marked first, before the ledger is touched.
        reader.SetPosted(voucher.JVID, true);
        const VoucherEffect effect = PostingEffect(voucher);
        for (const auto& row : effect.History)
            writer.WriteHistory(voucher, row);
        for (const auto& delta : effect.Balances)
            writer.AddToTotals(delta);
        if (OnVoucherPosted) OnVoucherPosted();
    }
    writer.Flush();
    transaction.Commit();
    return static_cast<std::int64_t>(vouchers.size());
}

} // namespace corvane::ledger
