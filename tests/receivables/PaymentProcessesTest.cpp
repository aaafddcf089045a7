#include "receivables/PaymentFixture.h"
#include "support/ChildProcess.h"

#include <fstream>
#include <set>
#include <sstream>

namespace corvane::testing {
namespace {

// Two workstations starting payments at the same moment never draw the same id, and the control
// row ends past all of them.
TEST_F(PaymentTest, TwoWorkstationsDrawingPaymentIdsAtOnceNeverShareOne) {
    constexpr int Each = 100;
    const std::string start = folder_.Path() + "/start";
    std::vector<std::unique_ptr<tests::ChildProcess>> jobs;
    for (int i = 0; i < 2; ++i) {
        jobs.push_back(std::make_unique<tests::ChildProcess>(
            CORVANE_PAYMENT_DRAWER,
            std::vector<std::string>{folder_.Path(), start, std::to_string(Each)}));
        ASSERT_TRUE(jobs.back()->WaitForLine("ready"));
    }
    std::ofstream(start).put('\n');
    std::set<std::string> ids;
    for (auto& job : jobs) {
        ASSERT_TRUE(job->WaitForLine("done", std::chrono::milliseconds(60000))) << job->Output();
        std::stringstream lines(job->Output());
        for (std::string id; lines >> id;) {
            if (id == "ready" || id == "done") continue;
            EXPECT_TRUE(ids.insert(id).second) << "id " << id << " drawn twice";
        }
    }
    EXPECT_EQ(ids.size(), 2u * Each);
    EXPECT_EQ(Count("SELECT NextPaymentID FROM ARPmtCtl"), 2 * Each + 1);
}

} // namespace
} // namespace corvane::testing
