#pragma once

#include "shell/patterns/ListForm.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

// The warehouses by name. A warehouse with history, receipts or adjustments cannot be deleted.
class TfrmWarehouses : public shell::ListForm {
public:
    TfrmWarehouses(ui::Application& app, store::Database& db);

    store::Table& tblWarehse = MainTable;
    ui::MenuItem& mnuSortWarehouseName;

    shell::TdmLookUps* LookUps = nullptr;

protected:
    shell::EntryForm& Entry() override;
};

} // namespace corvane::inventory
