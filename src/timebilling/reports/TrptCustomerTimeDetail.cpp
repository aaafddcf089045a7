#include "timebilling/reports/TrptCustomerTimeDetail.h"

namespace corvane::timebilling {

namespace {
constexpr double JobLeft = 20, TaskLeft = 180, EmployeeLeft = 340, HoursLeft = 470;
}

std::string TrptCustomerTimeDetail::Statement(const TimeReportOptions& options) {
    return "SELECT T.CustomerID, C.CustomerName, T.JobID, J.JobName, T.TaskID, K.TaskName, "
           "T.EmployeeID, E.EmployeeName, SUM(T.Hours) TotalHours FROM TimeSht T "
           "LEFT OUTER JOIN Customer C ON T.CustomerID = C.CustomerID "
           "LEFT OUTER JOIN Job J ON T.JobID = J.JobID "
           "LEFT OUTER JOIN Task K ON T.TaskID = K.TaskID "
           "LEFT OUTER JOIN Employee E ON T.EmployeeID = E.EmployeeID" +
           TimeConditions(options) +
           " GROUP BY T.CustomerID, C.CustomerName, T.JobID, J.JobName, T.TaskID, K.TaskName, "
           "T.EmployeeID, E.EmployeeName"
           " ORDER BY C.CustomerName, T.CustomerID, J.JobName, T.JobID, T.TaskID, T.EmployeeID "
           "NOCASE";
}

TrptCustomerTimeDetail::TrptCustomerTimeDetail(store::Database& db, TimeReportOptions options)
    : TimeReport(db, options, "Customer Time Detail", Statement(options)) {
    using namespace reports;
    TQRBand& columns = Columns();
    Heading(columns, "Job", JobLeft, 156);
    Heading(columns, "Task", TaskLeft, 156);
    Heading(columns, "Employee", EmployeeLeft, 126);
    Heading(columns, "Hours", HoursLeft, HoursWidth, true);
    GroupWithTotals("CustomerID", "CustomerName", "TotalHours", HoursLeft);
    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    Text(detail, "JobName", JobLeft, 156);
    Text(detail, "TaskName", TaskLeft, 156);
    Text(detail, "EmployeeName", EmployeeLeft, 126);
    Hours(detail, "TotalHours", HoursLeft);
}

} // namespace corvane::timebilling
