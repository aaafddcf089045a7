#pragma once

#include "banking/reports/MasterListReport.h"

namespace corvane::timebilling {

// The jobs as their list shows them, in its order and under its filter: priority, due date,
// customer, job, whether it may proceed and whether it is done.
class TrptJobs : public banking::MasterListReport {
public:
    explicit TrptJobs(store::Database& db);

    store::Table tblCustomer;
};

} // namespace corvane::timebilling
