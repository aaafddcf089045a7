#include "inventory/masters/TfrmItemSubtypes.h"

#include "core/Exception.h"
#include "core/Refusal.h"
#include "inventory/domain/InventoryMasters.h"
#include "inventory/masters/TfrmItemSubtype.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Application.h"

namespace corvane::inventory {

TfrmItemSubtypes::TfrmItemSubtypes(ui::Application& app, store::Database& db)
    : ListForm(app, "frmItemSubtypes", "Item Subtypes", db, "ItemSubtype", "tblItemSubtype",
               "ItemSubtypeID"),
      mnuSortSubtypeName(
          AddSortEntry("mnuSortSubtypeName", "&Name", "SubtypeName", "SubtypeName1")) {
    grdList.AddColumn("SubtypeName", "Subtype Name", 200);
    mnuFilter.Visible = false;
    tblItemSubtype.BeforeDelete = [this](store::DataSet&) {
        const std::string name = tblItemSubtype.FieldByName("SubtypeName").AsString();
        if (App().MessageDlg(DeleteQuestion(name), ui::MsgType::Confirmation,
                             {ui::mbYes, ui::mbNo}) != ui::mbYes)
            Abort();
        const std::string reason =
            ItemSubtypeInUse(Db(), tblItemSubtype.FieldByName("ItemSubtypeID").AsInteger());
        if (!reason.empty()) throw Exception(DeleteRefusal(name, reason));
    };
    tblItemSubtype.AfterDelete = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::ItemSubtype);
    };
    mnuSortSubtypeName.Click();
}

shell::EntryForm& TfrmItemSubtypes::Entry() {
    auto& entry = App().SingleForm<TfrmItemSubtype>(Db());
    entry.LookUps = LookUps;
    return entry;
}

} // namespace corvane::inventory
