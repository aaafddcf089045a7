#include "ledger/posting/TableLockRetry.h"

#include "ui/Application.h"

namespace corvane::ledger {

LockRetryQuestion AskRetryThrough(ui::Application& app) {
    return [&app](const std::string& message) {
        return app.MessageDlg(message, ui::MsgType::Error, {ui::mbRetry, ui::mbCancel}) ==
               ui::mbRetry;
    };
}

} // namespace corvane::ledger
