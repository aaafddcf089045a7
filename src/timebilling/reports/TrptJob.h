#pragma once

#include "reports/run/TrptBase.h"
#include "store/Query.h"

#include <cstdint>

namespace corvane::timebilling {

// One job as a page: its customer, who asked and when, due date, priority, leader and prices,
// then its tasks in their order with type, due date, done, employee, estimated hours and rate
// override. Captioned "Job: <name>".
class TrptJob : public reports::TrptBase {
public:
    TrptJob(store::Database& db, std::int64_t jobId);

    store::Query qryJob, qryTasks;

    void Open() override;

private:
    std::int64_t jobId_;
};

} // namespace corvane::timebilling
