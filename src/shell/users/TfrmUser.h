#pragma once

#include "shell/patterns/EntryForm.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"

namespace corvane::shell {

// One user of the company: the name, the password and the rights.
class TfrmUser : public EntryForm {
public:
    TfrmUser(ui::Application& app, store::Database& db);

    store::Table& tblUsers = EntryTable;
    ui::DBEdit editUserName{*this, "editUserName", EntryTable, "UserName"};
    ui::DBEdit editPassword{*this, "editPassword", EntryTable, "Password"};
    ui::DBCheckBox chkSecurity{*this, "chkSecurity", "&Security", EntryTable, "Security"};
    ui::DBCheckBox chkVendors{*this, "chkVendors", "&Vendors", EntryTable, "Vendors"};
    ui::DBCheckBox chkCustomers{*this, "chkCustomers", "&Customers", EntryTable, "Customers"};
    ui::DBCheckBox chkGLAccounts{*this, "chkGLAccounts", "&GL Accounts", EntryTable, "GLAccounts"};

protected:
    std::string KeyViolationMessage() const override { return "User already exists"; }
};

} // namespace corvane::shell
