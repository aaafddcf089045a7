#include "inventory/masters/TfrmWarehouses.h"

#include "core/Exception.h"
#include "core/Refusal.h"
#include "inventory/domain/InventoryMasters.h"
#include "inventory/masters/TfrmWarehouse.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Application.h"

namespace corvane::inventory {

TfrmWarehouses::TfrmWarehouses(ui::Application& app, store::Database& db)
    : ListForm(app, "frmWarehouses", "Warehouses", db, "Warehse", "tblWarehse", "WarehouseID"),
      mnuSortWarehouseName(
          AddSortEntry("mnuSortWarehouseName", "&Name", "WarehouseName", "WarehouseName1")) {
    grdList.AddColumn("WarehouseName", "Warehouse Name", 200);
    mnuFilter.Visible = false;
    tblWarehse.BeforeDelete = [this](store::DataSet&) {
        const std::string name = tblWarehse.FieldByName("WarehouseName").AsString();
        if (App().MessageDlg(DeleteQuestion(name), ui::MsgType::Confirmation,
                             {ui::mbYes, ui::mbNo}) != ui::mbYes)
            Abort();
        const std::string reason =
            WarehouseInUse(Db(), tblWarehse.FieldByName("WarehouseID").AsInteger());
        if (!reason.empty()) throw Exception(DeleteRefusal(name, reason));
    };
    tblWarehse.AfterDelete = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::Warehse);
    };
    mnuSortWarehouseName.Click();
}

shell::EntryForm& TfrmWarehouses::Entry() {
    auto& entry = App().SingleForm<TfrmWarehouse>(Db());
    entry.LookUps = LookUps;
    return entry;
}

} // namespace corvane::inventory
