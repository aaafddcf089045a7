#include "shell/users/TfrmUsersFilter.h"

namespace corvane::shell {

TfrmUsersFilter::TfrmUsersFilter(ui::Application& app, ListForm& list)
    : FilterForm(app, "frmUsersFilter", list) {
    using namespace ui;
    rgSecurity.Columns = 3;
    SetLayout(Column{
        FormRow{"User name", editUserName},
        rgSecurity,
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    AddTextCriterion(editUserName, "UserName");
    AddYesNoCriterion(rgSecurity, "Security", 0, 1, 2);
}

} // namespace corvane::shell
