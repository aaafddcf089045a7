#include "shell/users/TfrmUser.h"

#include "core/Exception.h"
#include "core/PasswordHash.h"
#include "core/Text.h"
#include "ui/Layout.h"

namespace corvane::shell {

namespace {

// The passwords the login takes are as long as this; a longer one could never be typed there.
constexpr int kPasswordLength = 30;

// A column whose items are known only at run time: the rights of a tab come from their table.
struct ColumnOf : ui::LayoutItem {
    explicit ColumnOf(std::vector<ui::LayoutItem> items)
        : LayoutItem(Kind::Column, {}, std::move(items)) {}
};

} // namespace

TfrmUser::Tab::Tab(TfrmUser& form, const RightsPageInfo& info)
    : Page(info.Page),
      Sheet(form.pgcRights, "tab" + std::string(info.Key), std::string(info.Caption)),
      btnAll(form, "btnAll" + std::string(info.Key), "&All"),
      btnNone(form, "btnNone" + std::string(info.Key), "&None") {
    std::vector<ui::LayoutItem> boxes;
    for (const UserRight& right : UserRights::All()) {
        if (right.Page != info.Page) continue;
        Boxes.push_back(std::make_unique<ui::DBCheckBox>(
            form, "chk" + std::string(right.Field), std::string(right.Caption), form.EntryTable,
            std::string(right.Field)));
        boxes.emplace_back(*Boxes.back());
    }
    Sheet.SetLayout(
        ui::Row{ColumnOf(std::move(boxes)), ui::Column{btnAll, btnNone, ui::Stretch{}}});
    RightsPage page = info.Page;
    btnAll.OnClick = [&form, page] { form.SetTabRights(page, true); };
    btnNone.OnClick = [&form, page] { form.SetTabRights(page, false); };
}

TfrmUser::TfrmUser(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmUser", db, "Users", "tblUsers") {
    using namespace ui;
    editPassword.PasswordChar = '*';
    editPassword.MaxLength = kPasswordLength;
    for (const RightsPageInfo& info : UserRights::Pages())
        tabs_.push_back(std::make_unique<Tab>(*this, info));
    SetLayout(Column{
        FormRow{"User name", editUserName},
        FormRow{"Password", editPassword},
        pgcRights,
        ButtonRow{btnOK, btnCancel},
    });

    // The login matches the name as typed; one of blanks only could never be typed there.
    EntryTable.FieldByName("UserName").OnValidate = [](store::Field& f) {
        if (TrimBlanks(f.AsString()).empty()) throw Exception("User name must have a value");
    };
    // A new user may do nothing until someone grants it.
    EntryTable.OnNewRecord = [this](store::DataSet&) { ClearRights(); };
    EntryTable.BeforePost = [this](store::DataSet&) { BeforePostUser(); };
    // What was typed as a password is gone once the record is saved or dropped.
    EntryTable.AfterPost = EntryTable.AfterCancel = [this](store::DataSet&) { ClearPassword(); };
    editUserName.OnChange = [this] { ShowCaption(); };
    editPassword.OnChange = [this] { PasswordTyped(); };
    OnShow = [this] {
        ClearPassword();
        ShowCaption();
    };
    ShowCaption();
}

TfrmUser::Tab& TfrmUser::TabOf(RightsPage page) const {
    for (const auto& tab : tabs_)
        if (tab->Page == page) return *tab;
    throw Exception("Unknown page of rights");
}

ui::Page& TfrmUser::RightsTab(RightsPage page) const {
    return TabOf(page).Sheet;
}

ui::DBCheckBox& TfrmUser::RightBox(std::string_view field) const {
    const UserRight* right = UserRights::Find(field);
    if (!right) throw Exception("No right is held in the field " + std::string(field));
    for (const auto& box : TabOf(right->Page).Boxes)
        if (box->DataLink().FieldName() == right->Field) return *box;
    throw Exception("No check box for the right " + std::string(field));
}

void TfrmUser::SetTabRights(RightsPage page, bool granted) {
    if (EntryTable.State() == store::DataSetState::Browse) EntryTable.Edit();
    for (const UserRight& right : UserRights::All())
        if (right.Page == page) EntryTable.FieldByName(right.Field).SetAsBoolean(granted);
}

void TfrmUser::ClearRights() {
    for (const UserRight& right : UserRights::All())
        EntryTable.FieldByName(right.Field).SetAsBoolean(false);
}

void TfrmUser::BeforePostUser() {
    // The name is the key the login finds the user by: without one the row could never log in.
    if (TrimBlanks(EntryTable.FieldByName("UserName").AsString()).empty()) {
        editUserName.SetFocus();
        throw Exception("User name must have a value");
    }
    // Stored anew only when typed: an edit of the rights keeps the password the user has. A new
    // user nobody gave a password logs in by typing nothing, as with any other empty password.
    if (passwordTyped_ || EntryTable.State() == store::DataSetState::Insert)
        EntryTable.FieldByName("Password").SetAsString(PasswordHash::Hash(editPassword.Text()));
}

void TfrmUser::PasswordTyped() {
    if (clearingPassword_) return;
    passwordTyped_ = true;
    // As with a bound control, typing starts the edit of a record that was only shown.
    if (EntryTable.State() == store::DataSetState::Browse) EntryTable.Edit();
    ShowCaption();
}

void TfrmUser::ClearPassword() {
    clearingPassword_ = true;
    editPassword.SetText("");
    clearingPassword_ = false;
    passwordTyped_ = false;
}

void TfrmUser::ShowCaption() {
    bool passwordNull =
        !passwordTyped_ && (!EntryTable.Active() || EntryTable.FieldByName("Password").IsNull());
    std::string name = editUserName.Text();
    Caption = name.empty() && passwordNull ? "New User" : name;
}

std::string TfrmUser::KeyViolationMessage() const {
    // The name is what makes the row a duplicate: the user corrects it there.
    if (Visible() && nameEdit_->CanFocus()) nameEdit_->SetFocus();
    return "User already exists";
}

} // namespace corvane::shell
