#include "receivables/posting/RunLocks.h"

#include "store/Database.h"
#include "store/Table.h"

namespace corvane::receivables {

RunLocks::RunLocks(store::Database& db, ledger::LockRetryQuestion ask)
    : db_(db), ask_(std::move(ask)) {}

RunLocks::~RunLocks() {
    guards_.clear();
    for (auto t = held_.rbegin(); t != held_.rend(); ++t) {
        if (!(*t)->Active()) continue;
        if ((*t)->TableLocked()) (*t)->UnlockTable();
        (*t)->Close();
    }
}

void RunLocks::Exclusive(const std::string& table, const std::string& message) {
    held_.push_back(std::make_unique<store::Table>(db_, table));
    ledger::OpenExclusiveWithRetry(*held_.back(), message, ask_);
}

void RunLocks::Lock(const std::string& table, const std::string& message) {
    held_.push_back(std::make_unique<store::Table>(db_, table));
    held_.back()->Open();
    ledger::LockTableWithRetry(*held_.back(), message, ask_);
}

} // namespace corvane::receivables

namespace corvane::receivables {

void RunLocks::GuardWrites(const std::vector<std::string>& tables) {
    for (const std::string& table : tables)
        guards_.push_back(
            db_.Locks().GuardWrite(db_.LockSlot(store::Database::MainSchema, table), table));
}

} // namespace corvane::receivables
