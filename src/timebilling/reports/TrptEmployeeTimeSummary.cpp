#include "timebilling/reports/TrptEmployeeTimeSummary.h"

namespace corvane::timebilling {

namespace {
constexpr double DateLeft = 20, HoursLeft = 160;
}

std::string TrptEmployeeTimeSummary::Statement(const TimeReportOptions& options) {
    return "SELECT T.EmployeeID, E.EmployeeName, T.WorkDate, SUM(T.Hours) TotalHours FROM "
           "TimeSht T LEFT OUTER JOIN Employee E ON T.EmployeeID = E.EmployeeID" +
           TimeConditions(options) +
           " GROUP BY T.EmployeeID, E.EmployeeName, T.WorkDate"
           " ORDER BY E.EmployeeName, T.EmployeeID, T.WorkDate NOCASE";
}

TrptEmployeeTimeSummary::TrptEmployeeTimeSummary(store::Database& db, TimeReportOptions options)
    : TimeReport(db, options, "Employee Time Summary", Statement(options)) {
    using namespace reports;
    TQRBand& columns = Columns();
    Heading(columns, "Date", DateLeft, 80);
    Heading(columns, "Hours", HoursLeft, HoursWidth, true);
    GroupWithTotals("EmployeeID", "EmployeeName", "TotalHours", HoursLeft);
    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    Text(detail, "WorkDate", DateLeft, 80).Mask = "dd mmm yy";
    Hours(detail, "TotalHours", HoursLeft);
}

} // namespace corvane::timebilling
