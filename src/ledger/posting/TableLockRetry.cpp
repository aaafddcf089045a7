#include "ledger/posting/TableLockRetry.h"

#include "store/EngineError.h"
#include "store/Table.h"
#include "ui/Application.h"

namespace corvane::ledger {

void LockTableWithRetry(store::Table& table, const std::string& message,
                        const LockRetryQuestion& askRetry) {
    for (;;) {
        try {
            table.LockTable();
            return;
        } catch (const store::EngineError& e) {
            const bool refused =
                e.ErrorCode() == store::errTableLocked || e.ErrorCode() == store::errRecordLocked;
            if (!refused || !askRetry || !askRetry(message)) throw;
        }
    }
}

void OpenExclusiveWithRetry(store::Table& table, const std::string& message,
                            const LockRetryQuestion& askRetry) {
    table.SetExclusive(true);
    for (;;) {
        try {
            table.Open();
            return;
        } catch (const store::EngineError& e) {
            const bool refused =
                e.ErrorCode() == store::errTableInUse || e.ErrorCode() == store::errTableLocked;
            if (!refused || !askRetry || !askRetry(message)) throw;
        }
    }
}

LockRetryQuestion AskRetryThrough(ui::Application& app) {
    return [&app](const std::string& message) {
        return app.MessageDlg(message, ui::MsgType::Error, {ui::mbRetry, ui::mbCancel}) ==
               ui::mbRetry;
    };
}

} // namespace corvane::ledger
