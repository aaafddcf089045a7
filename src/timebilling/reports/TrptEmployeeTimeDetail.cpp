#include "timebilling/reports/TrptEmployeeTimeDetail.h"

namespace corvane::timebilling {

namespace {
constexpr double DateLeft = 20, CustomerLeft = 80, JobLeft = 200, TaskLeft = 340, HoursLeft = 470;
}

std::string TrptEmployeeTimeDetail::Statement(const TimeReportOptions& options) {
    return "SELECT T.EmployeeID, E.EmployeeName, T.WorkDate, C.CustomerName, J.JobName, "
           "T.TaskID, K.TaskName, SUM(T.Hours) TotalHours FROM TimeSht T "
           "LEFT OUTER JOIN Employee E ON T.EmployeeID = E.EmployeeID "
           "LEFT OUTER JOIN Customer C ON T.CustomerID = C.CustomerID "
           "LEFT OUTER JOIN Job J ON T.JobID = J.JobID "
           "LEFT OUTER JOIN Task K ON T.TaskID = K.TaskID" +
           TimeConditions(options) +
           " GROUP BY T.EmployeeID, E.EmployeeName, T.WorkDate, C.CustomerName, J.JobName, "
           "T.TaskID, K.TaskName"
           " ORDER BY E.EmployeeName, T.EmployeeID, T.WorkDate, C.CustomerName, J.JobName, "
           "T.TaskID NOCASE";
}

TrptEmployeeTimeDetail::TrptEmployeeTimeDetail(store::Database& db, TimeReportOptions options)
    : TimeReport(db, options, "Employee Time Detail", Statement(options)) {
    using namespace reports;
    TQRBand& columns = Columns();
    Heading(columns, "Date", DateLeft, 56);
    Heading(columns, "Customer", CustomerLeft, 116);
    Heading(columns, "Job", JobLeft, 136);
    Heading(columns, "Task", TaskLeft, 126);
    Heading(columns, "Hours", HoursLeft, HoursWidth, true);
    GroupWithTotals("EmployeeID", "EmployeeName", "TotalHours", HoursLeft);
    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    Text(detail, "WorkDate", DateLeft, 56).Mask = "dd mmm yy";
    Text(detail, "CustomerName", CustomerLeft, 116);
    Text(detail, "JobName", JobLeft, 136);
    Text(detail, "TaskName", TaskLeft, 126);
    Hours(detail, "TotalHours", HoursLeft);
}

} // namespace corvane::timebilling
