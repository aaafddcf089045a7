#pragma once

#include "timebilling/reports/TimeReportOptions.h"

#include <memory>

namespace corvane::reports {
class ReportRegistry;
class TrptBase;
} // namespace corvane::reports

namespace corvane::timebilling {

// The reports of the Time Billing Reports wizard, in the order of its list.
enum class TimeReportKind {
    JobStatus,
    EmployeeSummary,
    EmployeeDetail,
    CustomerSummary,
    CustomerDetail
};
inline constexpr const char* kTimeReportNames[] = {"Job Status Report", "Employee Time Summary",
                                                   "Employee Time Detail", "Customer Time Summary",
                                                   "Customer Time Detail"};

std::unique_ptr<reports::TrptBase> MakeTimeReport(TimeReportKind kind, store::Database& db,
                                                  TimeReportOptions options);

// The five by name for the command line (JobStatusReport, EmployeeTimeSummary, ...), with the
// wizard's options as --from and --to (yyyy-mm-dd), --customer (its number) and --employee (its
// name).
void RegisterTimeReports(reports::ReportRegistry& registry);

} // namespace corvane::timebilling
