#include "ledger/CrashSafetyFixture.h"

#include <iostream>

namespace corvane::testing {
namespace {

// Fails the nth write or sync of the company file or its journal during one posting run, for
// every n the run makes, and proves after each that the company lost nothing and gained no
// half of the run.
void FailEveryWriteInTurn(AllOrNothing& runs, FaultyVfs::After after, const char* mode) {
    const std::int64_t calls = runs.CallsOfARun(after);
    // A run that wrote nothing would prove nothing.
    ASSERT_GT(calls, 3);
    int unposted = 0, posted = 0;
    for (std::int64_t n = 1; n <= calls + 1 && !::testing::Test::HasFailure(); ++n) {
        const std::string what = std::string(mode) + ", failing call " + std::to_string(n) +
                                 " of " + std::to_string(calls);
        const AllOrNothing::Outcome outcome = runs.FailCall(n, calls, after, what);
        posted += outcome == AllOrNothing::Outcome::Posted;
        if (outcome == AllOrNothing::Outcome::Unposted) {
            ++unposted;
            // What a failed run left must still post in full on the next try.
            EXPECT_EQ(runs.Post(), runs.Documents()) << what;
            EXPECT_EQ(runs.CheckWhole(what + ", posted again"), AllOrNothing::Outcome::Posted);
        }
    }
    std::cout << mode << ": " << calls << " writes and syncs per run; " << unposted
              << " failed runs left nothing, " << posted << " posted in full\n";
    EXPECT_GT(unposted, 0);
    EXPECT_GT(posted, 0);
}

TEST_F(CrashSafetyTest, AFailedWriteOrSyncAnywhereInARunWhileTheDiskRecovers) {
    FailEveryWriteInTurn(*runs_, FaultyVfs::After::Recover, "disk recovers");
}

TEST_F(CrashSafetyTest, AFailedWriteOrSyncAnywhereInARunWhenTheDiskIsLost) {
    FailEveryWriteInTurn(*runs_, FaultyVfs::After::StayFailed, "disk lost");
}

} // namespace
} // namespace corvane::testing
