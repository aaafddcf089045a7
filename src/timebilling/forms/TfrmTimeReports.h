#pragma once

#include "store/Table.h"
#include "timebilling/reports/TimeReports.h"
#include "ui/Button.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DateEdit.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ListBox.h"

namespace corvane::timebilling {

// "Time Billing Reports": a wizard of two steps. The first lists the reports; Next shows the
// options (dates, customer, employee); Preview reads them and shows the report.
class TfrmTimeReports : public ui::Form {
public:
    TfrmTimeReports(ui::Application& app, store::Database& db);

    store::Table tblCustomer, tblEmployee;

    ui::Label lblReports{*this, "lblReports", "&Reports:"};
    ui::ListBox lstReports{*this, "lstReports"};
    ui::Label lblDateFrom{*this, "lblDateFrom", "Date &from:"};
    ui::DateEdit editDateFrom{*this, "editDateFrom"};
    ui::Label lblDateTo{*this, "lblDateTo", "Date &to:"};
    ui::DateEdit editDateTo{*this, "editDateTo"};
    ui::Label lblCustomer{*this, "lblCustomer", "Cus&tomer:"};
    ui::DBLookupComboBox cboCustomer{*this, "cboCustomer", tblCustomer, "CustomerID",
                                     "CustomerName;CustomerNo"};
    ui::Button btnCustomer{*this, "btnCustomer", "..."};
    ui::Label lblEmployee{*this, "lblEmployee", "&Employee:"};
    ui::DBLookupComboBox cboEmployee{*this, "cboEmployee", tblEmployee, "EmployeeID",
                                     "EmployeeName"};

    ui::Button btnBack{*this, "btnBack", "< &Back"};
    ui::Button btnNext{*this, "btnNext", "&Next >"};
    ui::Button btnPreview{*this, "btnPreview", "&Preview"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    // The step on show: 1 the list, 2 the options.
    int Step() const { return step_; }
    void ShowStep(int step);
    // The options as typed; a date that is no date focuses its box.
    TimeReportOptions ReadOptions();
    void Preview();

private:
    TimeReportKind Kind() const;

    store::Database& db_;
    int step_ = 1;
};

} // namespace corvane::timebilling
