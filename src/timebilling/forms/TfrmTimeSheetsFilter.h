#pragma once

#include "shell/patterns/FilterForm.h"
#include "store/Table.h"
#include "ui/Button.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Edit.h"

namespace corvane::timebilling {

// The criteria of the time sheet list: employee, customer, job (among the chosen customer's
// jobs) and the invoice that billed the time.
class TfrmTimeSheetsFilter : public shell::FilterForm {
public:
    TfrmTimeSheetsFilter(ui::Application& app, shell::ListForm& list);

    store::Table tblEmployee, tblCustomer, tblJob;
    ui::DBLookupComboBox cboEmployee;
    ui::DBLookupComboBox cboCustomer;
    ui::Button btnCustomer{*this, "btnCustomer", "..."};
    ui::DBLookupComboBox cboJob;
    ui::Edit editInvoiceNo{*this, "editInvoiceNo"};

    // Only the time of one job: every other criterion cleared.
    void OneJob(std::int64_t jobId);
};

} // namespace corvane::timebilling
