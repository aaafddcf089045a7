#pragma once

#include "ledger/AllOrNothing.h"
#include "ledger/PostingFixture.h"
#include "ledger/posting/LedgerCheck.h"
#include "ledger/posting/PostingRun.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane::testing {

// A small company with unposted vouchers, kept closed as the pattern of the crash tests' rounds.
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
        runs_.emplace(
            scratch_.Path(), folder_.Path(),
            AllOrNothing::Posting{
                [](store::Database& db) {
                    return ledger::PostingRun(db).Run([](const std::string&) { return false; });
                },
                Vouchers, "SELECT count(*) FROM JV WHERE Posted = 1",
                [](store::Database& db, const std::string& what) {
                    EXPECT_EQ(ledger::CheckLedger(db), std::vector<std::string>{}) << what;
                }});
    }

    using Outcome = AllOrNothing::Outcome;

    TempFolder scratch_;
    std::optional<AllOrNothing> runs_;
};

} // namespace corvane::testing
