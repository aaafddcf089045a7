#pragma once

#include <functional>
#include <string>

namespace corvane::store {

class Table;

// Answers the question a lock refused by another job asks: true to try again, false to give up.
using RetryQuestion = std::function<bool(const std::string& message)>;

// Runs step until no other job refuses it, asking askRetry after each refusal; giving up (or no
// question to ask) raises the refusal itself. Any other failure goes to the caller at once.
void RetryWhileRefused(const std::string& message, const RetryQuestion& askRetry,
                       const std::function<void()>& step);

// The whole table locked for a scope: opened first when it is not, then locked, asking after each
// refusal. The end of the scope gives the lock back and closes what it opened, whatever happens
// inside, so a failed run never leaves another workstation locked out.
class TableLock {
public:
    TableLock(Table& table, const std::string& message, const RetryQuestion& askRetry);
    ~TableLock();
    TableLock(const TableLock&) = delete;
    TableLock& operator=(const TableLock&) = delete;

private:
    Table& table_;
    bool opened_ = false;
};

// The table open as its only cursor in any process for a scope, as a control table is held
// through a posting run; asks after each refusal and closes at the end of the scope.
class ExclusiveOpen {
public:
    ExclusiveOpen(Table& table, const std::string& message, const RetryQuestion& askRetry);
    ~ExclusiveOpen();
    ExclusiveOpen(const ExclusiveOpen&) = delete;
    ExclusiveOpen& operator=(const ExclusiveOpen&) = delete;

private:
    Table& table_;
};

} // namespace corvane::store
