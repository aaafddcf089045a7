#pragma once

#include "timebilling/reports/TimeReport.h"

namespace corvane::timebilling {

// "Customer Time Detail": Each customer's hours by job, task and employee.
class TrptCustomerTimeDetail : public TimeReport {
public:
    TrptCustomerTimeDetail(store::Database& db, TimeReportOptions options);
    static std::string Statement(const TimeReportOptions& options);
};

} // namespace corvane::timebilling
