#include "store/LockManager.h"

#include "store/EngineError.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace corvane::store {

namespace {

constexpr std::int64_t SlotSpan = std::int64_t{1} << 40;
constexpr std::int64_t WriteByte = 1;
constexpr std::int64_t FirstRecordByte = 16;
constexpr std::uint64_t RecordSpan = static_cast<std::uint64_t>(SlotSpan - FirstRecordByte);

std::int64_t SlotBase(int slot) {
    return (static_cast<std::int64_t>(slot) + 1) << 40;
}

std::uint64_t RecordKey(std::int64_t rowId) {
    return static_cast<std::uint64_t>(rowId) % RecordSpan;
}

std::int64_t RecordByte(int slot, std::uint64_t key) {
    return SlotBase(slot) + FirstRecordByte + static_cast<std::int64_t>(key);
}

void CheckSlot(int slot) {
    // A slot outside the range is a caller's fault (a scratch table has no slot), not a lock
    // conflict: it must not read as one.
    if (slot < 0 || slot > LockManager::MaxSlot)
        throw std::out_of_range("Lock slot " + std::to_string(slot) + " is out of range");
}

std::string Quoted(const std::string& tableName) {
    return "'" + tableName + "'";
}

} // namespace

LockManager::LockManager(const std::string& lockFilePath, LockPolicy policy)
    : path_(lockFilePath), policy_(policy) {
    // Close-on-exec: a child that inherited the file description would keep this process's
    // locks alive after it died.
    fd_ = ::open(lockFilePath.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd_ >= 0) {
        // A new lock file is as open as its folder: the user's own, or the group's too in a
        // shared company, whatever the process's umask would make of it.
        struct stat folder {};
        const std::string dir = std::filesystem::path(lockFilePath).parent_path().string();
        const bool shared = ::stat(dir.empty() ? "." : dir.c_str(), &folder) == 0 &&
                            (folder.st_mode & S_IRWXG) == S_IRWXG;
        ::fchmod(fd_, shared ? 0660 : 0600);
    } else if (errno == EEXIST) {
        fd_ = ::open(lockFilePath.c_str(), O_RDWR | O_CLOEXEC);
    }
    if (fd_ < 0)
        ThrowEngineError(errIo, "Unable to open the lock file '" + lockFilePath +
                                    "': " + std::strerror(errno));
}

LockManager::~LockManager() {
    if (fd_ >= 0) ::close(fd_);
}

void LockManager::SetPolicy(LockPolicy policy) {
    std::lock_guard lock(mutex_);
    policy_ = policy;
}

LockPolicy LockManager::Policy() const {
    std::lock_guard lock(mutex_);
    return policy_;
}

LockManager::TryResult LockManager::TrySetLock(short type, std::int64_t start,
                                               std::int64_t length) {
    struct flock request {};
    request.l_type = type;
    request.l_whence = SEEK_SET;
    request.l_start = start;
    request.l_len = length;
    request.l_pid = 0;
    for (;;) {
        if (::fcntl(fd_, F_OFD_SETLK, &request) == 0) return TryResult::Taken;
        if (errno == EINTR) continue;
        if (errno == EAGAIN || errno == EACCES) return TryResult::Busy;
        ThrowEngineError(errIo, "Unable to lock the file '" + path_ + "': " + std::strerror(errno));
    }
}

void LockManager::Unlock(std::int64_t start, std::int64_t length) {
    struct flock request {};
    request.l_type = F_UNLCK;
    request.l_whence = SEEK_SET;
    request.l_start = start;
    request.l_len = length;
    request.l_pid = 0;
    // Unlocking only fails when the kernel is out of lock records; the lock then lasts until the
    // file is closed, which refuses too much but never too little.
    while (::fcntl(fd_, F_OFD_SETLK, &request) != 0 && errno == EINTR) {
    }
}

template <typename Attempt> bool LockManager::WithRetries(Attempt attempt) {
    for (int tries = 1;; ++tries) {
        LockPolicy policy;
        {
            std::lock_guard lock(mutex_);
            if (attempt() == TryResult::Taken) return true;
            policy = policy_;
        }
        if (tries >= std::max(1, policy.RetryCount)) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(std::max(0, policy.WaitMs)));
    }
}

