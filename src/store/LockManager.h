#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <set>
#include <string>

namespace corvane::store {

// The store's own locks, shared by every process that works on one company folder, including
// processes on other machines over a network file system. They are byte-range locks on the
// company's lock file, taken through one open file description per LockManager, so that they
// belong to this open company, vanish when it is closed or the process dies, and never leak into
// a child process (the file is opened close-on-exec).
//
// Each table slot owns the region [base, base + 2^40) with base = (slot + 1) << 40:
//   base + 0           "open" byte: shared while a cursor has the table open, exclusive for an
//                      exclusive open
//   base + 1           "table write" byte: shared while a row of the table is being written
//   base + 16 + row    one byte per record lock
// A table lock is an exclusive lock on [base + 1, base + 2^40): it covers the write byte and
// every record byte, so it conflicts with the writes and record locks of other processes.
//
// Rules, between processes (the OS enforces them):
//   open / open               allowed; exclusive open / any open: refused, no retries
//   table lock / writes       refused both ways (after retries)
//   table lock / record lock  refused both ways; table lock / table lock refused
//   record / record           refused on the same row only; writes and record locks don't meet
// Rules, between cursors of this process (the bookkeeping below enforces them; the OS never
// sees a conflict between them, since they share one file description):
//   exclusive open / any other open of any cursor: refused
//   record / record by another cursor: refused (after retries)
//   table lock / anything else: allowed; the process's cursors write under its own table lock,
//   and a table lock taken by several cursors lasts until the last one unlocks it
// Because the OS keeps a single lock per byte for the whole file description, so for the whole
// process, and a new lock or unlock replaces whatever it held there, the OS lock of a byte is
// changed only when the process's own need for it changes: the open byte is taken by the first
// opener and dropped by the last; while the process holds the table lock, record locks and write
// guards touch no OS lock at all; unlocking the table leaves the bytes of records still locked,
// and keeps the write byte shared while a write is under way.

// The session's lock retry settings: RetryCount tries, WaitMs apart, before a lock fails.
struct LockPolicy {
    int RetryCount = 15;
    int WaitMs = 100;
};

class LockManager {
public:
    // Opens the lock file, creating it if needed; fails with errIo.
    explicit LockManager(const std::string& lockFilePath, LockPolicy policy = {});
    ~LockManager(); // releases every lock of the process; no WriteGuard may outlive it
    LockManager(const LockManager&) = delete;
    LockManager& operator=(const LockManager&) = delete;

    void SetPolicy(LockPolicy policy);
    LockPolicy Policy() const;

    // Slots are the same in every process and lie in [0, MaxSlot]. owner identifies the cursor.
    // A cursor holds a slot open once; asking again by the same owner changes its mode.
    // Fails at once with errTableInUse.
    static constexpr int MaxSlot = (1 << 22) - 1;
    void AcquireOpen(int slot, const std::string& tableName, const void* owner, bool exclusive);
    // Also drops the owner's table lock and record locks on the slot: a closed cursor holds
    // nothing.
    void ReleaseOpen(int slot, const void* owner);

    // Fails after the retry policy with errTableLocked. Locking again by the same owner is a
    // no-op, and one UnlockTable ends it.
    void LockTable(int slot, const std::string& tableName, const void* owner);
    void UnlockTable(int slot, const void* owner);
    bool HoldsTableLock(int slot) const; // by any cursor of this process

    // Fails after the retry policy with errRecordLocked. Locking a row the owner holds already
    // is a no-op. Row ids outside [0, 2^40 - 16) fold into that span: two such rows may then
    // share a lock, which only ever refuses too much.
    void LockRecord(int slot, std::int64_t rowId, const void* owner);
    void UnlockRecord(int slot, std::int64_t rowId, const void* owner);
    void UnlockAllRecords(const void* owner);

    // Held around each insert, update or delete of a row of the table.
    class WriteGuard {
    public:
        WriteGuard(WriteGuard&& other) noexcept;
        WriteGuard& operator=(WriteGuard&&) = delete;
        WriteGuard(const WriteGuard&) = delete;
        WriteGuard& operator=(const WriteGuard&) = delete;
        ~WriteGuard();

    private:
        friend class LockManager;
        WriteGuard(LockManager* manager, int slot) : manager_(manager), slot_(slot) {}
        LockManager* manager_;
        int slot_;
    };
    // Fails after the retry policy with errTableLocked while another process holds a table lock.
    WriteGuard GuardWrite(int slot, const std::string& tableName);

private:
    struct SlotState {
        std::map<const void*, bool> openers; // owner -> exclusive
        std::set<const void*> tableLockers;
        int activeWrites = 0;
        std::map<std::uint64_t, const void*> records; // record byte index -> owner
        bool Empty() const {
            return openers.empty() && tableLockers.empty() && activeWrites == 0 && records.empty();
        }
    };
    enum class TryResult { Taken, Busy };

    // Runs attempt() under the mutex up to RetryCount times, sleeping between tries outside it;
    // true once it reports Taken.
    template <typename Attempt> bool WithRetries(Attempt attempt);

    TryResult TrySetLock(short type, std::int64_t start, std::int64_t length);
    void Unlock(std::int64_t start, std::int64_t length);
    void ReleaseTableLockBytes(int slot, const SlotState& state);
    void DropOwnerLocks(int slot, SlotState& state, const void* owner);
    void EndWrite(int slot);
    void ForgetIfEmpty(int slot);

    int fd_ = -1;
    std::string path_;
    LockPolicy policy_;
    mutable std::mutex mutex_;
    std::map<int, SlotState> slots_;
};

} // namespace corvane::store
