#include "timebilling/reports/TrptTimeSheets.h"

namespace corvane::timebilling {

TrptTimeSheets::TrptTimeSheets(store::Database& db)
    : MasterListReport(db, "TimeSht", "Time Sheets", "WorkDateIDDESC",
                       {{"WorkDate", "Date", 56},
                        {"Hours", "Hours", 40, "#,##0.00"},
                        {"EmployeeName", "Employee", 90},
                        {"CustomerName", "Customer", 100},
                        {"JobName", "Job", 110},
                        {"TaskName", "Task", 90},
                        {"InvoiceNo", "Invoice no.", 54}}),
      tblEmployee(db, "Employee"), tblCustomer(db, "Customer"), tblJob(db, "Job"),
      tblTask(db, "Task") {
    for (store::Table* t : {&tblEmployee, &tblCustomer, &tblJob, &tblTask})
        t->Open();
    Rows.AddLookupField("EmployeeName", store::FieldType::String, 30, "EmployeeID", tblEmployee,
                        "EmployeeID", "EmployeeName");
    Rows.AddLookupField("CustomerName", store::FieldType::String, 40, "CustomerID", tblCustomer,
                        "CustomerID", "CustomerName");
    Rows.AddLookupField("JobName", store::FieldType::String, 80, "JobID", tblJob, "JobID",
                        "JobName");
    Rows.AddLookupField("TaskName", store::FieldType::String, 100, "TaskID", tblTask, "TaskID",
                        "TaskName");
}

} // namespace corvane::timebilling
