#pragma once

#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Label.h"

namespace corvane::shell {

// The login of a company with users: the database it is for, the user name and the password.
class TfrmLogin : public ui::Form {
public:
    explicit TfrmLogin(ui::Application& app);

    ui::Label lblDatabase{*this, "lblDatabase"};
    ui::Edit editUserName{*this, "editUserName"};
    ui::Edit editPassword{*this, "editPassword"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};
};

} // namespace corvane::shell
