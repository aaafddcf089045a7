#include "UsersFixture.h"
#include "core/PasswordHash.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UsersFormsTest;
using store::DataSetState;

class EntryForm : public UsersFormsTest {
protected:
    // Opens bob for edit and changes his password in the form.
    FormDriver EditBob() {
        FormDriver d(*list);
        d.SelectRow("grdList", 1);
        d.Click("mnuEdit");
        FormDriver u(UserForm());
        u.EnterText("editPassword", "secret");
        return u;
    }
};

TEST_F(EntryForm, CloseWithChangesAnsweredYesSaves) {
    FormDriver u = EditBob();
    dialogs.Answer("Do you want to save changes?", mbYes);
    u.Close();
    EXPECT_FALSE(UserForm().Visible());
    EXPECT_TRUE(PasswordHash::Verify("secret", StoredPassword("bob")));
}

TEST_F(EntryForm, CloseWithChangesAnsweredNoDropsThem) {
    FormDriver u = EditBob();
    dialogs.Answer("Do you want to save changes?", mbNo);
    u.Close();
    EXPECT_FALSE(UserForm().Visible());
    EXPECT_EQ(StoredPassword("bob"), "pw");
    EXPECT_EQ(UserForm().tblUsers.State(), DataSetState::Browse);
}

TEST_F(EntryForm, CloseWithChangesAnsweredCancelStaysInEdit) {
    FormDriver u = EditBob();
    dialogs.Answer("Do you want to save changes?", mbCancel);
    u.Close();
    EXPECT_TRUE(UserForm().Visible());
    EXPECT_EQ(UserForm().tblUsers.State(), DataSetState::Edit);
    EXPECT_EQ(u.Text("editPassword"), "secret");
}

TEST_F(EntryForm, AnUntouchedInsertClosesWithoutAsking) {
    FormDriver(*list).Click("mnuNew");
    FormDriver(UserForm()).Close();
    EXPECT_FALSE(UserForm().Visible());
    EXPECT_TRUE(dialogs.Shown().empty());
    EXPECT_EQ(CountRows("Users"), 3);
}

TEST_F(EntryForm, DuplicateUserNameGivesTheFormsMessageAndStaysInInsert) {
    FormDriver(*list).Click("mnuNew");
    FormDriver u(UserForm());
    u.EnterText("editUserName", "alice");
    u.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "User already exists");
    EXPECT_TRUE(UserForm().Visible());
    EXPECT_EQ(UserForm().tblUsers.State(), DataSetState::Insert);
    EXPECT_EQ(u.Text("editUserName"), "alice");
    EXPECT_EQ(CountRows("Users"), 3);
}

TEST_F(EntryForm, RefusedFieldValueLeavesTheRecordAsItWas) {
    FormDriver u = EditBob();
    u.EnterText("editUserName", "   ");
    u.Focus("editPassword");
    EXPECT_EQ(dialogs.LastText(), "User name must have a value");
    EXPECT_EQ(UserForm().tblUsers.FieldByName("UserName").AsString(), "bob");
    EXPECT_EQ(u.FocusedName(), "editUserName");
    u.PressKey(Key::Escape);
    EXPECT_FALSE(UserForm().Visible());
    EXPECT_EQ(StoredPassword("bob"), "pw");
    EXPECT_EQ(StoredPassword("   "), "<none>");
}

TEST_F(EntryForm, EnterMovesToTheNextControl) {
    FormDriver(*list).Click("mnuNew");
    FormDriver u(UserForm());
    u.Focus("editUserName");
    u.PressKey(Key::Enter);
    EXPECT_EQ(u.FocusedName(), "editPassword");
    EXPECT_TRUE(UserForm().Visible());
}
