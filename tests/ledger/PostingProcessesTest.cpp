#include "ledger/PostingFixture.h"

#include "ledger/posting/LedgerCheck.h"
#include "support/ChildProcess.h"

#include <fstream>
#include <memory>

namespace corvane::testing {
namespace {

// Two jobs post the same company at the same moment: the table locks let one run at a time,
// so every voucher is posted exactly once and the ledger still agrees with itself.
TEST_F(PostingTest, TwoJobsPostingAtOnceAreSerialisedByTheTableLocks) {
    constexpr int Vouchers = 300;
    for (int id = 1; id <= Vouchers; ++id)
        AddVoucher(id, 2018, 1 + id % 12, {{Rent, M(id)}, {Accruals, M(1), 7}, {Cash, M(-id - 1)}},
                   id % 5 == 0);
    db_.Close();

    const std::string start = folder_.Path() + "/start";
    std::vector<std::unique_ptr<tests::ChildProcess>> jobs;
    for (int i = 0; i < 2; ++i) {
        jobs.push_back(std::make_unique<tests::ChildProcess>(
            CORVANE_POSTING_RUNNER, std::vector<std::string>{folder_.Path(), start}));
        ASSERT_TRUE(jobs.back()->WaitForLine("ready"));
    }
    std::ofstream(start).put('\n');

    int total = 0;
    for (auto& job : jobs) {
        auto line = job->ReadLine(std::chrono::milliseconds(30000));
        ASSERT_TRUE(line.has_value());
        ASSERT_EQ(line->rfind("posted ", 0), 0u) << *line;
        total += std::stoi(line->substr(7));
        auto status = job->Wait();
        ASSERT_TRUE(status && status->exited);
        EXPECT_EQ(status->code, 0);
    }
    EXPECT_EQ(total, Vouchers);

    db_.Open();
    EXPECT_EQ(Count("SELECT count(*) FROM JV WHERE Posted = 1"), Vouchers);
    EXPECT_EQ(CountRows("GLHist"), 3 * Vouchers + 3 * (Vouchers / 5));
    EXPECT_EQ(ledger::CheckLedger(db_), std::vector<std::string>{});
}

} // namespace
} // namespace corvane::testing
