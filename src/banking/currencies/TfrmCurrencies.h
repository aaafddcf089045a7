#pragma once

#include "shell/patterns/ListForm.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::banking {

class TfrmCurrency;

// The list of currencies with their present rates. A currency in use by a bank, a vendor or a
// customer cannot be deleted.
class TfrmCurrencies : public shell::ListForm {
public:
    TfrmCurrencies(ui::Application& app, store::Database& db);

    store::Table& tblCurrency = MainTable;
    ui::MenuItem& mnuSortCurrencyName;

    // The program's shared look-up cursors, refreshed when a currency is added, changed or
    // deleted so that every currency list shows it; null when the list runs without the main form.
    shell::TdmLookUps* LookUps = nullptr;

protected:
    shell::EntryForm& Entry() override;

private:
    void BeforeDeleteCurrency();
};

} // namespace corvane::banking