void LockManager::ForgetIfEmpty(int slot) {
    auto it = slots_.find(slot);
    if (it != slots_.end() && it->second.Empty()) slots_.erase(it);
}

void LockManager::AcquireOpen(int slot, const std::string& tableName, const void* owner,
                              bool exclusive) {
    CheckSlot(slot);
    std::lock_guard lock(mutex_);
    SlotState& state = slots_[slot];
    const auto mine = state.openers.find(owner);
    const bool ownerHasIt = mine != state.openers.end();
    const bool ownerExclusive = ownerHasIt && mine->second;
    const bool othersOpen = state.openers.size() > (ownerHasIt ? 1u : 0u);
    const bool othersExclusive =
        std::any_of(state.openers.begin(), state.openers.end(),
                    [&](const auto& opener) { return opener.first != owner && opener.second; });

    bool refused = exclusive ? othersOpen : othersExclusive;
    if (!refused) {
        const std::int64_t openByte = SlotBase(slot);
        if (exclusive && !ownerExclusive)
            refused = TrySetLock(F_WRLCK, openByte, 1) == TryResult::Busy;
        else if (!exclusive && (state.openers.empty() || ownerExclusive))
            refused = TrySetLock(F_RDLCK, openByte, 1) == TryResult::Busy;
    }
    if (refused) {
        ForgetIfEmpty(slot);
        ThrowEngineError(errTableInUse, "Table " + Quoted(tableName) +
                                            " is in use by another user or program" +
                                            (exclusive ? " and cannot be opened exclusively" : ""));
    }
    state.openers[owner] = exclusive;
}

void LockManager::ReleaseOpen(int slot, const void* owner) {
    std::lock_guard lock(mutex_);
    auto it = slots_.find(slot);
    if (it == slots_.end()) return;
    SlotState& state = it->second;
    DropOwnerLocks(slot, state, owner);
    if (state.openers.erase(owner) != 0 && state.openers.empty()) Unlock(SlotBase(slot), 1);
    ForgetIfEmpty(slot);
}

void LockManager::LockTable(int slot, const std::string& tableName, const void* owner) {
    CheckSlot(slot);
    const bool taken = WithRetries([&] {
        SlotState& state = slots_[slot];
        if (state.tableLockers.empty() && TrySetLock(F_WRLCK, SlotBase(slot) + WriteByte,
                                                     SlotSpan - WriteByte) == TryResult::Busy) {
            ForgetIfEmpty(slot);
            return TryResult::Busy;
        }
        state.tableLockers.insert(owner);
        return TryResult::Taken;
    });
    if (!taken) ThrowEngineError(errTableLocked, "Unable to lock table " + Quoted(tableName));
}

void LockManager::UnlockTable(int slot, const void* owner) {
    std::lock_guard lock(mutex_);
    auto it = slots_.find(slot);
    if (it == slots_.end()) return;
    SlotState& state = it->second;
    if (state.tableLockers.erase(owner) != 0 && state.tableLockers.empty())
        ReleaseTableLockBytes(slot, state);
    ForgetIfEmpty(slot);
}

// Unlocking the whole range would also drop the bytes that this process still needs, for
// the OS knows one lock per byte per file description. Only the gaps between them are unlocked,
// so that a record lock never has a moment without its byte.
void LockManager::ReleaseTableLockBytes(int slot, const SlotState& state) {
    const std::int64_t base = SlotBase(slot);
    std::int64_t from = base + WriteByte;
    if (state.activeWrites > 0) {
        // A downgrade of a lock the process holds: it cannot meet a conflict.
        TrySetLock(F_RDLCK, from, 1);
        ++from;
    }
    for (const auto& record : state.records) {
        const std::int64_t byte = RecordByte(slot, record.first);
        if (byte > from) Unlock(from, byte - from);
        from = byte + 1;
    }
    if (base + SlotSpan > from) Unlock(from, base + SlotSpan - from);
}

