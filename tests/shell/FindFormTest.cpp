#include "shell/patterns/FindForm.h"
#include "UsersFixture.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UsersFormsTest;

namespace {

// A find dialog on the users list, written as a module writes one.
class UsersFind : public shell::FindForm {
public:
    UsersFind(Application& app, shell::ListForm& list) : FindForm(app, "frmUsersFind", list) {
        SetLayout(Column{FormRow{"User name", editUserName}, ButtonRow{btnOK, btnCancel}});
        AddKeyEdit(editUserName, "UserName", "");
    }
    Edit editUserName{*this, "editUserName"};
};

} // namespace

using FindForm = UsersFormsTest;

TEST_F(FindForm, OkLocatesTheRowAndAMissOnlySaysSo) {
    UsersFind find(app, *list);
    host.ScriptModal("frmUsersFind", [](Form& f) {
        FormDriver s(f);
        s.EnterText("editUserName", "nobody");
        s.Click("btnOK"); // refused: the dialog stays for another try
        EXPECT_TRUE(f.Visible());
        s.EnterText("editUserName", "carol");
        s.Click("btnOK");
    });
    FormDriver(*list).SelectRow("grdList", 1);
    app.Run([&] { EXPECT_EQ(find.ShowModal(), mrOK); });
    EXPECT_EQ(dialogs.LastText(), "'nobody' not found");
    EXPECT_EQ(CurrentUser(), "carol");

    host.ScriptModal("frmUsersFind", [](Form& f) {
        FormDriver s(f);
        s.EnterText("editUserName", "zed");
        s.Click("btnOK");
        s.Click("btnCancel");
    });
    app.Run([&] { EXPECT_EQ(find.ShowModal(), mrCancel); });
    EXPECT_EQ(CurrentUser(), "carol") << "the list stays where it was";
}
