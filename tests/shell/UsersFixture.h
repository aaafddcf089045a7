#pragma once

#include "shell/patterns/FilterForm.h"
#include "shell/users/TfrmUser.h"
#include "shell/users/TfrmUsers.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

namespace corvane::testing {

// A filter dialog on the users list, written as a module writes one. The users list itself has
// no filter; the tests of the list and filter patterns use this one on a real table.
class UsersFilter : public shell::FilterForm {
public:
    UsersFilter(ui::Application& app, shell::ListForm& list)
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

    ui::Edit editUserName{*this, "editUserName"};
    ui::RadioGroup rgSecurity{*this, "rgSecurity", "Security", {"&Yes", "&No", "&All"}};
};

// The users list with that filter dialog.
class FilteredUsers : public shell::TfrmUsers {
public:
    FilteredUsers(ui::Application& app, store::Database& db) : TfrmUsers(app, db) {
        mnuFilter.Visible = true;
    }

protected:
    shell::FilterForm* Filter() override {
        return &App().SingleForm<UsersFilter>(static_cast<shell::ListForm&>(*this));
    }
};

// A fresh company with three users and their list form on the screen.
class UsersFormsTest : public UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        AddUser("alice", true);
        AddUser("bob", false);
        AddUser("carol", false);
        list = MakeList();
        list->Show();
    }

    // The list of the pattern tests, which need a filter dialog.
    virtual shell::TfrmUsers* MakeList() { return &app.CreateForm<FilteredUsers>(db_); }

    // The password field holds "pw" as it is, not a hash: the tests see whether it changed.
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
