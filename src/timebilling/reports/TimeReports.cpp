#include "timebilling/reports/TimeReports.h"

#include "timebilling/reports/TrptCustomerTimeDetail.h"
#include "timebilling/reports/TrptCustomerTimeSummary.h"
#include "timebilling/reports/TrptEmployeeTimeDetail.h"
#include "timebilling/reports/TrptEmployeeTimeSummary.h"
#include "timebilling/reports/TrptJobStatusReport.h"

namespace corvane::timebilling {

std::unique_ptr<reports::TrptBase> MakeTimeReport(TimeReportKind kind, store::Database& db,
                                                  TimeReportOptions options) {
    switch (kind) {
    case TimeReportKind::JobStatus:
        return std::make_unique<TrptJobStatusReport>(db, std::move(options));
    case TimeReportKind::EmployeeSummary:
        return std::make_unique<TrptEmployeeTimeSummary>(db, std::move(options));
    case TimeReportKind::EmployeeDetail:
        return std::make_unique<TrptEmployeeTimeDetail>(db, std::move(options));
    case TimeReportKind::CustomerSummary:
        return std::make_unique<TrptCustomerTimeSummary>(db, std::move(options));
    case TimeReportKind::CustomerDetail:
        return std::make_unique<TrptCustomerTimeDetail>(db, std::move(options));
    }
    return nullptr;
}

} // namespace corvane::timebilling
