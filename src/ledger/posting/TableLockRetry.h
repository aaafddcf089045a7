#pragma once

#include "store/TableHold.h"

namespace corvane::ui {
class Application;
}

namespace corvane::ledger {

// Answers the question a refused table lock asks: true to try again, false to give up.
using LockRetryQuestion = store::RetryQuestion;

// The question as a message box with Retry and Cancel.
LockRetryQuestion AskRetryThrough(ui::Application& app);

} // namespace corvane::ledger
