#pragma once

#include "shell/patterns/EntryForm.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"
#include "ui/FieldDataLink.h"

namespace corvane::ledger {

// The subaccount tables of the three levels, GLAcSub1 to GLAcSub3.
inline constexpr int kSubAccountLevels = 3;
std::string SubAccountTable(int level);

// One subaccount of one of the three levels. The levels share their fields, so one form serves
// them all: the list names the level before it opens a row.
class TfrmGLAccountSub : public shell::EntryForm {
public:
    TfrmGLAccountSub(ui::Application& app, store::Database& db);

    store::Table& tblGLAcSub = EntryTable;
    ui::DBEdit editSubAccount{*this, "editSubAccount", EntryTable, "SubAccount"};
    ui::DBEdit editSubAccountName{*this, "editSubAccountName", EntryTable, "SubAccountName"};
    ui::DBCheckBox chkSuspended{*this, "chkSuspended", "&Suspended", EntryTable, "Suspended"};

    int Level() const { return level_; }
    // Works on the table of level 1 to 3 from now on; the form must not hold a record in edit.
    void SetLevel(int level);

protected:
    std::string KeyViolationMessage() const override;

private:
    void BeforePostSub();
    void ShowCaption();
    void LabelFields();

    int level_ = 1;
    ui::DBEdit* const numberEdit_ = &editSubAccount;
    ui::FieldDataLink nameLink_{EntryTable, "SubAccountName", [this] { ShowCaption(); }};
};

} // namespace corvane::ledger
