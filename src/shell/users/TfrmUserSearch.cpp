#include "shell/users/TfrmUserSearch.h"

namespace corvane::shell {

TfrmUserSearch::TfrmUserSearch(ui::Application& app, store::Database& db)
    : SearchForm(app, "frmUserSearch", db, "Users", "UserName") {
    using namespace ui;
    Caption = "Find User";
    grdSearch.AddColumn("UserName", "User name", 200);
    SetLayout(Column{
        FormRow{"User name", editFindUserName},
        grdSearch,
        ButtonRow{btnOK, btnCancel},
    });
    AddSearchEdit(editFindUserName, "UserName", "");
}

} // namespace corvane::shell
