#include "ledger/CrashSafetyFixture.h"
#include "support/ChildProcess.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>
#include <thread>

namespace corvane::testing {
namespace {

using Clock = std::chrono::steady_clock;

// Set CORVANE_CRASH_SEED to the seed a failure printed to kill at the same moments again.
unsigned KillSeed() {
    if (const char* fixed = std::getenv("CORVANE_CRASH_SEED"))
        return static_cast<unsigned>(std::stoul(fixed));
    return std::random_device{}();
}

// A second process posts a copy of the company and is killed at a random moment of its run;
// each time the company reopens sound, with all of the run or none of it.
TEST_F(CrashSafetyTest, APostingJobKilledAtAnyMomentLeavesAllOrNothing) {
    constexpr int Rounds = 100;
    const std::string start = scratch_.Path() + "/start";
    std::ofstream(start).put('\n');
    auto startJob = [&] {
        return std::make_unique<tests::ChildProcess>(CORVANE_POSTING_RUNNER,
                                                     std::vector<std::string>{work_, start});
    };

    // How long a whole run takes from the moment the company is open, at the machine's
    // present load: the kills are spread over that.
    Clock::duration longest{};
    for (int i = 0; i < 3; ++i) {
        FreshCopy();
        auto job = startJob();
        ASSERT_TRUE(job->WaitForLine("ready"));
        const auto begin = Clock::now();
        ASSERT_TRUE(job->WaitForLine("posted " + std::to_string(Vouchers),
                                     std::chrono::milliseconds(30000)))
            << job->Output();
        longest = std::max(longest, Clock::now() - begin);
        job->Wait();
    }
    const auto window = std::chrono::duration_cast<std::chrono::microseconds>(longest).count();

    const unsigned seed = KillSeed();
    std::cout << "kill seed " << seed << " (CORVANE_CRASH_SEED), window " << window << " us\n";
    std::mt19937 random(seed);
    std::uniform_int_distribution<long long> delayOf(0, window);
    int rounds = 0, unposted = 0, posted = 0, killedMidway = 0;
    for (int round = 1; round <= Rounds && !HasFailure(); ++round) {
        const auto delay = std::chrono::microseconds(delayOf(random));
        const std::string what = "seed " + std::to_string(seed) + ", round " +
                                 std::to_string(round) + ", killed after " +
                                 std::to_string(delay.count()) + " us";
        ++rounds;
        FreshCopy();
        auto job = startJob();
        ASSERT_TRUE(job->WaitForLine("ready")) << what;
        std::this_thread::sleep_for(delay);
        job->Kill(SIGKILL);
        auto status = job->Wait();
        ASSERT_TRUE(status.has_value()) << what;
        if (!status->exited) ++killedMidway;
        switch (CheckWhole(what)) {
        case Outcome::Unposted:
            ++unposted;
            break;
        case Outcome::Posted:
            ++posted;
            break;
        case Outcome::Broken:
            break;
        }
    }
    std::cout << rounds << " kills: " << killedMidway << " before the job ended; " << unposted
              << " left nothing posted, " << posted << " everything\n";
    // Kills that all landed before or after the run would prove nothing.
    EXPECT_GT(unposted, 0);
    EXPECT_GT(killedMidway, 0);
}

} // namespace
} // namespace corvane::testing
