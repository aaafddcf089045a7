#pragma once

#include "timebilling/reports/TimeReport.h"

namespace corvane::timebilling {

// "Job Status Report": The unfinished jobs by priority and due date: each task with its due date,
// whether it is done, the hours estimated and the hours recorded; each job with its prices.
class TrptJobStatusReport : public TimeReport {
public:
    TrptJobStatusReport(store::Database& db, TimeReportOptions options);
    static std::string Statement(const TimeReportOptions& options);
};

} // namespace corvane::timebilling
