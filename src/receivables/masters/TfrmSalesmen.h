#pragma once

#include "shell/patterns/ListForm.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::receivables {

// The salesmen by name. A salesman that a customer names cannot be deleted.
class TfrmSalesmen : public shell::ListForm {
public:
    TfrmSalesmen(ui::Application& app, store::Database& db);

    store::Table& tblSalesman = MainTable;
    ui::MenuItem& mnuSortFullName;

    shell::TdmLookUps* LookUps = nullptr;

protected:
    shell::EntryForm& Entry() override;
};

} // namespace corvane::receivables
