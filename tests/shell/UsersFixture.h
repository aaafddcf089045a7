#pragma once

#include "shell/users/TfrmUser.h"
#include "shell/users/TfrmUsers.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

namespace corvane::testing {

// A fresh company with three users and their list form on the screen.
class UsersFormsTest : public UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        AddUser("alice", true);
        AddUser("bob", false);
        AddUser("carol", false);
        list = &app.CreateForm<shell::TfrmUsers>(db_);
        list->Show();
    }

    void AddUser(const std::string& name, bool security) {
        InsertRow("Users", {{"UserName", name}, {"Password", "pw"}, {"Security", security}});
    }

    std::string CurrentUser() { return list->tblUsers.FieldByName("UserName").AsString(); }

    std::string StoredPassword(const std::string& user) {
        store::Table t(db_, "Users");
        t.Open();
        return t.Lookup("UserName", {user}, "Password").IsNull()
                   ? "<none>"
                   : t.Lookup("UserName", {user}, "Password").Str();
    }

    shell::TfrmUser& UserForm() { return dynamic_cast<shell::TfrmUser&>(app.GetForm("frmUser")); }

    shell::TfrmUsers* list = nullptr;
};

} // namespace corvane::testing
