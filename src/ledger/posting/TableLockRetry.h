#pragma once

#include <functional>
#include <string>

namespace corvane::store {
class Table;
}
namespace corvane::ui {
class Application;
}

namespace corvane::ledger {

// Answers the question a refused table lock asks: true to try again, false to give up.
using LockRetryQuestion = std::function<bool(const std::string& message)>;

// Locks the whole table, asking after each refusal by another job; giving up raises the
// refusal itself.
void LockTableWithRetry(store::Table& table, const std::string& message,
                        const LockRetryQuestion& askRetry);

// Opens the table as its only cursor in any process, asking after each refusal; giving up
// raises the refusal itself. A control table is held so for the whole of a posting run.
void OpenExclusiveWithRetry(store::Table& table, const std::string& message,
                            const LockRetryQuestion& askRetry);

// The question as a message box with Retry and Cancel.
LockRetryQuestion AskRetryThrough(ui::Application& app);

} // namespace corvane::ledger
