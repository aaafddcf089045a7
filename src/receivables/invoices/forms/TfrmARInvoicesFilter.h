#pragma once

#include "shell/patterns/FilterForm.h"
#include "store/Table.h"
#include "ui/DBLookupComboBox.h"
#include "ui/RadioGroup.h"

namespace corvane::receivables {

// Narrows the invoice list by customer, currency and whether the invoices are posted.
class TfrmARInvoicesFilter : public shell::FilterForm {
public:
    TfrmARInvoicesFilter(ui::Application& app, shell::ListForm& list);

    store::Table tblCustomer, tblCurrency;
    ui::DBLookupComboBox cboCustomer{*this, "cboCustomer", tblCustomer, "CustomerID",
                                     "CustomerName"};
    ui::DBLookupComboBox cboCurrency{*this, "cboCurrency", tblCurrency, "CurrencyID",
                                     "CurrencyName"};
    ui::RadioGroup rgPosted{*this, "rgPosted", "Posted", {"&Yes", "&No", "&All"}};
};

} // namespace corvane::receivables
