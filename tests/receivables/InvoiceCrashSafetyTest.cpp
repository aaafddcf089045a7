#include "ledger/FaultyVfs.h"
#include "receivables/InvoiceCrashFixture.h"
#include "support/ChildProcess.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>
#include <set>
#include <thread>

namespace corvane::testing {
namespace {

using Clock = std::chrono::steady_clock;

class InvoiceIoErrorTest : public InvoiceCrashTest {
protected:
    void TearDown() override {
        FaultyVfs::Instance().Disarm();
        store::Connection::SetVfsForNewConnections("");
        InvoiceCrashTest::TearDown();
    }

    struct RunResult {
        bool Raised = false;
        bool Fired = false;
        std::int64_t Calls = 0;
    };

    // Posts the work company through the faulty layer, armed at n (0: never fails).
    RunResult PostThroughFaults(std::int64_t n, FaultyVfs::After after) {
        FaultyVfs& vfs = FaultyVfs::Instance();
        store::Connection::SetVfsForNewConnections(FaultyVfs::Name);
        RunResult result;
        {
            store::Session session;
            store::Database db(session);
            db.SetDirectory(work_);
            db.Open();
            store::Connection::SetVfsForNewConnections("");
            if (n == 0)
                vfs.Disarm();
            else
                vfs.Arm(n, after);
            try {
                receivables::InvoicePostingRun(db).Run([](const std::string&) { return false; });
            } catch (const std::exception&) {
                result.Raised = true;
            }
            result.Fired = vfs.Fired();
            result.Calls = vfs.Calls();
            db.Close();
        }
        vfs.Disarm();
        return result;
    }

    // The run of a thousand invoices makes hundreds of writes; the first and last few, and a
    // spread between them, are failed in turn, each on a fresh copy.
    void FailWritesAcrossTheRun(FaultyVfs::After after, const char* mode) {
        FreshCopy();
        const std::int64_t calls = PostThroughFaults(0, after).Calls;
        ASSERT_GT(calls, 10);
        std::set<std::int64_t> points{1, 2, 3, calls - 2, calls - 1, calls, calls + 1};
        for (int i = 1; i <= 24; ++i)
            points.insert(calls * i / 25);
        int unposted = 0, posted = 0;
        for (std::int64_t n : points) {
            if (HasFailure()) break;
            const std::string what = std::string(mode) + ", failing call " + std::to_string(n) +
                                     " of " + std::to_string(calls);
            FreshCopy();
            const RunResult r = PostThroughFaults(n, after);
            EXPECT_EQ(r.Fired, n <= calls) << what;
            EXPECT_EQ(r.Raised, r.Fired) << what << ": a failed write must fail the run";
            const Outcome outcome = CheckWhole(what);
            if (outcome == Outcome::Posted) ++posted;
            if (outcome == Outcome::Unposted) ++unposted;
            EXPECT_EQ(outcome == Outcome::Posted, !r.Raised) << what;
        }
        // What a failed run left posts in full on the next try.
        FreshCopy();
        PostThroughFaults(calls / 2, after);
        EXPECT_EQ(Post(work_), Invoices);
        EXPECT_EQ(CheckWhole(std::string(mode) + ", posted again"), Outcome::Posted);
        std::cout << mode << ": " << calls << " writes and syncs per run; " << unposted
                  << " failed runs left nothing, " << posted << " posted in full\n";
        EXPECT_GT(unposted, 0);
        EXPECT_GT(posted, 0);
    }
};

TEST_F(InvoiceIoErrorTest, AFailedWriteHalfWayThroughAThousandInvoicesLeavesEverythingAsBefore) {
    FailWritesAcrossTheRun(FaultyVfs::After::Recover, "disk recovers");
}

TEST_F(InvoiceIoErrorTest, AFailedWriteWhenTheDiskIsLostLeavesEverythingAsBefore) {
    FailWritesAcrossTheRun(FaultyVfs::After::StayFailed, "disk lost");
}

unsigned KillSeed() {
    if (const char* fixed = std::getenv("CORVANE_CRASH_SEED"))
        return static_cast<unsigned>(std::stoul(fixed));
    return std::random_device{}();
}

// A second process posts a copy of the thousand invoices and is killed at a random moment of
// its run; each time the company reopens sound, with all of the run or none of it.
TEST_F(InvoiceCrashTest, AnInvoicePostingJobKilledAtAnyMomentLeavesAllOrNothing) {
    constexpr int Rounds = 30;
    const std::string start = scratch_.Path() + "/start";
    std::ofstream(start).put('\n');
    auto startJob = [&] {
        return std::make_unique<tests::ChildProcess>(CORVANE_INVOICE_POSTING_RUNNER,
                                                     std::vector<std::string>{work_, start});
    };
    Clock::duration longest{};
    for (int i = 0; i < 2; ++i) {
        FreshCopy();
        auto job = startJob();
        ASSERT_TRUE(job->WaitForLine("ready"));
        const auto begin = Clock::now();
        ASSERT_TRUE(job->WaitForLine("posted " + std::to_string(Invoices),
                                     std::chrono::milliseconds(60000)))
            << job->Output();
        longest = std::max(longest, Clock::now() - begin);
        job->Wait();
    }
    const auto window = std::chrono::duration_cast<std::chrono::microseconds>(longest).count();
    const unsigned seed = KillSeed();
    std::cout << "kill seed " << seed << " (CORVANE_CRASH_SEED), window " << window << " us\n";
    std::mt19937 random(seed);
    std::uniform_int_distribution<long long> delayOf(0, window);
    int unposted = 0, posted = 0, killedMidway = 0;
    for (int round = 1; round <= Rounds && !HasFailure(); ++round) {
        const auto delay = std::chrono::microseconds(delayOf(random));
        const std::string what = "seed " + std::to_string(seed) + ", round " +
                                 std::to_string(round) + ", killed after " +
                                 std::to_string(delay.count()) + " us";
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
    std::cout << Rounds << " kills: " << killedMidway << " before the job ended; " << unposted
              << " left nothing posted, " << posted << " everything\n";
    EXPECT_GT(unposted, 0);
    EXPECT_GT(killedMidway, 0);
}

} // namespace
} // namespace corvane::testing
