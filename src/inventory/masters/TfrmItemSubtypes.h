#pragma once

#include "shell/patterns/ListForm.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

// The item subtypes by name. A subtype an item has cannot be deleted.
class TfrmItemSubtypes : public shell::ListForm {
public:
    TfrmItemSubtypes(ui::Application& app, store::Database& db);

    store::Table& tblItemSubtype = MainTable;
    ui::MenuItem& mnuSortSubtypeName;

    shell::TdmLookUps* LookUps = nullptr;

protected:
    shell::EntryForm& Entry() override;
};

} // namespace corvane::inventory
