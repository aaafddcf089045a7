#include "inventory/masters/TfrmItemTypes.h"

#include "core/Exception.h"
#include "core/Refusal.h"
#include "inventory/domain/InventoryMasters.h"
#include "inventory/masters/TfrmItemType.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Application.h"

namespace corvane::inventory {

TfrmItemTypes::TfrmItemTypes(ui::Application& app, store::Database& db)
    : ListForm(app, "frmItemTypes", "Item Types", db, "ItemType", "tblItemType", "ItemTypeID"),
      mnuSortTypeName(AddSortEntry("mnuSortTypeName", "&Name", "TypeName", "TypeName1")) {
    grdList.AddColumn("TypeName", "Type Name", 200);
    grdList.AddColumn("Inventory", "Inventory", 70);
    grdList.AddColumn("CostingMethod", "Costing", 70);
    mnuFilter.Visible = false;
    tblItemType.BeforeDelete = [this](store::DataSet&) {
        const std::string name = tblItemType.FieldByName("TypeName").AsString();
        if (App().MessageDlg(DeleteQuestion(name), ui::MsgType::Confirmation,
                             {ui::mbYes, ui::mbNo}) != ui::mbYes)
            Abort();
        const std::string reason =
            ItemTypeInUse(Db(), tblItemType.FieldByName("ItemTypeID").AsInteger());
        if (!reason.empty()) throw Exception(DeleteRefusal(name, reason));
    };
    tblItemType.AfterDelete = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::ItemType);
    };
    mnuSortTypeName.Click();
}

shell::EntryForm& TfrmItemTypes::Entry() {
    auto& entry = App().SingleForm<TfrmItemType>(Db());
    entry.LookUps = LookUps;
    return entry;
}

} // namespace corvane::inventory
