#pragma once

#include "shell/patterns/FilterForm.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::receivables {

// Narrows the customers to one salesman, type or currency, a country (partial text OK: "can"
// for Canada) and the suspended or the active ones.
class TfrmCustomersFilter : public shell::FilterForm {
public:
    TfrmCustomersFilter(ui::Application& app, shell::ListForm& list, shell::TdmLookUps& lookUps);

    ui::DBLookupComboBox cboSalesman;
    ui::DBLookupComboBox cboCustomerType;
    ui::DBLookupComboBox cboCurrency;
    ui::Edit editCountry{*this, "editCountry"};
    ui::RadioGroup rgpSuspended{*this, "rgpSuspended", "Suspended", {"&Yes", "&No", "&All"}};
};

} // namespace corvane::receivables
