#include "receivables/InvoiceCrashFixture.h"
#include "support/ChildProcess.h"

#include <fstream>
#include <set>
#include <sstream>

namespace corvane::testing {
namespace {

// Two workstations drawing invoice numbers at the same moment never draw the same one, and the
// control row ends past all of them.
TEST_F(InvoiceTest, TwoWorkstationsDrawingInvoiceNumbersAtOnceNeverShareOne) {
    constexpr int Each = 100;
    InsertRow("ARInvCtl", {{"NextInvoiceID", 1}, {"NextInvoiceNo", 1}});
    const std::string start = folder_.Path() + "/start";
    std::vector<std::unique_ptr<tests::ChildProcess>> jobs;
    for (int i = 0; i < 2; ++i) {
        jobs.push_back(std::make_unique<tests::ChildProcess>(
            CORVANE_INVOICE_NUMBER_DRAWER,
            std::vector<std::string>{folder_.Path(), start, std::to_string(Each)}));
        ASSERT_TRUE(jobs.back()->WaitForLine("ready"));
    }
    std::ofstream(start).put('\n');
    std::set<std::string> ids, numbers;
    for (auto& job : jobs) {
        ASSERT_TRUE(job->WaitForLine("done", std::chrono::milliseconds(60000))) << job->Output();
        std::stringstream lines(job->Output());
        for (std::string id, number; lines >> id;) {
            if (id == "ready" || id == "done") continue;
            lines >> number;
            EXPECT_TRUE(ids.insert(id).second) << "id " << id << " drawn twice";
            EXPECT_TRUE(numbers.insert(number).second) << "number " << number << " drawn twice";
        }
    }
    EXPECT_EQ(ids.size(), 2u * Each);
    EXPECT_EQ(Count("SELECT NextInvoiceNo FROM ARInvCtl"), 2 * Each + 1);
}

// Two jobs posting the same thousand invoices at once take turns: every invoice is posted once,
// and the company is exactly what one whole run makes.
TEST_F(InvoiceCrashTest, TwoJobsPostingTheSameInvoicesAtOnceTakeTurns) {
    runs_->FreshCopy();
    const std::string start = scratch_.Path() + "/start";
    std::vector<std::unique_ptr<tests::ChildProcess>> jobs;
    for (int i = 0; i < 2; ++i) {
        jobs.push_back(std::make_unique<tests::ChildProcess>(
            CORVANE_INVOICE_POSTING_RUNNER, std::vector<std::string>{runs_->Work(), start}));
        ASSERT_TRUE(jobs.back()->WaitForLine("ready"));
    }
    std::ofstream(start).put('\n');
    std::multiset<std::string> results;
    for (auto& job : jobs) {
        auto line = job->ReadLine(std::chrono::milliseconds(60000));
        ASSERT_TRUE(line) << job->Output();
        results.insert(*line);
    }
    EXPECT_EQ(results, (std::multiset<std::string>{"posted 0", "posted 1000"}));
    EXPECT_EQ(runs_->CheckWhole("two jobs"), Outcome::Posted);
}

} // namespace
} // namespace corvane::testing
