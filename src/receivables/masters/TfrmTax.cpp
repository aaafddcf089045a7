#include "receivables/masters/TfrmTax.h"

#include "banking/usage/RefusalFocus.h"
#include "receivables/taxes/TaxRecord.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Layout.h"

namespace corvane::receivables {

TfrmTax::TfrmTax(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmTax", db, "Tax", "tblTax"),
      accountNumber_(editTaxGLAccount, EntryTable, "TaxGLAccountID", db),
      accountName_(editTaxGLAccountName, EntryTable, "TaxGLAccountID", db,
                   ledger::AccountBoxShows::Name) {
    using namespace ui;
    EntryTable.FieldByName("TaxName").DisplayLabel = "Tax Name";
    EntryTable.FieldByName("TaxCode").DisplayLabel = "Code";
    EntryTable.FieldByName("TaxDescription").DisplayLabel = "Description";
    EntryTable.FieldByName("TaxGLAccountID").DisplayLabel = "GL Account";
    // One letter, upper case: what an item's codes are matched against.
    editTaxCode.SetEditMask(">l;0;_");
    SetLayout(Column{
        FormRow{"Tax Name:", editTaxName},
        FormRow{"Code:", editTaxCode},
        FormRow{"Description:", editTaxDescription},
        FormRow{"Rate %:", editRate},
        FormRow{"GL Account:", Row{editTaxGLAccount, editTaxGLAccountName}},
        ButtonRow{btnOK, btnCancel},
    });
    // A new row takes the highest key + 1, drawn in the transaction that saves it.
    EntryTable.SetDrawnKey("TaxID");
    EntryTable.BeforePost = [this](store::DataSet&) { BeforePostTax(); };
    EntryTable.AfterPost = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::Tax);
    };
    OnShow = [this] { ShowCaption(); };
}

void TfrmTax::BeforePostTax() {
    banking::RaiseRefusal(CheckTax(EntryTable.OwnerDatabase(), EntryTable),
                          {{"TaxName", &editTaxName},
                           {"TaxCode", &editTaxCode},
                           {"TaxDescription", &editTaxDescription},
                           {"Rate", &editRate},
                           {"TaxGLAccountID", &editTaxGLAccount}});
}

void TfrmTax::ShowCaption() {
    if (!EntryTable.Active()) return;
    const std::string name = EntryTable.FieldByName("TaxName").AsString();
    Caption = EntryTable.State() == store::DataSetState::Insert && name.empty() ? "New Tax" : name;
}

std::string TfrmTax::KeyViolationMessage() const {
    if (Visible() && nameEdit_->CanFocus()) nameEdit_->SetFocus();
    return std::string(TaxNameTakenMessage);
}

} // namespace corvane::receivables
