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
    // Reminds the user of custom statements when the chart changed here (see ChartChangedTip).
    ~TfrmGLAccount() override;

    // Custom financial statements list accounts one by one, so a changed chart leaves them
    // behind until someone updates them.
    static constexpr const char* ChartChangedTip =
        "Tip: the chart of accounts has changed.\n\nIf you use custom financial statements, "
        "update them so that they include the new or changed accounts. AutoCreate can also "
        "rebuild the financial statements from the chart of accounts.";
    // Shows ChartChangedTip when the company has financial statements; never raises, since it
    // runs as forms go away.
    static void RemindOfStatements(ui::Application& app, store::Database& db);

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
    // An account was added or changed through this form while it lived.
    bool chartChanged_ = false;
    ui::FieldDataLink typeLink_{EntryTable, "AccountType", [this] { ShowState(); }};
    ui::FieldDataLink nameLink_{EntryTable, "AccountName", [this] { ShowState(); }};
};

} // namespace corvane::ledger
