#pragma once

#include "shell/patterns/SearchForm.h"

namespace corvane::receivables {

// The invoice chooser of a payment line: the customer's posted invoices in order of number, the
// outstanding ones only unless the payment says otherwise, with a box that moves by the start of
// the number typed.
class TfrmARPaymentInv : public shell::SearchForm {
public:
    TfrmARPaymentInv(ui::Application& app, store::Database& db);

    ui::Edit editFindInvoiceNo{*this, "editFindInvoiceNo"};
};

} // namespace corvane::receivables
