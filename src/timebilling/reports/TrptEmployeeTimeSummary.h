#pragma once

#include "timebilling/reports/TimeReport.h"

namespace corvane::timebilling {

// "Employee Time Summary": Each employee's hours by work date, with the employee's total and the
// report's.
class TrptEmployeeTimeSummary : public TimeReport {
public:
    TrptEmployeeTimeSummary(store::Database& db, TimeReportOptions options);
    static std::string Statement(const TimeReportOptions& options);
};

} // namespace corvane::timebilling
