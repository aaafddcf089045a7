#pragma once

#include "timebilling/reports/TimeReport.h"

namespace corvane::timebilling {

// "Employee Time Detail": Each employee's hours by date, customer, job and task.
class TrptEmployeeTimeDetail : public TimeReport {
public:
    TrptEmployeeTimeDetail(store::Database& db, TimeReportOptions options);
    static std::string Statement(const TimeReportOptions& options);
};

} // namespace corvane::timebilling
