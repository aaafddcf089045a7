#pragma once

#include "shell/patterns/EntryForm.h"
#include "shell/users/UserRights.h"
#include "ui/Button.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"
#include "ui/Edit.h"
#include "ui/FieldDataLink.h"
#include "ui/PageControl.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::shell {

// One user of the company: the name, the password and the rights, a tab of check boxes per system.
// The password is never shown and never stored as typed: the field keeps a salted hash of it.
//
// Components made from the table of rights: the tab "tab" + page key ("tabTimeBilling"), on it
// the buttons "btnAll" + page key and "btnNone" + page key, and a check box "chk" + field
// ("chkAPInvoices") for each right.
class TfrmUser : public EntryForm {
public:
    TfrmUser(ui::Application& app, store::Database& db);

    store::Table& tblUsers = EntryTable;
    ui::DBEdit editUserName{*this, "editUserName", EntryTable, "UserName"};
    // A new password as the user types it; not bound, so that the stored hash never shows.
    ui::Edit editPassword{*this, "editPassword"};
    ui::PageControl pgcRights{*this, "pgcRights"};

    ui::DBCheckBox& RightBox(std::string_view field) const;
    ui::Page& RightsTab(RightsPage page) const;
    // Grants or withdraws every right of one tab, as its All and None buttons do.
    void SetTabRights(RightsPage page, bool granted);

protected:
    std::string KeyViolationMessage() const override;

private:
    struct Tab {
        Tab(TfrmUser& form, const RightsPageInfo& info);
        RightsPage Page;
        ui::Page Sheet;
        std::vector<std::unique_ptr<ui::DBCheckBox>> Boxes;
        ui::Button btnAll;
        ui::Button btnNone;
    };
    Tab& TabOf(RightsPage page) const;
    void ClearRights();
    void BeforePostUser();
    void PasswordTyped();
    void ClearPassword();
    void ShowCaption();

    std::vector<std::unique_ptr<Tab>> tabs_;
    // The name edit, reachable from the const hook that words a duplicate key.
    ui::DBEdit* const nameEdit_ = &editUserName;
    bool passwordTyped_ = false;
    bool clearingPassword_ = false;
    // The caption follows the record: another row, a post, a cancel.
    ui::FieldDataLink nameLink_{EntryTable, "UserName", [this] { ShowCaption(); }};
    ui::FieldDataLink passwordLink_{EntryTable, "Password", [this] { ShowCaption(); }};
};

} // namespace corvane::shell
