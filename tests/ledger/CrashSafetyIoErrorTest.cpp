#include "ledger/CrashSafetyFixture.h"
#include "ledger/FaultyVfs.h"

#include <exception>
#include <iostream>

namespace corvane::testing {
namespace {

// Fails the nth write or sync of the company file or its journal during one posting run, for
// every n the run makes, and proves after each that the company lost nothing and gained no
// half of the run.
class CrashSafetyIoErrorTest : public CrashSafetyTest {
protected:
    void TearDown() override {
        FaultyVfs::Instance().Disarm();
        store::Connection::SetVfsForNewConnections("");
        CrashSafetyTest::TearDown();
    }

    struct RunResult {
        bool Raised = false;
        bool Fired = false;
        std::int64_t Calls = 0;
    };

    // Posts the work company through the faulty layer, armed at n (0: never fails). The company
    // is closed before the layer is disarmed, so that a lost disk stays lost to the end.
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
                ledger::PostingRun run(db);
                run.Run([](const std::string&) { return false; });
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

    void FailEveryWriteInTurn(FaultyVfs::After after, const char* mode) {
        FreshCopy();
        const std::int64_t calls = PostThroughFaults(0, after).Calls;
        // A run that wrote nothing would prove nothing.
        ASSERT_GT(calls, 3);
        int unposted = 0, posted = 0;
        for (std::int64_t n = 1; n <= calls + 1 && !HasFailure(); ++n) {
            const std::string what = std::string(mode) + ", failing call " + std::to_string(n) +
                                     " of " + std::to_string(calls);
            FreshCopy();
            const RunResult r = PostThroughFaults(n, after);
            EXPECT_EQ(r.Fired, n <= calls) << what;
            EXPECT_EQ(r.Raised, r.Fired) << what << ": a failed write must fail the run";
            const Outcome outcome = CheckWhole(what);
            if (outcome == Outcome::Posted) ++posted;
            if (outcome == Outcome::Unposted) ++unposted;
            EXPECT_EQ(outcome == Outcome::Posted, !r.Raised)
                << what << ": the run's report does not match what it left";
            if (outcome == Outcome::Unposted) {
                // What a failed run left must still post in full on the next try.
                EXPECT_EQ(Post(work_), Vouchers) << what;
                EXPECT_EQ(CheckWhole(what + ", posted again"), Outcome::Posted);
            }
        }
        std::cout << mode << ": " << calls << " writes and syncs per run; " << unposted
                  << " failed runs left nothing, " << posted << " posted in full\n";
        EXPECT_GT(unposted, 0);
        EXPECT_GT(posted, 0);
    }
};

TEST_F(CrashSafetyIoErrorTest, AFailedWriteOrSyncAnywhereInARunWhileTheDiskRecovers) {
    FailEveryWriteInTurn(FaultyVfs::After::Recover, "disk recovers");
}

TEST_F(CrashSafetyIoErrorTest, AFailedWriteOrSyncAnywhereInARunWhenTheDiskIsLost) {
    FailEveryWriteInTurn(FaultyVfs::After::StayFailed, "disk lost");
}

} // namespace
} // namespace corvane::testing
