#pragma once

#include "shell/patterns/EntryForm.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"
#include "ui/DBRadioGroup.h"
#include "ui/FieldDataLink.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

// One item type: its name, whether its items are stocked, and how they are costed; the costing
// choice means something only for stocked items.
class TfrmItemType : public shell::EntryForm {
public:
    TfrmItemType(ui::Application& app, store::Database& db);

    store::Table& tblItemType = EntryTable;
    ui::DBEdit editTypeName{*this, "editTypeName", EntryTable, "TypeName"};
    ui::DBCheckBox chkInventory{*this, "chkInventory", "Inventory", EntryTable, "Inventory"};
    ui::DBRadioGroup rgpCostingMethod;

    shell::TdmLookUps* LookUps = nullptr;

protected:
    std::string KeyViolationMessage() const override;

private:
    void ShowState();

    ui::DBEdit* const nameEdit_ = &editTypeName;
    ui::FieldDataLink nameLink_{EntryTable, "TypeName", [this] { ShowState(); }};
    ui::FieldDataLink stockLink_{EntryTable, "Inventory", [this] { ShowState(); }};
};

} // namespace corvane::inventory
