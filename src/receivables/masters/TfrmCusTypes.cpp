#include "receivables/masters/TfrmCusTypes.h"

#include "core/Exception.h"
#include "core/Refusal.h"
#include "receivables/domain/MasterRecords.h"
#include "receivables/masters/TfrmCusType.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Application.h"

namespace corvane::receivables {

TfrmCusTypes::TfrmCusTypes(ui::Application& app, store::Database& db)
    : ListForm(app, "frmCusTypes", "Customer Types", db, "CusType", "tblCusType", "CustomerTypeID"),
      mnuSortTypeName(AddSortEntry("mnuSortTypeName", "&Name", "TypeName", "TypeName1")) {
    grdList.AddColumn("TypeName", "Type Name", 220);
    mnuFilter.Visible = false;
    tblCusType.BeforeDelete = [this](store::DataSet&) {
        const std::string name = tblCusType.FieldByName("TypeName").AsString();
        if (App().MessageDlg(DeleteQuestion(name), ui::MsgType::Confirmation,
                             {ui::mbYes, ui::mbNo}) != ui::mbYes)
            Abort();
        const std::string reason =
            CustomerTypeInUse(Db(), tblCusType.FieldByName("CustomerTypeID").AsInteger());
        if (!reason.empty()) throw Exception(DeleteRefusal(name, reason));
    };
    tblCusType.AfterDelete = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::CusType);
    };
    mnuSortTypeName.Click();
}

shell::EntryForm& TfrmCusTypes::Entry() {
    auto& entry = App().SingleForm<TfrmCusType>(Db());
    entry.LookUps = LookUps;
    return entry;
}

} // namespace corvane::receivables
