#include "shell/users/TfrmLogin.h"

#include "ui/Layout.h"

namespace corvane::shell {

TfrmLogin::TfrmLogin(ui::Application& app) : Form(app, "frmLogin") {
    using namespace ui;
    Caption = "Login";
    KeyPreview = true;
    editUserName.MaxLength = 30;
    editPassword.MaxLength = 30;
    editPassword.PasswordChar = '*';
    btnOK.Default = true;
    btnOK.ModalResult = mrOK;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{
        FormRow{"Database", lblDatabase},
        FormRow{"&User Name", editUserName},
        FormRow{"&Password", editPassword},
        ButtonRow{btnOK, btnCancel},
    });
    OnKeyDown = [](Key& key, Modifiers) { SwallowAlt(key); };
}

} // namespace corvane::shell
