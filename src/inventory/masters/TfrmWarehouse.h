#pragma once

#include "shell/patterns/EntryForm.h"
#include "ui/DBEdit.h"
#include "ui/FieldDataLink.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

// One warehouse: its name.
class TfrmWarehouse : public shell::EntryForm {
public:
    TfrmWarehouse(ui::Application& app, store::Database& db);

    store::Table& tblWarehse = EntryTable;
    ui::DBEdit editWarehouseName{*this, "editWarehouseName", EntryTable, "WarehouseName"};

    shell::TdmLookUps* LookUps = nullptr;

protected:
    std::string KeyViolationMessage() const override;

private:
    void ShowCaption();

    ui::DBEdit* const nameEdit_ = &editWarehouseName;
    ui::FieldDataLink nameLink_{EntryTable, "WarehouseName", [this] { ShowCaption(); }};
};

} // namespace corvane::inventory
