#pragma once

#include "timebilling/reports/TimeReport.h"

namespace corvane::timebilling {

// "Customer Time Summary": Each customer's hours by job, with the customer's total and the
// report's.
class TrptCustomerTimeSummary : public TimeReport {
public:
    TrptCustomerTimeSummary(store::Database& db, TimeReportOptions options);
    static std::string Statement(const TimeReportOptions& options);
};

} // namespace corvane::timebilling
