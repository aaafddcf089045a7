#include "cli/demo/DemoUserForm.h"

#include "core/Exception.h"

namespace corvane::cli::demo {

DemoUserForm::DemoUserForm(ui::Application& app, store::Table& users)
    : Form(app, "frmDemoUser"), tblUsers(users) {
    using namespace ui;
    Caption = tblUsers.State() == store::DataSetState::Insert ? "New User" : "User";
    EnterMovesFocus = true;
    btnOK.ModalResult = mrOK;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{
        FormRow{"User name", editUserName},
        FormRow{"Password", editPassword},
        Row{chkSecurity, Stretch{}},
        ButtonRow{btnOK, btnCancel},
    });
    btnOK.OnClick = [this] {
        if (tblUsers.FieldByName("UserName").AsString().empty()) {
            editUserName.SetFocus();
            throw Exception("A user needs a name.");
        }
        tblUsers.Post();
    };
    btnCancel.OnClick = [this] { tblUsers.Cancel(); };
}

} // namespace corvane::cli::demo
