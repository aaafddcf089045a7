#include "receivables/posting/RunLocks.h"

#include "store/Database.h"
#include "store/Table.h"

namespace corvane::receivables {

RunLocks::RunLocks(store::Database& db, ledger::LockRetryQuestion ask)
    : db_(db), ask_(std::move(ask)) {}

RunLocks::~RunLocks() {
    guards_.clear();
    while (!held_.empty())
        held_.pop_back();
}

store::Table& RunLocks::Add(const std::string& table) {
    held_.push_back(Held{std::make_unique<store::Table>(db_, table), nullptr, nullptr});
    return *held_.back().Table;
}

void RunLocks::Exclusive(const std::string& table, const std::string& message) {
    store::Table& t = Add(table);
    held_.back().Opened = std::make_unique<store::ExclusiveOpen>(t, message, ask_);
}

void RunLocks::Lock(const std::string& table, const std::string& message) {
    store::Table& t = Add(table);
    held_.back().Locked = std::make_unique<store::TableLock>(t, message, ask_);
}

} // namespace corvane::receivables

namespace corvane::receivables {

void RunLocks::GuardWrites(const std::vector<std::string>& tables) {
    for (const std::string& table : tables)
        guards_.push_back(
            db_.Locks().GuardWrite(db_.LockSlot(store::Database::MainSchema, table), table));
}

} // namespace corvane::receivables
