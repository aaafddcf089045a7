#pragma once

#include "shell/patterns/ListForm.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

// The item types by name. A type that a subtype or an item has cannot be deleted.
class TfrmItemTypes : public shell::ListForm {
public:
    TfrmItemTypes(ui::Application& app, store::Database& db);

    store::Table& tblItemType = MainTable;
    ui::MenuItem& mnuSortTypeName;

    shell::TdmLookUps* LookUps = nullptr;

protected:
    shell::EntryForm& Entry() override;
};

} // namespace corvane::inventory
