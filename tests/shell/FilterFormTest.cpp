#include "UsersFixture.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UsersFormsTest;

using FilterForm = UsersFormsTest;

namespace {
void SetCriteria(Form& f, const std::string& name, const std::string& security) {
    FormDriver s(f);
    s.EnterText("editUserName", name);
    s.Choose("rgSecurity", security);
}
} // namespace

TEST_F(FilterForm, OkBuildsTheExpressionAndMarksTheCaption) {
    FormDriver d(*list);
    d.SelectRow("grdList", 2);
    host.ScriptModal("frmUsersFilter", [](Form& f) {
        SetCriteria(f, "*o", "No");
        FormDriver(f).Click("btnOK");
    });
    d.Click("mnuFilter");
    EXPECT_EQ(list->tblUsers.Filter(), "(UPPER(UserName) LIKE '%O%') AND (Security <> true)");
    EXPECT_TRUE(list->tblUsers.Filtered());
    EXPECT_TRUE(list->mnuFilter.Checked());
    EXPECT_EQ(list->Caption, "Users (Filtered)");
    EXPECT_EQ(list->tblUsers.RecordCount(), 2);
    EXPECT_EQ(CurrentUser(), "bob") << "the list starts again at its first row";
}

TEST_F(FilterForm, InnerStarMatchesAnythingBetween) {
    AddUser("arnie", false);
    host.ScriptModal("frmUsersFilter", [](Form& f) {
        SetCriteria(f, "a*e", "All");
        FormDriver(f).Click("btnOK");
    });
    FormDriver(*list).Click("mnuFilter");
    EXPECT_EQ(list->tblUsers.Filter(), "(UPPER(UserName) LIKE 'A%E%')");
    EXPECT_EQ(list->tblUsers.RecordCount(), 2); // alice, arnie
}

TEST_F(FilterForm, CancelPutsBackTheCriteriaInForce) {
    FormDriver d(*list);
    host.ScriptModal("frmUsersFilter", [](Form& f) {
        SetCriteria(f, "b", "No");
        FormDriver(f).Click("btnOK");
    });
    d.Click("mnuFilter");
    host.ScriptModal("frmUsersFilter", [](Form& f) {
        SetCriteria(f, "zz", "Yes");
        FormDriver(f).PressKey(Key::Escape);
    });
    d.Click("mnuFilter");
    EXPECT_EQ(list->tblUsers.Filter(), "(UPPER(UserName) LIKE 'B%') AND (Security <> true)");
    host.ScriptModal("frmUsersFilter", [](Form& f) {
        FormDriver s(f);
        EXPECT_EQ(s.Text("editUserName"), "b");
        EXPECT_EQ(s.Text("rgSecurity"), "No");
        s.Click("btnCancel");
    });
    d.Click("mnuFilter");
    EXPECT_EQ(host.PendingScripts(), 0u);
}

TEST_F(FilterForm, AllNeutralClearsTheFilterAndTheCaption) {
    FormDriver d(*list);
    host.ScriptModal("frmUsersFilter", [](Form& f) {
        SetCriteria(f, "", "Yes");
        FormDriver(f).Click("btnOK");
    });
    d.Click("mnuFilter");
    ASSERT_EQ(list->Caption, "Users (Filtered)");
    ASSERT_EQ(list->tblUsers.RecordCount(), 1);
    host.ScriptModal("frmUsersFilter", [](Form& f) {
        FormDriver s(f);
        s.Click("btnReset");
        EXPECT_TRUE(f.Visible()) << "Reset does not close";
        EXPECT_EQ(s.Text("rgSecurity"), "All");
        s.Click("btnOK");
    });
    d.Click("mnuFilter");
    EXPECT_FALSE(list->tblUsers.Filtered());
    EXPECT_FALSE(list->mnuFilter.Checked());
    EXPECT_EQ(list->Caption, "Users");
    EXPECT_EQ(list->tblUsers.RecordCount(), 3);
}
