#include "receivables/masters/TfrmSalesmen.h"

#include "core/Exception.h"
#include "core/Refusal.h"
#include "receivables/domain/MasterRecords.h"
#include "receivables/masters/TfrmSalesman.h"
#include "shell/lookups/LookUpCalcFields.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Application.h"

namespace corvane::receivables {

TfrmSalesmen::TfrmSalesmen(ui::Application& app, store::Database& db)
    : ListForm(app, "frmSalesmen", "Salesmen", db, "Salesman", "tblSalesman", "SalesmanID"),
      mnuSortFullName(AddSortEntry("mnuSortFullName", "&Name", "FullName", "FullName")) {
    // A calculated field exists only in a cursor that adds it before it opens.
    tblSalesman.Close();
    shell::AddSalesmanFullName(tblSalesman);
    tblSalesman.Open();
    grdList.AddColumn("FullName", "Name", 180);
    grdList.AddColumn("JobTitle", "Job Title", 140);
    grdList.AddColumn("BusinessPhone", "Phone", 110);
    mnuFilter.Visible = false;
    tblSalesman.BeforeDelete = [this](store::DataSet&) {
        const std::string name = tblSalesman.FieldByName("FullName").AsString();
        if (App().MessageDlg(DeleteQuestion(name), ui::MsgType::Confirmation,
                             {ui::mbYes, ui::mbNo}) != ui::mbYes)
            Abort();
        const std::string reason =
            SalesmanInUse(Db(), tblSalesman.FieldByName("SalesmanID").AsInteger());
        if (!reason.empty()) throw Exception(DeleteRefusal(name, reason));
    };
    tblSalesman.AfterDelete = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::Salesman);
    };
    mnuSortFullName.Click();
}

shell::EntryForm& TfrmSalesmen::Entry() {
    auto& entry = App().SingleForm<TfrmSalesman>(Db());
    entry.LookUps = LookUps;
    return entry;
}

} // namespace corvane::receivables
