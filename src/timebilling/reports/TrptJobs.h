#pragma once

#include "reports/run/TrptBase.h"
#include "store/Query.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::timebilling {

// What the jobs list narrows to when it prints: the outstanding view, the filter dialog's
// criteria and the sort in force.
struct JobsReportOptions {
    bool Outstanding = false;
    std::optional<std::int64_t> ProjectLeaderID, CustomerID;
    // Jobs of this priority or higher (a smaller number) only.
    std::optional<int> LowestPriority;
    std::optional<bool> Authorized;
    bool ByDueDate = false;
};

// The jobs report's statement: the jobs with their customer's name, the conditions in force with
// their values as parameters (:ProjectLeaderID, :CustomerID, :LowestPriority), in the order of
// the list's sort.
std::string JobsStatement(const JobsReportOptions& options);

// The heading's notes, one for each condition: "     Project Leader: <name>", "     Customer:
// <name>", "     Min Priority: <n>", "     OK to Proceed: Yes" (or "No").
std::vector<std::string> JobsHeadingNotes(store::Database& db, const JobsReportOptions& options);

// The jobs as their list narrows and orders them: priority, due date, customer, job, whether it
// may proceed and whether it is done.
class TrptJobs : public reports::TrptBase {
public:
    TrptJobs(store::Database& db, JobsReportOptions options);

    store::Query qryJobs;

    void Open() override;

private:
    JobsReportOptions options_;
};

} // namespace corvane::timebilling
