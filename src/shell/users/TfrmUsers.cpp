#include "shell/users/TfrmUsers.h"

#include "core/Exception.h"
#include "shell/users/TfrmUser.h"
#include "shell/users/TfrmUserSearch.h"
#include "shell/users/TfrmUsersFilter.h"
#include "ui/Application.h"

namespace corvane::shell {

TfrmUsers::TfrmUsers(ui::Application& app, store::Database& db)
    : ListForm(app, "frmUsers", "Users", db, "Users", "tblUsers", "UserName"),
      mnuSortUserName(AddSortEntry("mnuSortUserName", "&User name", "UserName", "")) {
    grdList.AddColumn("UserName", "User name", 200);
    grdList.AddColumn("Security", "Security", 64);
    tblUsers.BeforeDelete = [this](store::DataSet& ds) {
        std::string name = ds.FieldByName("UserName").AsString();
        if (App().MessageDlg("Delete '" + name + "'?", ui::MsgType::Confirmation,
                             {ui::mbYes, ui::mbNo}) != ui::mbYes)
            Abort();
    };
    mnuSortUserName.Click();
}

EntryForm& TfrmUsers::Entry() {
    return App().SingleForm<TfrmUser>(Db());
}

FilterForm* TfrmUsers::Filter() {
    return &App().SingleForm<TfrmUsersFilter>(static_cast<ListForm&>(*this));
}

SearchForm* TfrmUsers::Search() {
    return &App().SingleForm<TfrmUserSearch>(Db());
}

} // namespace corvane::shell
