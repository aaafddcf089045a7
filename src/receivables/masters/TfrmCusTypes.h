#pragma once

#include "shell/patterns/ListForm.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::receivables {

// The customer types by name. A type that a customer has cannot be deleted.
class TfrmCusTypes : public shell::ListForm {
public:
    TfrmCusTypes(ui::Application& app, store::Database& db);

    store::Table& tblCusType = MainTable;
    ui::MenuItem& mnuSortTypeName;

    shell::TdmLookUps* LookUps = nullptr;

protected:
    shell::EntryForm& Entry() override;
};

} // namespace corvane::receivables
