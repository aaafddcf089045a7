#pragma once

#include "shell/patterns/EntryForm.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"
#include "ui/DBMemo.h"
#include "ui/DBRadioGroup.h"
#include "ui/FieldDataLink.h"

namespace corvane::ledger {

// One account of the chart: its number, name, notes, type and flags. The retained earnings flag
// only means something for an equity account, so only there is it offered.
class TfrmGLAccount : public shell::EntryForm {
public:
    TfrmGLAccount(ui::Application& app, store::Database& db);

    store::Table& tblGLAccnt = EntryTable;
    ui::DBEdit editGLAccount{*this, "editGLAccount", EntryTable, "GLAccount"};
    ui::DBEdit editAccountName{*this, "editAccountName", EntryTable, "AccountName"};
    ui::DBMemo memNotes{*this, "memNotes", EntryTable, "Notes"};
    ui::DBRadioGroup rgpAccountType;
    ui::DBCheckBox chkRetainedEarnings{*this, "chkRetainedEarnings", "&Retained Earnings",
                                       EntryTable, "RetainedEarnings"};
    ui::DBCheckBox chkSuspended{*this, "chkSuspended", "&Suspended", EntryTable, "Suspended"};

protected:
    std::string KeyViolationMessage() const override;

private:
    void BeforePostAccount();
    void ShowState();

    ui::DBEdit* const numberEdit_ = &editGLAccount;
    ui::FieldDataLink typeLink_{EntryTable, "AccountType", [this] { ShowState(); }};
    ui::FieldDataLink nameLink_{EntryTable, "AccountName", [this] { ShowState(); }};
};

} // namespace corvane::ledger
