#include "banking/banks/TfrmBank.h"

#include "banking/domain/BankRecord.h"
#include "banking/usage/RefusalFocus.h"
#include "shell/lookups/TdmLookUps.h"
#include "shell/patterns/OpenList.h"
#include "ui/Layout.h"

namespace corvane::banking {

TfrmBank::TfrmBank(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps)
    : EntryForm(app, "frmBank", db, "Bank", "tblBank"),
      cboCurrency(*this, "cboCurrency", EntryTable, "CurrencyID",
                  lookUps.ListSource(shell::LookUp::Currency), "CurrencyID", "CurrencyName"),
      accountNumber_(editBankGLAccount, EntryTable, "BankGLAccountID", db),
      accountName_(editBankGLAccountName, EntryTable, "BankGLAccountID", db,
                   ledger::AccountBoxShows::Name) {
    using namespace ui;
    lookUps.Open(shell::LookUp::Currency, db);
    btnCurrencies.OnClick = [this] { shell::OpenList(App(), "frmCurrencies", "Currencies"); };
    btnGLAccounts.OnClick = [this] { shell::OpenList(App(), "frmGLAccounts", "GLAccounts"); };
    SetLayout(Column{
        FormRow{"Name:", editBankName},
        FormRow{"Currency:", Row{cboCurrency, btnCurrencies, Stretch{}}},
        FormRow{"GL Account:", Row{editBankGLAccount, editBankGLAccountName, btnGLAccounts}},
        ButtonRow{btnOK, btnCancel},
    });
    EntryTable.FieldByName("CurrencyID").OnValidate = [this](store::Field&) {
        if (EntryTable.State() == store::DataSetState::Insert) return;
        RaiseRefusal(CheckBankCurrencyChange(EntryTable.OwnerDatabase(),
                                             EntryTable.FieldByName("BankID").AsInteger()),
                     {});
    };
    // A new row takes the highest key + 1, drawn in the transaction that saves it.
    EntryTable.SetDrawnKey("BankID");
    EntryTable.BeforePost = [this](store::DataSet&) {
        RaiseRefusal(CheckBank(EntryTable.OwnerDatabase(), EntryTable),
                     {{"BankName", &editBankName},
                      {"CurrencyID", &cboCurrency},
                      {"BankGLAccountID", &editBankGLAccount}});
    };
    EntryTable.AfterPost = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::Bank);
    };
    OnShow = [this] { ShowCaption(); };
}

void TfrmBank::ShowCaption() {
    if (!EntryTable.Active()) return;
    const std::string name = EntryTable.FieldByName("BankName").AsString();
    Caption = EntryTable.State() == store::DataSetState::Insert && name.empty() ? "New Bank" : name;
}

std::string TfrmBank::KeyViolationMessage() const {
    if (Visible() && nameEdit_->CanFocus()) nameEdit_->SetFocus();
    return "Bank Name must be unique";
}

} // namespace corvane::banking
