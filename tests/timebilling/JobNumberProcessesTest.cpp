#include "support/ChildProcess.h"
#include "timebilling/TimeBillingFixture.h"

#include <fstream>
#include <memory>
#include <set>
#include <sstream>

namespace corvane::testing {
namespace {

// Two workstations starting jobs and tasks at the same moment never draw the same job or task
// number, none is lost, and JobCtl ends past all of them.
TEST_F(TimeBillingTest, TwoWorkstationsDrawingJobAndTaskNumbersAtOnceNeverShareOne) {
    constexpr int Each = 150;
    InsertRow("JobCtl", {{"NextJobID", 0}, {"NextTaskID", 40}});
    const std::string start = folder_.Path() + "/start";
    std::vector<std::unique_ptr<tests::ChildProcess>> jobs;
    for (int i = 0; i < 2; ++i) {
        jobs.push_back(std::make_unique<tests::ChildProcess>(
            CORVANE_JOB_NUMBER_DRAWER,
            std::vector<std::string>{folder_.Path(), start, std::to_string(Each)}));
        ASSERT_TRUE(jobs.back()->WaitForLine("ready"));
    }
    std::ofstream(start).put('\n');
    std::set<long long> jobIds, taskIds;
    for (auto& job : jobs) {
        ASSERT_TRUE(job->WaitForLine("done", std::chrono::milliseconds(60000))) << job->Output();
        std::stringstream lines(job->Output());
        for (std::string word; lines >> word;) {
            if (word == "ready" || word == "done") continue;
            long long task = 0;
            lines >> task;
            EXPECT_TRUE(jobIds.insert(std::stoll(word)).second) << "job " << word << " twice";
            EXPECT_TRUE(taskIds.insert(task).second) << "task " << task << " twice";
        }
    }
    ASSERT_EQ(jobIds.size(), 2u * Each);
    ASSERT_EQ(taskIds.size(), 2u * Each);
    // A counter of 0 starts at 1; no number is skipped.
    EXPECT_EQ(*jobIds.begin(), 1);
    EXPECT_EQ(*jobIds.rbegin(), 2 * Each);
    EXPECT_EQ(*taskIds.begin(), 40);
    EXPECT_EQ(*taskIds.rbegin(), 40 + 2 * Each - 1);
    EXPECT_EQ(Scalar("SELECT NextJobID FROM JobCtl"), std::to_string(2 * Each + 1));
    EXPECT_EQ(Scalar("SELECT NextTaskID FROM JobCtl"), std::to_string(40 + 2 * Each));
}

} // namespace
} // namespace corvane::testing
