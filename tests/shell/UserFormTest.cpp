#include "UsersFixture.h"
#include "core/PasswordHash.h"
#include "shell/users/UserRights.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::shell::UserRights;

namespace {

// The users list as the program has it, and its one entry form: a driver made for the form goes
// on working after the next New or Edit.
class UserEntry : public corvane::testing::UsersFormsTest {
protected:
    shell::TfrmUsers* MakeList() override { return &app.CreateForm<shell::TfrmUsers>(db_); }

    FormDriver Open(const char* command, int row = 0) {
        FormDriver d(*list);
        d.SelectRow("grdList", row);
        d.Click(command);
        return FormDriver(UserForm());
    }
    bool Stored(const std::string& user, const std::string& field) {
        store::Table t(db_, "Users");
        t.Open();
        store::Value v = t.Lookup("UserName", {user}, field);
        return !v.IsNull() && v.Bool();
    }
};

} // namespace

TEST_F(UserEntry, CaptionIsNewUserUntilANameOrPasswordIsTypedThenTheName) {
    FormDriver u = Open("mnuNew");
    EXPECT_EQ(UserForm().Caption, "New User");
    u.Focus("editUserName");
    u.Type("do");
    EXPECT_EQ(UserForm().Caption, "do") << "the caption follows each key";
    u.PressKey(Key::Backspace);
    u.PressKey(Key::Backspace);
    EXPECT_EQ(UserForm().Caption, "New User");
    u.Type("dora");
    u.Click("btnOK");
    EXPECT_EQ(UserForm().Caption, "dora");

    Open("mnuNew");
    u.EnterText("editPassword", "x");
    EXPECT_EQ(UserForm().Caption, "") << "a password is typed: the caption is the (empty) name";
    u.PressKey(Key::Escape);
    Open("mnuEdit", 1);
    EXPECT_EQ(UserForm().Caption, "bob");
}

TEST_F(UserEntry, ANewUserHoldsNoRightAndAllAndNoneSetOnlyTheirOwnTab) {
    FormDriver u = Open("mnuNew"); // alice, the current row, holds Security
    for (const auto& right : UserRights::All())
        EXPECT_FALSE(UserForm().tblUsers.FieldByName(right.Field).IsNull()) << right.Field;
    EXPECT_FALSE(u.Checked("chkSecurity"));
    for (const auto& page : UserRights::Pages()) {
        std::string key(page.Key);
        u.Focus("tab" + key);
        u.Click("btnAll" + key);
        for (const auto& right : UserRights::All())
            EXPECT_EQ(UserForm().RightBox(right.Field).Checked(), right.Page == page.Page)
                << key << " All, " << right.Field;
        u.Click("btnNone" + key);
        for (const auto& right : UserRights::All())
            EXPECT_FALSE(UserForm().RightBox(right.Field).Checked()) << key << ", " << right.Field;
    }
    u.Focus("tabAP");
    u.Click("btnAllAP");
    u.EnterText("editUserName", "dora");
    u.Click("btnOK");
    EXPECT_TRUE(Stored("dora", "APCheques"));
    EXPECT_FALSE(Stored("dora", "Customers"));
}

TEST_F(UserEntry, PasswordIsStoredAsAHashKeptUntilRetyped) {
    FormDriver u = Open("mnuNew");
    EXPECT_EQ(UserForm().editPassword.PasswordChar, '*');
    u.EnterText("editUserName", "aaron"); // first in the list
    u.EnterText("editPassword", "one");
    u.Click("btnOK");
    std::string first = StoredPassword("aaron");
    EXPECT_EQ(first.find("one"), std::string::npos) << first;
    EXPECT_LE(first.size(), 128u);
    EXPECT_TRUE(PasswordHash::Verify("one", first));
    EXPECT_FALSE(PasswordHash::Verify("One", first));

    Open("mnuEdit");
    EXPECT_EQ(u.Text("editPassword"), "") << "the stored value is never shown";
    u.Click("chkSecurity");
    u.Click("btnOK");
    EXPECT_EQ(StoredPassword("aaron"), first) << "an edit without typing keeps the password";
    EXPECT_TRUE(Stored("aaron", "Security"));

    Open("mnuEdit");
    u.EnterText("editPassword", "two");
    u.Click("btnOK");
    EXPECT_TRUE(PasswordHash::Verify("two", StoredPassword("aaron")));
    EXPECT_FALSE(PasswordHash::Verify("one", StoredPassword("aaron")));

    // Never given a password, a user logs in by typing nothing.
    Open("mnuNew");
    u.EnterText("editUserName", "dora");
    u.Click("btnOK");
    EXPECT_TRUE(StoredPassword("dora").starts_with("pbkdf2"));
    EXPECT_TRUE(PasswordHash::Verify("", StoredPassword("dora")));
}

TEST_F(UserEntry, ADuplicateNameSaysUserAlreadyExistsWithTheFocusOnTheName) {
    FormDriver u = Open("mnuNew");
    u.EnterText("editUserName", "alice");
    u.EnterText("editPassword", "x");
    u.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "User already exists");
    EXPECT_EQ(u.FocusedName(), "editUserName");
    EXPECT_TRUE(UserForm().Visible());
    EXPECT_EQ(StoredPassword("alice"), "pw");
    u.EnterText("editUserName", "alicia");
    u.Click("btnOK");
    EXPECT_TRUE(PasswordHash::Verify("x", StoredPassword("alicia")));
}
