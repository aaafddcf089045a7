#include "ledger/CrashSafetyFixture.h"

#include <chrono>

namespace corvane::testing {
namespace {

// A second process posts a copy of the company and is killed at a random moment of its run;
// each time the company reopens sound, with all of the run or none of it.
TEST_F(CrashSafetyTest, APostingJobKilledAtAnyMomentLeavesAllOrNothing) {
    runs_->KillAtRandomMoments(CORVANE_POSTING_RUNNER, 100, 3, std::chrono::milliseconds(30000));
}

} // namespace
} // namespace corvane::testing
