#include "timebilling/reports/TrptCustomerTimeSummary.h"

namespace corvane::timebilling {

namespace {
constexpr double JobLeft = 20, HoursLeft = 320;
}

std::string TrptCustomerTimeSummary::Statement(const TimeReportOptions& options) {
    return "SELECT T.CustomerID, C.CustomerName, T.JobID, J.JobName, SUM(T.Hours) TotalHours "
           "FROM TimeSht T LEFT OUTER JOIN Customer C ON T.CustomerID = C.CustomerID "
           "LEFT OUTER JOIN Job J ON T.JobID = J.JobID" +
           TimeConditions(options) +
           " GROUP BY T.CustomerID, C.CustomerName, T.JobID, J.JobName"
           " ORDER BY C.CustomerName, T.CustomerID, J.JobName, T.JobID NOCASE";
}

TrptCustomerTimeSummary::TrptCustomerTimeSummary(store::Database& db, TimeReportOptions options)
    : TimeReport(db, options, "Customer Time Summary", Statement(options)) {
    using namespace reports;
    TQRBand& columns = Columns();
    Heading(columns, "Job", JobLeft, 290);
    Heading(columns, "Hours", HoursLeft, HoursWidth, true);
    GroupWithTotals("CustomerID", "CustomerName", "TotalHours", HoursLeft);
    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    Text(detail, "JobName", JobLeft, 290);
    Hours(detail, "TotalHours", HoursLeft);
}

} // namespace corvane::timebilling
