#include "shell/users/TfrmUsers.h"

#include "core/Exception.h"
#include "shell/users/SecurityRule.h"
#include "shell/users/TfrmUser.h"
#include "shell/users/TfrmUserSearch.h"
#include "ui/Application.h"

namespace corvane::shell {

TfrmUsers::TfrmUsers(ui::Application& app, store::Database& db)
    : ListForm(app, "frmUsers", "Users", db, "Users", "tblUsers", "UserName"),
      mnuSortUserName(AddSortEntry("mnuSortUserName", "&User name", "UserName", "")) {
    grdList.AddColumn("UserName", "User name", 200);
    grdList.AddColumn("Security", "Security", 64);
    // The tool button follows its menu entry.
    mnuFilter.Visible = false;
    tblUsers.BeforeDelete = [this](store::DataSet& ds) {
        std::string name = ds.FieldByName("UserName").AsString();
        if (App().MessageDlg("Delete '" + name + "'?", ui::MsgType::Confirmation,
                             {ui::mbYes, ui::mbNo}) != ui::mbYes)
            Abort();
    };
    OnCloseQuery = [this](bool& canClose) { FormCloseQuery(canClose); };
    mnuSortUserName.Click();
}

void TfrmUsers::FormCloseQuery(bool& canClose) {
    if (UsersKeepSecurity(Db())) return;
    App().MessageDlg(SecurityExitRefusal, ui::MsgType::Warning, {ui::mbOK});
    canClose = false;
}

EntryForm& TfrmUsers::Entry() {
    return App().SingleForm<TfrmUser>(Db());
}

SearchForm* TfrmUsers::Search() {
    return &App().SingleForm<TfrmUserSearch>(Db());
}

} // namespace corvane::shell
