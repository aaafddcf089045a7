#pragma once

#include "ledger/posting/TableLockRetry.h"
#include "store/LockManager.h"
#include "store/Table.h"
#include "store/TableHold.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
} // namespace corvane::store

namespace corvane::receivables {

// The tables a receivables posting run holds from its start to its end, taken in the order they
// are added, each with the Retry/Cancel question of its own words. A refusal raises and gives
// back what was taken before it; the end of the run gives everything back, last taken first.
class RunLocks {
public:
    RunLocks(store::Database& db, ledger::LockRetryQuestion ask);
    ~RunLocks();
    RunLocks(const RunLocks&) = delete;
    RunLocks& operator=(const RunLocks&) = delete;

    // Opens the table as its only cursor in any process (a control table).
    void Exclusive(const std::string& table, const std::string& message);
    // Locks the whole table against other jobs' writes.
    void Lock(const std::string& table, const std::string& message);
    // The tables the run writes without a lock of its own: no other job may hold one of them
    // locked while rows go in.
    void GuardWrites(const std::vector<std::string>& tables);

private:
    // A table with what the run holds of it, given back before the cursor goes.
    struct Held {
        std::unique_ptr<store::Table> Table;
        std::unique_ptr<store::TableLock> Locked;
        std::unique_ptr<store::ExclusiveOpen> Opened;
    };

    store::Table& Add(const std::string& table);

    store::Database& db_;
    ledger::LockRetryQuestion ask_;
    std::vector<Held> held_;
    std::vector<store::LockManager::WriteGuard> guards_;
};

} // namespace corvane::receivables
