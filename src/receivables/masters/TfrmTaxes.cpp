#include "receivables/masters/TfrmTaxes.h"

#include "core/Exception.h"
#include "core/Refusal.h"
#include "receivables/masters/TfrmTax.h"
#include "receivables/taxes/TaxRecord.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Application.h"

namespace corvane::receivables {

TfrmTaxes::TfrmTaxes(ui::Application& app, store::Database& db)
    : ListForm(app, "frmTaxes", "Taxes", db, "Tax", "tblTax", "TaxID"),
      mnuSortTaxName(AddSortEntry("mnuSortTaxName", "&Name", "TaxName", "TaxName1")) {
    grdList.AddColumn("TaxName", "Name", 160);
    grdList.AddColumn("TaxCode", "Code", 40);
    grdList.AddColumn("Rate", "Rate %", 60);
    grdList.AddColumn("TaxDescription", "Description", 140);
    // Taxes are few: no filter.
    mnuFilter.Visible = false;
    tblTax.BeforeDelete = [this](store::DataSet&) { BeforeDeleteTax(); };
    tblTax.AfterDelete = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::Tax);
    };
    mnuSortTaxName.Click();
}

shell::EntryForm& TfrmTaxes::Entry() {
    auto& entry = App().SingleForm<TfrmTax>(Db());
    entry.LookUps = LookUps;
    return entry;
}

void TfrmTaxes::BeforeDeleteTax() {
    const std::string name = tblTax.FieldByName("TaxName").AsString();
    if (App().MessageDlg(DeleteQuestion(name), ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) !=
        ui::mbYes)
        Abort();
    const std::string reason = TaxInUse(Db(), tblTax.FieldByName("TaxID").AsInteger());
    if (!reason.empty()) throw Exception(TaxDeleteRefusal(name, reason));
}

} // namespace corvane::receivables
