#include "ledger/accounts/TfrmGLAccount.h"

#include "core/Exception.h"
#include "core/Text.h"
#include "ledger/accounts/AccountTypes.h"
#include "ui/Application.h"
#include "ui/Layout.h"

namespace corvane::ledger {

namespace {

std::vector<std::string> TypeItems() {
    std::vector<std::string> items;
    int value = atAsset;
    for (const std::string& label : AccountTypeLabels())
        items.push_back(std::to_string(value++) + " " + label);
    return items;
}

bool Blank(const store::Field& field) {
    return field.IsNull() || TrimBlanks(field.AsString()).empty();
}

} // namespace

TfrmGLAccount::TfrmGLAccount(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmGLAccount", db, "GLAccnt", "tblGLAccnt"),
      rgpAccountType(*this, "rgpAccountType", "Account Type", TypeItems(), EntryTable,
                     "AccountType", {"1", "2", "3", "4", "5"}) {
    // A new account's hidden id follows the highest, drawn by the save itself.
    EntryTable.SetDrawnKey("GLAccountID");
    using namespace ui;
    EntryTable.FieldByName("GLAccount").DisplayLabel = "Account no.";
    EntryTable.FieldByName("AccountName").DisplayLabel = "Account Name";
    EntryTable.FieldByName("AccountType").DisplayLabel = "Account Type";
    SetLayout(Column{
        FormRow{"Account no.", editGLAccount},
        FormRow{"Name", editAccountName},
        FormRow{"Notes", memNotes},
        rgpAccountType,
        chkRetainedEarnings,
        chkSuspended,
        ButtonRow{btnOK, btnCancel},
    });
    EntryTable.BeforePost = [this](store::DataSet&) { BeforePostAccount(); };
    EntryTable.AfterPost = [this](store::DataSet&) { chartChanged_ = true; };
    OnShow = [this] { ShowState(); };
    ShowState();
}

TfrmGLAccount::~TfrmGLAccount() {
    if (chartChanged_) RemindOfStatements(App(), EntryTable.OwnerDatabase());
}

void TfrmGLAccount::RemindOfStatements(ui::Application& app, store::Database& db) {
    // A form going away never stops what is closing it: a company already gone asks nothing.
    try {
        if (!db.Connected()) return;
        store::Table statements(db, "FStmt");
        statements.Open();
        if (!statements.IsEmpty())
            app.MessageDlg(ChartChangedTip, ui::MsgType::Information, {ui::mbOK});
    } catch (...) {
    }
}

void TfrmGLAccount::BeforePostAccount() {
    struct Required {
        const char* Field;
        ui::Control& Control;
    };
    // The order the user is told in: name, type, number.
    for (Required required :
         {Required{"AccountName", editAccountName}, Required{"AccountType", rgpAccountType},
          Required{"GLAccount", editGLAccount}}) {
        store::Field& field = EntryTable.FieldByName(required.Field);
        if (!Blank(field)) continue;
        if (required.Control.CanFocus()) required.Control.SetFocus();
        throw Exception("Field '" + field.Label() + "' must have a value");
    }
}

void TfrmGLAccount::ShowState() {
    if (!EntryTable.Active()) return;
    chkRetainedEarnings.Visible = EntryTable.FieldByName("AccountType").AsInteger() == atEquity;
    if (EntryTable.State() == store::DataSetState::Insert)
        Caption = "New Account";
    else
        Caption = EntryTable.FieldByName("AccountName").AsString();
}

std::string TfrmGLAccount::KeyViolationMessage() const {
    if (Visible() && numberEdit_->CanFocus()) numberEdit_->SetFocus();
    return "Account no. and Name must be unique";
}

} // namespace corvane::ledger
