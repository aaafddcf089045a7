#include "timebilling/forms/TfrmJobsFilter.h"

#include "shell/patterns/ListForm.h"
#include "ui/Layout.h"

namespace corvane::timebilling {

TfrmJobsFilter::TfrmJobsFilter(ui::Application& app, shell::ListForm& list)
    : FilterForm(app, "frmJobsFilter", list), tblCustomer(list.Db(), "Customer"),
      tblEmployee(list.Db(), "Employee"),
      cboCustomer(*this, "cboCustomer", tblCustomer, "CustomerID", "CustomerName"),
      cboProjectLeader(*this, "cboProjectLeader", tblEmployee, "EmployeeID", "EmployeeName") {
    using namespace ui;
    tblCustomer.SetIndexName("CustomerName1");
    tblEmployee.SetIndexName("EmployeeName1");
    tblCustomer.Open();
    tblEmployee.Open();
    SetLayout(Column{
        FormRow{"Customer", cboCustomer},
        FormRow{"Project Leader", cboProjectLeader},
        rgpAuthorized,
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    AddLookupCriterion(cboCustomer, "CustomerID");
    AddLookupCriterion(cboProjectLeader, "ProjectLeaderID");
    AddYesNoCriterion(rgpAuthorized, "Authorized", 0, 1, 2);
}

} // namespace corvane::timebilling
