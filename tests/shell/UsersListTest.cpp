#include "UsersFixture.h"
#include "shell/users/SecurityRule.h"

using namespace corvane;
using namespace corvane::ui;

namespace {

// The users list as the program has it.
class UsersList : public corvane::testing::UsersFormsTest {
protected:
    shell::TfrmUsers* MakeList() override { return &app.CreateForm<shell::TfrmUsers>(db_); }
};

} // namespace

TEST_F(UsersList, HasNoFilter) {
    EXPECT_FALSE(list->tbnFilter.Visible());
    FormDriver(*list).PressKey("grdList", Ctrl(KeyOfChar('L')));
    EXPECT_EQ(app.FindForm("frmUsersFilter"), nullptr);
}

TEST_F(UsersList, WillNotCloseWhileUsersExistAndNoneHoldsSecurity) {
    FormDriver d(*list);
    dialogs.Answer("Delete 'alice'?", mbYes);
    d.Click("mnuDelete");
    ASSERT_EQ(CountRows("Users"), 2);
    d.Close();
    EXPECT_TRUE(list->Visible());
    EXPECT_EQ(dialogs.Shown().back().Text, shell::SecurityExitRefusal);
    EXPECT_EQ(dialogs.Shown().back().Type, MsgType::Warning);

    // Once carol may change security, the list closes.
    d.SelectRow("grdList", 1);
    d.Click("mnuEdit");
    FormDriver u(UserForm());
    ASSERT_EQ(u.Text("editUserName"), "carol");
    u.Click("chkSecurity");
    u.Click("btnOK");
    dialogs.ClearShown();
    d.Close();
    EXPECT_FALSE(list->Visible());
    EXPECT_TRUE(dialogs.Shown().empty());
}
