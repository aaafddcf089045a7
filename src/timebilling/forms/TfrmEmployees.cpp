#include "timebilling/forms/TfrmEmployees.h"

#include "core/Exception.h"
#include "timebilling/domain/TimeTexts.h"
#include "timebilling/forms/TfrmEmployee.h"
#include "ui/Application.h"

namespace corvane::timebilling {

TfrmEmployees::TfrmEmployees(ui::Application& app, store::Database& db)
    : ListForm(app, "frmEmployees", "Employees", db, "Employee", "tblEmployee", "EmployeeID"),
      mnuSortEmployeeName(
          AddSortEntry("mnuSortEmployeeName", "&Name", "EmployeeName", "EmployeeName1")) {
    grdList.AddColumn("EmployeeName", "Name", 180);
    grdList.AddColumn("JobTitle", "Job Title", 160);
    grdList.AddColumn("BusinessPhone", "Phone", 110);
    grdList.AddColumn("EMail", "E-Mail", 180);
    mnuFilter.Visible = false;
    tblEmployee.BeforeDelete = [this](store::DataSet& ds) {
        if (App().MessageDlg(time_text::DeleteQuestion(ds.FieldByName("EmployeeName").AsString()),
                             ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) != ui::mbYes)
            Abort();
    };
    mnuSortEmployeeName.Click();
}

shell::EntryForm& TfrmEmployees::Entry() {
    return App().SingleForm<TfrmEmployee>(Db());
}

} // namespace corvane::timebilling
