#pragma once

#include "receivables/reports/ARReports.h"
#include "store/Table.h"
#include "ui/Button.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DateEdit.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ListBox.h"

namespace corvane::receivables {

// "AR Reports": a wizard of two steps. The first lists the reports; Next shows the options the
// chosen report offers; Preview checks them and shows the report.
class TfrmARReports : public ui::Form {
public:
    TfrmARReports(ui::Application& app, store::Database& db);

    store::Table tblCurrency, tblSalesman, tblCustomer;

    ui::Label lblReports{*this, "lblReports", "&Reports:"};
    ui::ListBox lstReports{*this, "lstReports"};

    ui::Label lblAsOfDate{*this, "lblAsOfDate", "&As of:"};
    ui::DateEdit editAsOfDate{*this, "editAsOfDate"};
    ui::Label lblDateFrom{*this, "lblDateFrom", "Date &from:"};
    ui::DateEdit editDateFrom{*this, "editDateFrom"};
    ui::Label lblDateTo{*this, "lblDateTo", "Date &to:"};
    ui::DateEdit editDateTo{*this, "editDateTo"};
    ui::Label lblPeriod{*this, "lblPeriod", "&Period:"};
    ui::Edit editPeriod{*this, "editPeriod"};
    ui::Label lblYear{*this, "lblYear", "&Year:"};
    ui::Edit editYear{*this, "editYear"};
    ui::Label lblCurrency{*this, "lblCurrency", "C&urrency:"};
    ui::DBLookupComboBox cboCurrency{*this, "cboCurrency", tblCurrency, "CurrencyID",
                                     "CurrencyName"};
    ui::Label lblSalesman{*this, "lblSalesman", "&Salesman:"};
    ui::DBLookupComboBox cboSalesman{*this, "cboSalesman", tblSalesman, "SalesmanID",
                                     "LastName;FirstName"};
    ui::Label lblCustomer{*this, "lblCustomer", "Cus&tomer:"};
    ui::DBLookupComboBox cboCustomer{*this, "cboCustomer", tblCustomer, "CustomerID",
                                     "CustomerName;CustomerNo"};
    ui::Label lblMinOwing{*this, "lblMinOwing", "Min &Owing:"};
    ui::Edit editMinOwing{*this, "editMinOwing"};
    ui::Label lblMinDaysOld{*this, "lblMinDaysOld", "Min &Days Old:"};
    ui::Edit editMinDaysOld{*this, "editMinDaysOld"};

    ui::Button btnBack{*this, "btnBack", "< &Back"};
    ui::Button btnNext{*this, "btnNext", "&Next >"};
    ui::Button btnPreview{*this, "btnPreview", "&Preview"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    // The step on show: 1 the list, 2 the options.
    int Step() const { return step_; }
    void ShowReports();
    void ShowOptions();
    // The options as typed, checked in the order of the form; a refusal focuses its box.
    ARReportOptions ReadOptions();
    void Preview();

private:
    ARReportKind Kind() const;
    void ShowStep(int step);

    store::Database& db_;
    int step_ = 1;
};

} // namespace corvane::receivables
