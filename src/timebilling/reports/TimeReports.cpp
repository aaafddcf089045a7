#include "timebilling/reports/TimeReports.h"

#include "reports/run/ReportRegistry.h"
#include "reports/run/TrptBase.h"

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

void RegisterTimeReports(reports::ReportRegistry& registry) {
    struct Entry {
        const char* Name;
        TimeReportKind Kind;
        const char* Description;
    };
    static constexpr Entry entries[] = {
        {"JobStatusReport", TimeReportKind::JobStatus,
         "Unfinished jobs with each task's estimate and the hours recorded"},
        {"EmployeeTimeSummary", TimeReportKind::EmployeeSummary, "Hours of each employee by day"},
        {"EmployeeTimeDetail", TimeReportKind::EmployeeDetail,
         "Hours of each employee by day, customer, job and task"},
        {"CustomerTimeSummary", TimeReportKind::CustomerSummary, "Hours of each customer by job"},
        {"CustomerTimeDetail", TimeReportKind::CustomerDetail,
         "Hours of each customer by job, task and employee"},
    };
    for (const Entry& entry : entries)
        registry.Register(
            entry.Name, std::string(entry.Description) + " (--from, --to, --customer, --employee)",
            [kind = entry.Kind](store::Database& db, const reports::ReportRequest& request) {
                TimeReportOptions options;
                options.DateFrom = request.DateOption("from");
                options.DateTo = request.DateOption("to");
                options.CustomerID = request.KeyOption(
                    db, "customer", "SELECT CustomerID FROM Customer WHERE CustomerNo = :No",
                    "customer");
                options.EmployeeID = request.KeyOption(
                    db, "employee",
                    "SELECT EmployeeID FROM Employee WHERE UPPER(EmployeeName) = UPPER(:No)",
                    "employee");
                return MakeTimeReport(kind, db, std::move(options));
            });
}

} // namespace corvane::timebilling
