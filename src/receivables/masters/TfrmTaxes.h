#pragma once

#include "shell/patterns/ListForm.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::receivables {

// The sales taxes by name. A tax that a customer or an invoice names cannot be deleted.
class TfrmTaxes : public shell::ListForm {
public:
    TfrmTaxes(ui::Application& app, store::Database& db);

    store::Table& tblTax = MainTable;
    ui::MenuItem& mnuSortTaxName;

    shell::TdmLookUps* LookUps = nullptr;

protected:
    shell::EntryForm& Entry() override;

private:
    void BeforeDeleteTax();
};

} // namespace corvane::receivables
