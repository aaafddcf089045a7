#pragma once

#include "store/Table.h"
#include "ui/Button.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Edit.h"
#include "ui/Form.h"

namespace corvane::receivables {

class TfrmARPayments;

// Finds a payment of the list by its reference, among one customer's payments when a customer is
// chosen. When nothing matches the list stays where it was and the dialog says so.
class TfrmARPaymentsFind : public ui::Form {
public:
    TfrmARPaymentsFind(ui::Application& app, TfrmARPayments& list);

    store::Table tblCustomer;
    ui::DBLookupComboBox cboCustomer{*this, "cboCustomer", tblCustomer, "CustomerID",
                                     "CustomerName"};
    ui::Edit editReference{*this, "editReference"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

private:
    void FindPayment();

    TfrmARPayments& list_;
};

} // namespace corvane::receivables
