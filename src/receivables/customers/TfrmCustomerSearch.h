#pragma once

#include "shell/patterns/SearchForm.h"

namespace corvane::receivables {

// Finds a customer by typing its number or name, optionally among one customer type. A
// suspended customer is refused unless the caller allows it (lists do, invoices do not).
class TfrmCustomerSearch : public shell::SearchForm {
public:
    TfrmCustomerSearch(ui::Application& app, store::Database& db);

    ui::Edit editFindCustomerNo{*this, "editFindCustomerNo"};
    ui::Edit editFindCustomerName{*this, "editFindCustomerName"};
    ui::DBLookupComboBox& cboCustomerType;

    bool AllowSuspended = true;
};

} // namespace corvane::receivables
