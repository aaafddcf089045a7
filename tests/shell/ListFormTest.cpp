#include "UsersFixture.h"
#include "store/sql/Connection.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UsersFormsTest;

using ListForm = UsersFormsTest;

TEST_F(ListForm, SortEntryChecksItselfGoesFirstAndBoldsOnlyItsColumn) {
    FormDriver d(*list);
    list->grdList.Column("Security").TitleBold = true;
    list->mnuSortUserName.SetChecked(false);
    d.SelectRow("grdList", 2);
    ASSERT_EQ(CurrentUser(), "carol");

    d.ClickTitle("grdList", "UserName");
    EXPECT_TRUE(list->mnuSortUserName.Checked());
    EXPECT_EQ(CurrentUser(), "alice");
    EXPECT_TRUE(list->grdList.Column("UserName").TitleBold);
    EXPECT_FALSE(list->grdList.Column("Security").TitleBold);
}

TEST_F(ListForm, TitleOfAColumnWithoutIndexOpensTheMenuBar) {
    FormDriver d(*list);
    d.ClickTitle("grdList", "Security");
    EXPECT_EQ(host.Log().back(), "menubar frmUsers");
    EXPECT_TRUE(list->grdList.Column("UserName").TitleBold) << "the sort order stays";
}

TEST_F(ListForm, EachShowStartsOnTheFirstRow) {
    FormDriver d(*list);
    d.SelectRow("grdList", 1);
    list->Hide();
    list->Show();
    EXPECT_EQ(CurrentUser(), "alice");
    EXPECT_EQ(list->Caption, "Users");
}

TEST_F(ListForm, EnterInTheGridOpensTheCurrentRowForEdit) {
    FormDriver d(*list);
    d.SelectRow("grdList", 1);
    d.PressKey("grdList", Key::Enter);
    shell::TfrmUser& user = UserForm();
    EXPECT_TRUE(user.Visible());
    EXPECT_EQ(user.tblUsers.State(), store::DataSetState::Edit);
    EXPECT_EQ(FormDriver(user).Text("editUserName"), "bob");
}

TEST_F(ListForm, NewInsertsAndTheListFollowsTheSavedRow) {
    FormDriver d(*list);
    d.Click("tbnNew");
    FormDriver u(UserForm());
    EXPECT_EQ(UserForm().tblUsers.State(), store::DataSetState::Insert);
    u.EnterText("editUserName", "bea");
    u.Click("btnOK");
    EXPECT_FALSE(UserForm().Visible());
    EXPECT_EQ(CountRows("Users"), 4);
    EXPECT_EQ(CurrentUser(), "bea");
}

TEST_F(ListForm, DeleteAsksAndRemovesOnlyOnYes) {
    FormDriver d(*list);
    d.SelectRow("grdList", 1);
    dialogs.Answer("Delete 'bob'?", mbNo);
    d.Click("mnuDelete");
    EXPECT_EQ(CountRows("Users"), 3);
    dialogs.Answer("Delete 'bob'?", mbYes);
    d.Click("mnuDelete");
    EXPECT_EQ(CountRows("Users"), 2);
}

TEST_F(ListForm, ATypedKeyOpensTheSearchWithItAndLocatesTheChosenRow) {
    FormDriver d(*list);
    host.ScriptModal("frmUserSearch", [](Form& f) {
        FormDriver s(f);
        EXPECT_EQ(s.Text("editFindUserName"), "c");
        EXPECT_EQ(s.FocusedName(), "editFindUserName");
        EXPECT_EQ(s.GridRow("grdSearch").at(0), "carol");
        s.Type("x"); // no "cx": the nearest row after it
        EXPECT_EQ(s.GridRow("grdSearch").at(0), "carol");
        s.PressKey(Key::Up);
        EXPECT_EQ(s.GridRow("grdSearch").at(0), "bob");
        s.PressKey(Key::Enter);
    });
    d.Focus("grdList");
    d.Type("c");
    EXPECT_EQ(host.PendingScripts(), 0u);
    EXPECT_EQ(CurrentUser(), "bob");
    EXPECT_TRUE(dialogs.Shown().empty());
}

TEST_F(ListForm, ARowTheListDoesNotHoldIsNotFoundInList) {
    list->tblUsers.SetRange({"a"}, {"azzz"});
    FormDriver d(*list);
    host.ScriptModal("frmUserSearch", [](Form& f) {
        FormDriver s(f);
        EXPECT_EQ(s.GridRow("grdSearch").at(0), "bob");
        s.Click("btnOK");
    });
    d.Focus("grdList");
    d.Type("b");
    EXPECT_EQ(dialogs.LastText(), "'bob' not found in list");
    EXPECT_EQ(CurrentUser(), "alice");
}

TEST_F(ListForm, TheSearchShowsOnlyTheRowsOfTheFilteredList) {
    list->tblUsers.SetFilter("(Security = true)");
    list->tblUsers.SetFiltered(true);
    host.ScriptModal("frmUserSearch", [](Form& f) {
        FormDriver s(f);
        EXPECT_EQ(s.GridRow("grdSearch").at(0), "alice") << "nothing from c on passes the filter";
        s.PressKey(Key::Down);
        EXPECT_EQ(s.GridRow("grdSearch").at(0), "alice");
        s.Click("btnOK");
    });
    FormDriver d(*list);
    d.Focus("grdList");
    d.Type("c");
    EXPECT_EQ(host.PendingScripts(), 0u);
    EXPECT_TRUE(dialogs.Shown().empty());
    EXPECT_EQ(CurrentUser(), "alice");
}

TEST_F(ListForm, TypingInTheSearchMovesByTheIndexWithoutAScan) {
    host.ScriptModal("frmUserSearch", [this](Form& f) {
        FormDriver s(f);
        auto& conn = db_.Conn();
        auto before = conn.FullScanSteps();
        s.Type("arol");
        s.PressKey(Key::Backspace);
        EXPECT_EQ(conn.FullScanSteps() - before, 0);
        EXPECT_EQ(s.GridRow("grdSearch").at(0), "carol");
        s.Click("btnCancel");
    });
    FormDriver d(*list);
    d.Focus("grdList");
    d.Type("c");
    EXPECT_EQ(host.PendingScripts(), 0u);
    EXPECT_EQ(CurrentUser(), "alice") << "a cancelled search moves nothing";
}

TEST_F(ListForm, AFilterThatIsOffIsNotPassedToTheSearch) {
    list->tblUsers.SetFilter("(Security = true)");
    list->tblUsers.SetFiltered(false);
    host.ScriptModal("frmUserSearch", [](Form& f) {
        EXPECT_EQ(FormDriver(f).GridRow("grdSearch").at(0), "carol");
        FormDriver(f).Click("btnOK");
    });
    FormDriver d(*list);
    d.Focus("grdList");
    d.Type("c");
    EXPECT_EQ(CurrentUser(), "carol");
}

TEST_F(ListForm, OpeningFromTheMenuClearsTheFilterAndTheDialogsCriteria) {
    host.ScriptModal("frmUsersFilter", [](Form& f) {
        FormDriver(f).EnterText("editUserName", "b");
        FormDriver(f).Click("btnOK");
    });
    FormDriver(*list).Click("mnuFilter");
    list->ShowOutstanding("(Security = true)");
    ASSERT_TRUE(list->OutstandingShown());
    list->PrepareMenuOpen(true);
    EXPECT_FALSE(list->mnuFilter.Checked() || list->OutstandingShown());
    EXPECT_EQ(list->tblUsers.RecordCount(), 3);
    EXPECT_EQ(FormDriver(app, "frmUsersFilter").Text("editUserName"), "");
}
