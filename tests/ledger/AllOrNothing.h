#pragma once

#include "ledger/FaultyVfs.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/sql/Connection.h"

#include "support/ChildProcess.h"
#include "support/CompanyFingerprint.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <random>
#include <string>
#include <thread>

namespace corvane::testing {

// A posting run tried on copies of a closed pattern company: each round posts a fresh copy,
// breaks the run somewhere (a killed process, a failed write or sync), and proves on a normal
// reopen that the company is exactly as before the run or exactly as after a whole one.
class AllOrNothing {
public:
    enum class Outcome { Unposted, Posted, Broken };

    struct Posting {
        // Posts every document of the company; returns how many.
        std::function<std::int64_t(store::Database&)> Run;
        // How many documents a whole run posts, and the statement that counts them posted.
        std::int64_t Documents = 0;
        std::string CountPosted;
        // The module's own checks of a reopened company; what names the round in failures.
        std::function<void(store::Database&, const std::string& what)> CheckSound;
    };

    // Keeps the company of the folder as the pattern and takes its fingerprints before and
    // after a whole run.
    AllOrNothing(const std::string& scratch, const std::string& company, Posting posting)
        : pattern_(scratch + "/pattern"), work_(scratch + "/company"),
          start_(scratch + "/start-at-once"), posting_(std::move(posting)) {
        CopyCompanyFiles(company, pattern_);
        FreshCopy();
        before_ = CompanyFingerprint(work_);
        FreshCopy();
        Post();
        after_ = CompanyFingerprint(work_);
        EXPECT_NE(before_, after_);
    }

    const std::string& Work() const { return work_; }
    // How many documents a whole run posts.
    std::int64_t Documents() const { return posting_.Documents; }

    // The work company becomes the unposted pattern again, byte for byte.
    void FreshCopy() {
        std::filesystem::remove_all(work_);
        std::filesystem::copy(pattern_, work_);
    }

    // Posts the work company; raises what the run raises.
    std::int64_t Post() {
        store::Session session;
        store::Database db(session);
        db.SetDirectory(work_);
        db.Open();
        return posting_.Run(db);
    }

    // Reopens the company the normal way (recovering what a broken run left) and checks that it
    // is sound and holds either none or all of the run.
    Outcome CheckWhole(const std::string& what) {
        store::Session session;
        store::Database db(session);
        db.SetDirectory(work_);
        try {
            db.Open();
        } catch (const std::exception& e) {
            ADD_FAILURE() << what << ": the company does not open again: " << e.what();
            return Outcome::Broken;
        }
        // A broken run's journal was rolled back by this open and is gone.
        EXPECT_FALSE(std::filesystem::exists(work_ + "/company.DAT-journal")) << what;
        {
            store::Statement s(db.Conn(), "PRAGMA main.integrity_check");
            EXPECT_TRUE(s.Step());
            EXPECT_EQ(s.ColumnNatural(0).Str(), "ok") << what;
        }
        if (posting_.CheckSound) posting_.CheckSound(db, what);
        std::int64_t posted = 0;
        {
            store::Statement s(db.Conn(), posting_.CountPosted);
            EXPECT_TRUE(s.Step()) << posting_.CountPosted;
            posted = s.ColumnInt(0);
        }
        const std::string now = CompanyFingerprint(db);
        if (now == before_ && posted == 0) return Outcome::Unposted;
        if (now == after_ && posted == posting_.Documents) return Outcome::Posted;
        ADD_FAILURE() << what << ": the company holds part of the run: " << posted << " of "
                      << posting_.Documents << " posted, the rest "
                      << (now == before_  ? "untouched"
                          : now == after_ ? "complete"
                                          : "partly written");
        return Outcome::Broken;
    }

