#include "store/TableHold.h"

#include "store/EngineError.h"
#include "store/Table.h"

namespace corvane::store {

void RetryWhileRefused(const std::string& message, const RetryQuestion& askRetry,
                       const std::function<void()>& step) {
    for (;;) {
        try {
            step();
            return;
        } catch (const EngineError& e) {
            const int code = e.ErrorCode();
            const bool refused =
                code == errTableLocked || code == errTableInUse || code == errRecordLocked;
            if (!refused || !askRetry || !askRetry(message)) throw;
        }
    }
}

TableLock::TableLock(Table& table, const std::string& message, const RetryQuestion& askRetry)
    : table_(table) {
    if (!table_.Active()) {
        table_.Open();
        opened_ = true;
    }
    try {
        RetryWhileRefused(message, askRetry, [this] { table_.LockTable(); });
    } catch (...) {
        if (opened_) table_.Close();
        throw;
    }
}

TableLock::~TableLock() {
    try {
        if (table_.TableLocked()) table_.UnlockTable();
        if (opened_) table_.Close();
    } catch (...) {
        // A destructor cannot report; the lock dies with the cursor's file description anyway.
    }
}

ExclusiveOpen::ExclusiveOpen(Table& table, const std::string& message,
                             const RetryQuestion& askRetry)
    : table_(table) {
    table_.SetExclusive(true);
    RetryWhileRefused(message, askRetry, [this] { table_.Open(); });
}

ExclusiveOpen::~ExclusiveOpen() {
    try {
        table_.Close();
    } catch (...) {
    }
}

} // namespace corvane::store
