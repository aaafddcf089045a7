#pragma once

#include "ledger/PostingFixture.h"
#include "ledger/posting/LedgerCheck.h"
#include "ledger/posting/PostingRun.h"

#include "support/CompanyFingerprint.h"

#include <filesystem>
#include <string>
#include <vector>

namespace corvane::testing {

// A small company with unposted vouchers, kept closed as a pattern: each round of a crash test
// posts a fresh copy of it, breaks the run somewhere, and then proves on a normal reopen that
// the company is exactly as before the run or exactly as after a whole one.
class CrashSafetyTest : public PostingTest {
protected:
    static constexpr int Vouchers = 50;
    static constexpr int AutoReversingEvery = 4;

    void SetUp() override {
        PostingTest::SetUp();
        for (int id = 1; id <= Vouchers; ++id)
            AddVoucher(id, 2018, 1 + id % 12,
                       {{Rent, M(id)}, {Accruals, M(2), 7}, {Rent, M(1)}, {Cash, M(-id - 3)}},
                       id % AutoReversingEvery == 0);
        db_.Close();
        pattern_ = scratch_.Path() + "/pattern";
        work_ = scratch_.Path() + "/company";
        CopyCompanyFiles(folder_.Path(), pattern_);
        FreshCopy();
        before_ = CompanyFingerprint(work_);
        FreshCopy();
        Post(work_);
        after_ = CompanyFingerprint(work_);
        ASSERT_NE(before_, after_);
    }

    // The work company becomes the unposted pattern again, byte for byte.
    void FreshCopy() {
        std::filesystem::remove_all(work_);
        std::filesystem::copy(pattern_, work_);
    }

    // Posts every voucher of the company in the folder; raises what the run raises.
    std::int64_t Post(const std::string& folder) {
        store::Session session;
        store::Database db(session);
        db.SetDirectory(folder);
        db.Open();
        ledger::PostingRun run(db);
        return run.Run([](const std::string&) { return false; });
    }

    enum class Outcome { Unposted, Posted, Broken };

    // Reopens the company the normal way (recovering what a broken run left) and checks that it
    // is sound and holds either none or all of the run. what names the round in failures.
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
        // The killed run's journal was rolled back by this open and is gone.
        EXPECT_FALSE(std::filesystem::exists(work_ + "/company.DAT-journal")) << what;
        {
            store::Statement s(db.Conn(), "PRAGMA main.integrity_check");
            EXPECT_TRUE(s.Step());
            EXPECT_EQ(s.ColumnNatural(0).Str(), "ok") << what;
        }
        EXPECT_EQ(ledger::CheckLedger(db), std::vector<std::string>{}) << what;
        std::int64_t posted = 0;
        {
            store::Statement s(db.Conn(), "SELECT count(*) FROM JV WHERE Posted = 1");
            s.Step();
            posted = s.ColumnInt(0);
        }
        const std::string now = CompanyFingerprint(db);
        if (now == before_ && posted == 0) return Outcome::Unposted;
        if (now == after_ && posted == Vouchers) return Outcome::Posted;
        ADD_FAILURE() << what << ": the company holds part of the run: " << posted << " of "
                      << Vouchers << " vouchers posted, history and totals "
                      << (now == before_  ? "untouched"
                          : now == after_ ? "complete"
                                          : "partly written");
        return Outcome::Broken;
    }

    TempFolder scratch_;
    std::string pattern_, work_;
    std::string before_, after_;
};

} // namespace corvane::testing