    // A second process (runner, given the work folder and the start file) posts a fresh copy
    // and is killed at a random moment of its run, rounds times; each time the company must
    // reopen whole. The kills are spread over the longest of timings whole runs at the
    // machine's present load. CORVANE_CRASH_SEED repeats the moments of a failed seed.
    void KillAtRandomMoments(const std::string& runner, int rounds, int timings,
                             std::chrono::milliseconds runLimit) {
        using Clock = std::chrono::steady_clock;
        std::ofstream(start_).put('\n'); // each job runs as soon as it is ready
        auto startJob = [&] {
            return std::make_unique<tests::ChildProcess>(runner,
                                                         std::vector<std::string>{work_, start_});
        };
        Clock::duration longest{};
        for (int i = 0; i < timings; ++i) {
            FreshCopy();
            auto job = startJob();
            ASSERT_TRUE(job->WaitForLine("ready"));
            const auto begin = Clock::now();
            ASSERT_TRUE(job->WaitForLine("posted " + std::to_string(posting_.Documents), runLimit))
                << job->Output();
            longest = std::max(longest, Clock::now() - begin);
            job->Wait();
        }
        const auto window = std::chrono::duration_cast<std::chrono::microseconds>(longest).count();
        const unsigned seed = KillSeed();
        std::cout << "kill seed " << seed << " (CORVANE_CRASH_SEED), window " << window << " us\n";
        std::mt19937 random(seed);
        std::uniform_int_distribution<long long> delayOf(0, window);
        int done = 0, unposted = 0, posted = 0, killedMidway = 0;
        for (int round = 1; round <= rounds && !::testing::Test::HasFailure(); ++round) {
            const auto delay = std::chrono::microseconds(delayOf(random));
            const std::string what = "seed " + std::to_string(seed) + ", round " +
                                     std::to_string(round) + ", killed after " +
                                     std::to_string(delay.count()) + " us";
            ++done;
            FreshCopy();
            auto job = startJob();
            ASSERT_TRUE(job->WaitForLine("ready")) << what;
            std::this_thread::sleep_for(delay);
            job->Kill(SIGKILL);
            auto status = job->Wait();
            ASSERT_TRUE(status.has_value()) << what;
            if (!status->exited) ++killedMidway;
            const Outcome outcome = CheckWhole(what);
            unposted += outcome == Outcome::Unposted;
            posted += outcome == Outcome::Posted;
        }
        std::cout << done << " kills: " << killedMidway << " before the job ended; " << unposted
                  << " left nothing posted, " << posted << " everything\n";
        // Kills that all landed before or after the run would prove nothing.
        EXPECT_GT(unposted, 0);
        EXPECT_GT(killedMidway, 0);
    }

    // How many writes and syncs a whole run makes through the faulty layer.
    std::int64_t CallsOfARun(FaultyVfs::After after) {
        FreshCopy();
        return PostThroughFaults(0, after).Calls;
    }

    // Posts a fresh copy with its nth write or sync failed (of calls a whole run makes) and
    // checks that the run failed exactly when a call failed and left all or nothing.
    Outcome FailCall(std::int64_t n, std::int64_t calls, FaultyVfs::After after,
                     const std::string& what) {
        FreshCopy();
        const FaultRun r = PostThroughFaults(n, after);
        EXPECT_EQ(r.Fired, n <= calls) << what;
        EXPECT_EQ(r.Raised, r.Fired) << what << ": a failed write must fail the run";
        const Outcome outcome = CheckWhole(what);
        EXPECT_EQ(outcome == Outcome::Posted, !r.Raised)
            << what << ": the run's report does not match what it left";
        return outcome;
    }

private:
    struct FaultRun {
        bool Raised = false;
        bool Fired = false;
        std::int64_t Calls = 0;
    };

    // Posts the work company through the faulty layer, armed at n (0: never fails). The company
    // is closed before the layer is disarmed, so that a lost disk stays lost to the end.
    FaultRun PostThroughFaults(std::int64_t n, FaultyVfs::After after) {
        FaultyVfs& vfs = FaultyVfs::Instance();
        // Whatever escapes, the next connection of the test is a plain one.
        struct Plain {
            FaultyVfs& vfs;
            ~Plain() {
                store::Connection::SetVfsForNewConnections("");
                vfs.Disarm();
            }
        } plain{vfs};
        store::Connection::SetVfsForNewConnections(FaultyVfs::Name);
        FaultRun result;
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
                posting_.Run(db);
            } catch (const std::exception&) {
                result.Raised = true;
            }
            result.Fired = vfs.Fired();
            result.Calls = vfs.Calls();
            db.Close();
        }
        return result;
    }

    static unsigned KillSeed() {
        if (const char* fixed = std::getenv("CORVANE_CRASH_SEED"))
            return static_cast<unsigned>(std::stoul(fixed));
        return std::random_device{}();
    }

    std::string pattern_, work_, start_;
    Posting posting_;
    std::string before_, after_;
};

} // namespace corvane::testing
