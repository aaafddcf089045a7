#include "receivables/PaymentFixture.h"
#include "receivables/posting/ReceivablesCheck.h"
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

// Two jobs posting the same thousand payments at once take turns: each payment settles its
// invoice once, and the balances and vouchers are what one whole run makes.
TEST_F(PaymentTest, TwoJobsPostingTheSamePaymentsAtOnceTakeTurns) {
    constexpr int Payments = 1000;
    db_.StartTransaction({"ARInv", "ARPmt", "ARInvPmt", "CBalance", "JV", "JVDet"});
    for (int id = 1; id <= Payments; ++id) {
        const int customer = id % 3 == 0 ? Abroad : Local;
        AddPosted(id, customer, C(10000 + id));
        AddPayment(id, customer, C(6000), "R" + std::to_string(id));
        AddLine(id, id, 1, C(6000), {}, id % 2 ? C(100) : Money());
    }
    db_.Commit();
    const Money before = Balance(Local) + Balance(Abroad);
    db_.Close();
    const std::string start = folder_.Path() + "/start";
    std::vector<std::unique_ptr<tests::ChildProcess>> jobs;
    for (int i = 0; i < 2; ++i) {
        jobs.push_back(std::make_unique<tests::ChildProcess>(
            CORVANE_PAYMENT_POSTING_RUNNER, std::vector<std::string>{folder_.Path(), start}));
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
    db_.Open();
    EXPECT_EQ(Count("SELECT count(*) FROM ARPmt WHERE Posted = 1"), Payments);
    EXPECT_EQ(Count("SELECT count(*) FROM JV WHERE TransType = 'Pmt'"), Payments);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv WHERE PaidAmount <> 600000"), 0);
    // 60.00 from each, and 1.00 written off every other one.
    EXPECT_EQ(Balance(Local) + Balance(Abroad),
              before - C(6000) * Payments - C(100) * (Payments / 2));
    EXPECT_EQ(receivables::CheckReceivables(db_), std::vector<std::string>{});
}

} // namespace
} // namespace corvane::testing