bool LockManager::HoldsTableLock(int slot) const {
    std::lock_guard lock(mutex_);
    auto it = slots_.find(slot);
    return it != slots_.end() && !it->second.tableLockers.empty();
}

void LockManager::LockRecord(int slot, std::int64_t rowId, const void* owner) {
    CheckSlot(slot);
    const std::uint64_t key = RecordKey(rowId);
    const bool taken = WithRetries([&] {
        SlotState& state = slots_[slot];
        auto held = state.records.find(key);
        if (held != state.records.end())
            return held->second == owner ? TryResult::Taken : TryResult::Busy;
        // Under this process's table lock the byte is locked already.
        if (state.tableLockers.empty() &&
            TrySetLock(F_WRLCK, RecordByte(slot, key), 1) == TryResult::Busy) {
            ForgetIfEmpty(slot);
            return TryResult::Busy;
        }
        state.records.emplace(key, owner);
        return TryResult::Taken;
    });
    if (!taken) ThrowEngineError(errRecordLocked, "Record locked by another user");
}

void LockManager::UnlockRecord(int slot, std::int64_t rowId, const void* owner) {
    std::lock_guard lock(mutex_);
    auto it = slots_.find(slot);
    if (it == slots_.end()) return;
    SlotState& state = it->second;
    const std::uint64_t key = RecordKey(rowId);
    auto held = state.records.find(key);
    if (held == state.records.end() || held->second != owner) return;
    state.records.erase(held);
    if (state.tableLockers.empty()) Unlock(RecordByte(slot, key), 1);
    ForgetIfEmpty(slot);
}

void LockManager::UnlockAllRecords(const void* owner) {
    std::lock_guard lock(mutex_);
    for (auto it = slots_.begin(); it != slots_.end();) {
        SlotState& state = it->second;
        for (auto record = state.records.begin(); record != state.records.end();) {
            if (record->second != owner) {
                ++record;
                continue;
            }
            if (state.tableLockers.empty()) Unlock(RecordByte(it->first, record->first), 1);
            record = state.records.erase(record);
        }
        it = state.Empty() ? slots_.erase(it) : std::next(it);
    }
}

void LockManager::DropOwnerLocks(int slot, SlotState& state, const void* owner) {
    for (auto record = state.records.begin(); record != state.records.end();) {
        if (record->second != owner) {
            ++record;
            continue;
        }
        if (state.tableLockers.empty()) Unlock(RecordByte(slot, record->first), 1);
        record = state.records.erase(record);
    }
    if (state.tableLockers.erase(owner) != 0 && state.tableLockers.empty())
        ReleaseTableLockBytes(slot, state);
}

LockManager::WriteGuard LockManager::GuardWrite(int slot, const std::string& tableName) {
    CheckSlot(slot);
    const bool taken = WithRetries([&] {
        SlotState& state = slots_[slot];
        // Under this process's table lock, or another write of it, the byte is held already;
        // taking it shared again would downgrade the table lock.
        if (state.tableLockers.empty() && state.activeWrites == 0 &&
            TrySetLock(F_RDLCK, SlotBase(slot) + WriteByte, 1) == TryResult::Busy) {
            ForgetIfEmpty(slot);
            return TryResult::Busy;
        }
        ++state.activeWrites;
        return TryResult::Taken;
    });
    if (!taken)
        ThrowEngineError(errTableLocked,
                         "Table " + Quoted(tableName) + " is locked by another user");
    return WriteGuard(this, slot);
}

void LockManager::EndWrite(int slot) {
    std::lock_guard lock(mutex_);
    auto it = slots_.find(slot);
    if (it == slots_.end()) return;
    SlotState& state = it->second;
    if (--state.activeWrites == 0 && state.tableLockers.empty())
        Unlock(SlotBase(slot) + WriteByte, 1);
    ForgetIfEmpty(slot);
}

LockManager::WriteGuard::WriteGuard(WriteGuard&& other) noexcept
    : manager_(other.manager_), slot_(other.slot_) {
    other.manager_ = nullptr;
}

LockManager::WriteGuard::~WriteGuard() {
    if (manager_ != nullptr) manager_->EndWrite(slot_);
}

} // namespace corvane::store
