#include "timebilling/forms/TfrmTimeReports.h"

#include "core/DateEntry.h"
#include "core/Exception.h"
#include "reports/run/PreviewReport.h"
#include "reports/run/TrptBase.h"
#include "timebilling/forms/CustomerChoice.h"
#include "ui/Layout.h"

#include <algorithm>

namespace corvane::timebilling {

TfrmTimeReports::TfrmTimeReports(ui::Application& app, store::Database& db)
    : Form(app, "frmTimeReports"), tblCustomer(db, "Customer"), tblEmployee(db, "Employee"),
      db_(db) {
    using namespace ui;
    tblCustomer.SetIndexName("CustomerName1");
    tblEmployee.SetIndexName("EmployeeName1");
    tblCustomer.Open();
    tblEmployee.Open();
    for (const char* name : kTimeReportNames)
        lstReports.Add(name);
    lstReports.SetItemIndex(0);
    lstReports.OnDblClick = [this] { ShowStep(2); };
    SetLayout(Column{
        FormRow{lblReports, lstReports},
        FormRow{lblDateFrom, editDateFrom},
        FormRow{lblDateTo, editDateTo},
        FormRow{lblCustomer, Row{cboCustomer, btnCustomer}},
        FormRow{lblEmployee, cboEmployee},
        ButtonRow{btnBack, btnNext, btnPreview, btnCancel},
    });
    btnCancel.Cancel = true;
    ConnectCustomerSearch(btnCustomer, cboCustomer, db);
    btnBack.OnClick = [this] { ShowStep(1); };
    btnNext.OnClick = [this] { ShowStep(2); };
    btnPreview.OnClick = [this] { Preview(); };
    btnCancel.OnClick = [this] { Close(); };
    OnClose = [](ui::CloseAction& action) { action = ui::CloseAction::Free; };
    ShowStep(1);
}

TimeReportKind TfrmTimeReports::Kind() const {
    return static_cast<TimeReportKind>(std::max(lstReports.ItemIndex(), 0));
}

void TfrmTimeReports::ShowStep(int step) {
    step_ = step;
    const bool options = step == 2;
    lblReports.Visible = lstReports.Visible = !options;
    for (ui::Control* c : std::initializer_list<ui::Control*>{
             &lblDateFrom, &editDateFrom, &lblDateTo, &editDateTo, &lblCustomer, &cboCustomer,
             &btnCustomer, &lblEmployee, &cboEmployee})
        c->Visible = options;
    btnBack.Enabled = options;
    btnNext.Enabled = !options;
    btnPreview.Enabled = options;
    btnNext.Default = !options;
    btnPreview.Default = options;
    if (options) {
        Caption =
            std::string("Time Billing Reports - ") + kTimeReportNames[static_cast<int>(Kind())];
        FocusControl(editDateFrom);
    } else {
        Caption = "Time Billing Reports";
        FocusControl(lstReports);
    }
}

TimeReportOptions TfrmTimeReports::ReadOptions() {
    TimeReportOptions o;
    auto date = [this](ui::DateEdit& edit) -> std::optional<Date> {
        if (edit.Text().empty()) return std::nullopt;
        try {
            return ParseEnteredDate(edit.Text());
        } catch (const Exception&) {
            FocusControl(edit);
            throw;
        }
    };
    o.DateFrom = date(editDateFrom);
    o.DateTo = date(editDateTo);
    if (const store::Value c = cboCustomer.KeyValue(); !c.IsNull()) o.CustomerID = c.Int();
    if (const store::Value e = cboEmployee.KeyValue(); !e.IsNull()) o.EmployeeID = e.Int();
    return o;
}

void TfrmTimeReports::Preview() {
    TimeReportOptions options = ReadOptions();
    reports::PreviewReport(App(), MakeTimeReport(Kind(), db_, std::move(options)));
}

} // namespace corvane::timebilling
