#pragma once

#include "shell/patterns/FilterForm.h"
#include "store/Table.h"
#include "ui/ComboBox.h"
#include "ui/DBLookupComboBox.h"
#include "ui/RadioGroup.h"

namespace corvane::receivables {

// Narrows the payment list by customer, bank, how the payments were made and whether they are
// posted.
class TfrmARPaymentsFilter : public shell::FilterForm {
public:
    TfrmARPaymentsFilter(ui::Application& app, shell::ListForm& list);

    store::Table tblCustomer, tblBank;
    ui::DBLookupComboBox cboCustomer{*this, "cboCustomer", tblCustomer, "CustomerID",
                                     "CustomerName"};
    ui::DBLookupComboBox cboBank{*this, "cboBank", tblBank, "BankID", "BankName"};
    ui::ComboBox cboPaidBy{*this, "cboPaidBy"};
    ui::RadioGroup rgPosted{*this, "rgPosted", "Posted", {"&Yes", "&No", "&All"}};
};

} // namespace corvane::receivables
