#pragma once

#include "store/Table.h"
#include "ui/Button.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"
#include "ui/Form.h"

namespace corvane::cli::demo {

// The modal entry form of one user, on the list form's own cursor: OK posts the record, Cancel
// (or Escape) throws the changes away.
class DemoUserForm : public ui::Form {
public:
    DemoUserForm(ui::Application& app, store::Table& users);

    store::Table& tblUsers;
    ui::DBEdit editUserName{*this, "editUserName", tblUsers, "UserName"};
    ui::DBEdit editPassword{*this, "editPassword", tblUsers, "Password"};
    ui::DBCheckBox chkSecurity{*this, "chkSecurity", "May change &security", tblUsers, "Security"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};
};

} // namespace corvane::cli::demo
