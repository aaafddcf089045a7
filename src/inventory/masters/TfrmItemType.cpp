#include "inventory/masters/TfrmItemType.h"

#include "banking/usage/RefusalFocus.h"
#include "inventory/domain/InventoryMasters.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Layout.h"

namespace corvane::inventory {

TfrmItemType::TfrmItemType(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmItemType", db, "ItemType", "tblItemType"),
      rgpCostingMethod(*this, "rgpCostingMethod", "Costing Method",
                       {"Weighted Average", "Standard"}, EntryTable, "CostingMethod", {"1", "2"}) {
    using namespace ui;
    SetLayout(Column{
        FormRow{"Type Name:", editTypeName},
        chkInventory,
        rgpCostingMethod,
        ButtonRow{btnOK, btnCancel},
    });
    EntryTable.OnNewRecord = [](store::DataSet& ds) { SetNewItemTypeDefaults(ds); };
    // A new row takes the highest key + 1, drawn in the transaction that saves it.
    EntryTable.SetDrawnKey("ItemTypeID");
    EntryTable.BeforePost = [this](store::DataSet&) {
        banking::RaiseRefusal(CheckItemType(EntryTable), {{"TypeName", &editTypeName}});
    };
    EntryTable.AfterPost = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::ItemType);
    };
    OnShow = [this] { ShowState(); };
}

void TfrmItemType::ShowState() {
    if (!EntryTable.Active()) return;
    rgpCostingMethod.Enabled = EntryTable.FieldByName("Inventory").AsBoolean();
    const std::string name = EntryTable.FieldByName("TypeName").AsString();
    Caption = name.empty() ? "New Item Type" : name;
}

std::string TfrmItemType::KeyViolationMessage() const {
    if (Visible() && nameEdit_->CanFocus()) nameEdit_->SetFocus();
    return "Type Name must be unique";
}

} // namespace corvane::inventory
