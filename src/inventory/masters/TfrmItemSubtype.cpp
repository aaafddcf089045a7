#include "inventory/masters/TfrmItemSubtype.h"

#include "banking/usage/RefusalFocus.h"
#include "inventory/domain/InventoryMasters.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Layout.h"

namespace corvane::inventory {

TfrmItemSubtype::TfrmItemSubtype(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmItemSubtype", db, "ItemSubtype", "tblItemSubtype"),
      tblItemType(db, "ItemType"), cboItemType(*this, "cboItemType", EntryTable, "ItemTypeID",
                                               tblItemType, "ItemTypeID", "TypeName") {
    using namespace ui;
    tblItemType.SetIndexName("TypeName1");
    tblItemType.Open();
    SetLayout(Column{
        FormRow{"Subtype Name:", editSubtypeName},
        FormRow{"Item Type:", cboItemType},
        ButtonRow{btnOK, btnCancel},
    });
    // A new row takes the highest key + 1, drawn in the transaction that saves it.
    EntryTable.SetDrawnKey("ItemSubtypeID");
    EntryTable.BeforePost = [this](store::DataSet&) {
        banking::RaiseRefusal(CheckItemSubtype(EntryTable.OwnerDatabase(), EntryTable),
                              {{"SubtypeName", &editSubtypeName}, {"ItemTypeID", &cboItemType}});
    };
    EntryTable.AfterPost = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::ItemSubtype);
    };
    OnShow = [this] {
        tblItemType.Refresh();
        ShowCaption();
    };
}

void TfrmItemSubtype::ShowCaption() {
    if (!EntryTable.Active()) return;
    const std::string name = EntryTable.FieldByName("SubtypeName").AsString();
    Caption = name.empty() ? "New Item Subtype" : name;
}

std::string TfrmItemSubtype::KeyViolationMessage() const {
    if (Visible() && nameEdit_->CanFocus()) nameEdit_->SetFocus();
    return "Subtype Name must be unique";
}

} // namespace corvane::inventory
