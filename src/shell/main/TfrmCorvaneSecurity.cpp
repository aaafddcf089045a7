// The main form's routines of users and rights, and its handler of refused edits.
#include "core/PasswordHash.h"
#include "core/SystemUser.h"
#include "shell/main/TfrmCorvane.h"
#include "shell/users/TfrmLogin.h"
#include "shell/users/UserLogin.h"
#include "store/EngineError.h"
#include "ui/Application.h"
#include "ui/Dialogs.h"

namespace corvane::shell {

namespace {

// A stop box titled for security rather than with the plain application title.
void SecurityBox(ui::Application& app, const std::string& text) {
    app.GetDialogs().Show(
        ui::Message{app.Title + " Security", text, ui::MsgType::Error, {ui::mbOK}, ui::mbOK});
}

} // namespace

bool TfrmCorvane::CheckLogin() {
    if (!tblUsers.Active()) tblUsers.Open();
    if (tblUsers.IsEmpty()) {
        SecurityActive = false;
        return true;
    }
    SecurityActive = true;
    auto& login = App().SingleForm<TfrmLogin>();
    login.lblDatabase.Caption = CurrentDatabase;
    login.editUserName.SetText(CurrentWindowsUser());
    for (;;) {
        login.editPassword.SetText("");
        if (login.ShowModal() != ui::mrOK) return false;
        std::string name = login.editUserName.Text();
        if (PasswordMatches(tblUsers, name, login.editPassword.Text())) {
            CurrentUserName = name;
            return true;
        }
        SecurityBox(App(), "Invalid User Name or Password.");
    }
}

bool TfrmCorvane::CheckUserAccess(const std::string& right, const std::string& displayName) {
    if (!SecurityActive) return true;
    // The users list works on a cursor of its own: what it deleted or changed shows here only
    // when the table is read again.
    if (!tblUsers.Active())
        tblUsers.Open();
    else if (tblUsers.State() == store::DataSetState::Browse)
        tblUsers.Refresh();
    bool allowed = UserHasRight(tblUsers, CurrentUserName, right);
    // Users deleted during the session leave everything open until the company is opened again.
    if (!allowed && !CurrentUserName.empty() && !tblUsers.IsEmpty()) {
        SecurityBox(App(), CurrentUserName + " is not allowed access to " +
                               (displayName.empty() ? right : displayName) + ".");
        return false;
    }
    return true;
}

void TfrmCorvane::EditError(store::DataSet& dataSet, store::EngineError& error,
                            store::DataAction& action) {
    action = store::DataAction::Abort;
    auto* table = dynamic_cast<store::Table*>(&dataSet);
    std::string tableName = table ? table->TableName() : dataSet.Name;
    switch (error.ErrorCode()) {
    case store::errRecordLocked:
        if (App().MessageDlg("The '" + tableName +
                                 "' record you are trying to edit or delete is currently locked. "
                                 "Do you want to try again?\n\nThis would happen if the record "
                                 "(customer, invoice, etc.) is currently being edited by another "
                                 "person or process.",
                             ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) == ui::mbYes)
            action = store::DataAction::Retry;
        break;
    case store::errRecordChanged:
        App().MessageDlg("A record you are trying to edit or delete on '" + tableName +
                             "' has been changed or deleted since last retrieved.\nData will now "
                             "be refreshed.",
                         ui::MsgType::Warning, {ui::mbOK});
        dataSet.Refresh();
        break;
    default:
        App().MessageDlg(error.what(), ui::MsgType::Error, {ui::mbOK});
        break;
    }
    App().ProcessMessages();
}

} // namespace corvane::shell
