#include "shell/users/TfrmUser.h"

#include "core/Exception.h"

namespace corvane::shell {

TfrmUser::TfrmUser(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmUser", db, "Users", "tblUsers") {
    using namespace ui;
    Caption = "User";
    SetLayout(Column{
        FormRow{"User name", editUserName},
        FormRow{"Password", editPassword},
        Group{"Rights", {chkSecurity, chkVendors, chkCustomers, chkGLAccounts}},
        ButtonRow{btnOK, btnCancel},
    });
    // The login matches the name as typed; one of blanks only could never be typed there.
    EntryTable.FieldByName("UserName").OnValidate = [](store::Field& f) {
        if (f.AsString().find_first_not_of(' ') == std::string::npos)
            throw Exception("User name must have a value");
    };
}

} // namespace corvane::shell
