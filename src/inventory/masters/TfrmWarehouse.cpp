#include "inventory/masters/TfrmWarehouse.h"

#include "banking/usage/RefusalFocus.h"
#include "inventory/domain/InventoryMasters.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Layout.h"

namespace corvane::inventory {

TfrmWarehouse::TfrmWarehouse(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmWarehouse", db, "Warehse", "tblWarehse") {
    using namespace ui;
    SetLayout(Column{FormRow{"Warehouse Name:", editWarehouseName}, ButtonRow{btnOK, btnCancel}});
    // A new row takes the highest key + 1, drawn in the transaction that saves it.
    EntryTable.SetDrawnKey("WarehouseID");
    EntryTable.BeforePost = [this](store::DataSet&) {
        banking::RaiseRefusal(CheckWarehouse(EntryTable), {{"WarehouseName", &editWarehouseName}});
    };
    EntryTable.AfterPost = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::Warehse);
    };
    OnShow = [this] { ShowCaption(); };
}

void TfrmWarehouse::ShowCaption() {
    if (!EntryTable.Active()) return;
    const std::string name = EntryTable.FieldByName("WarehouseName").AsString();
    Caption = name.empty() ? "New Warehouse" : name;
}

std::string TfrmWarehouse::KeyViolationMessage() const {
    if (Visible() && nameEdit_->CanFocus()) nameEdit_->SetFocus();
    return "Warehouse Name must be unique";
}

} // namespace corvane::inventory
