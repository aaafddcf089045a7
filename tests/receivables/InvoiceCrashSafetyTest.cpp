#include "receivables/InvoiceCrashFixture.h"

#include <chrono>
#include <iostream>
#include <set>

namespace corvane::testing {
namespace {

// The run of a thousand invoices makes hundreds of writes; the first and last few, and a spread
// between them, are failed in turn, each on a fresh copy.
void FailWritesAcrossTheRun(AllOrNothing& runs, FaultyVfs::After after, const char* mode) {
    const std::int64_t calls = runs.CallsOfARun(after);
    ASSERT_GT(calls, 10);
    std::set<std::int64_t> points{1, 2, 3, calls - 2, calls - 1, calls, calls + 1};
    for (int i = 1; i <= 24; ++i)
        points.insert(calls * i / 25);
    int unposted = 0, posted = 0;
    for (std::int64_t n : points) {
        if (::testing::Test::HasFailure()) break;
        const std::string what = std::string(mode) + ", failing call " + std::to_string(n) +
                                 " of " + std::to_string(calls);
        const AllOrNothing::Outcome outcome = runs.FailCall(n, calls, after, what);
        posted += outcome == AllOrNothing::Outcome::Posted;
        unposted += outcome == AllOrNothing::Outcome::Unposted;
    }
    // What a failed run left posts in full on the next try.
    runs.FailCall(calls / 2, calls, after, std::string(mode) + ", failing half-way");
    EXPECT_EQ(runs.Post(), runs.Documents());
    EXPECT_EQ(runs.CheckWhole(std::string(mode) + ", posted again"), AllOrNothing::Outcome::Posted);
    std::cout << mode << ": " << calls << " writes and syncs per run; " << unposted
              << " failed runs left nothing, " << posted << " posted in full\n";
    EXPECT_GT(unposted, 0);
    EXPECT_GT(posted, 0);
}

TEST_F(InvoiceCrashTest, AFailedWriteHalfWayThroughAThousandInvoicesLeavesEverythingAsBefore) {
    FailWritesAcrossTheRun(*runs_, FaultyVfs::After::Recover, "disk recovers");
}

TEST_F(InvoiceCrashTest, AFailedWriteWhenTheDiskIsLostLeavesEverythingAsBefore) {
    FailWritesAcrossTheRun(*runs_, FaultyVfs::After::StayFailed, "disk lost");
}

// A second process posts a copy of the thousand invoices and is killed at a random moment of
// its run; each time the company reopens sound, with all of the run or none of it.
TEST_F(InvoiceCrashTest, AnInvoicePostingJobKilledAtAnyMomentLeavesAllOrNothing) {
    runs_->KillAtRandomMoments(CORVANE_INVOICE_POSTING_RUNNER, 30, 2,
                               std::chrono::milliseconds(60000));
}

} // namespace
} // namespace corvane::testing
