#include "ledger/PostingFixture.h"

#include "ledger/posting/LedgerCheck.h"
#include "ledger/posting/LedgerExport.h"
#include "ledger/posting/PostingRun.h"

#include <sstream>

namespace corvane::testing {
namespace {

class LedgerCheckTest : public PostingTest {
protected:
    void Post() { ledger::PostingRun(db_).Run({}); }
};

TEST_F(LedgerCheckTest, PostedLedgerAgreesWithItself) {
    AddVoucher(1, 2017, 12, {{Rent, M(100)}, {Accruals, M(-100), 7}}, true);
    AddVoucher(2, 2018, 1, {{Rent, M(3)}, {Rent, M(4)}, {Cash, M(-7)}});
    Post();
    // Unposted vouchers are not the ledger's yet, balanced or not.
    AddVoucher(4, 2018, 1, {{Rent, M(3)}});
    EXPECT_EQ(ledger::CheckLedger(db_), std::vector<std::string>{});
}

TEST_F(LedgerCheckTest, TotalsThatDifferFromTheHistoryAreNamed) {
    AddVoucher(1, 2018, 2, {{Rent, M(10)}, {Cash, M(-10)}});
    Post();
    db_.Conn().Exec("UPDATE GLActual SET Amount2 = Amount2 + 1 WHERE GLAccountID = 3");
    db_.Conn().Exec("DELETE FROM GLHist WHERE GLAccountID = 1");
    const auto lines = ledger::CheckLedger(db_);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], "account 1 (-/-/-) 2/2018: totals 10.0000, history 0.0000, difference "
                        "10.0000");
    EXPECT_EQ(lines[1], "account 3 (-/-/-) 2/2018: totals -9.9999, history -10.0000, "
                        "difference 0.0001");
}

TEST_F(LedgerCheckTest, UnbalancedPostedVoucherIsNamed) {
    AddVoucher(1, 2018, 2, {{Rent, M(10)}, {Cash, Money::FromUnits(-99999)}});
    Post();
    const auto lines = ledger::CheckLedger(db_);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0], "JV 1001 of 2/2018 (JVID 1) is out of balance by 0.0001");
}

TEST_F(LedgerCheckTest, ExportWritesOneTransactionPerVoucherAndPeriod) {
    AddVoucher(1, 2017, 12,
               {{Rent, Money::FromUnits(1000005)}, {Accruals, Money::FromUnits(-1000005), 7}},
               true);
    Post();
    std::ostringstream out;
    EXPECT_EQ(ledger::ExportLedger(db_, out), 2);
    EXPECT_EQ(out.str(), "2017-12-15 (1001) GL JV 12/2017 Voucher 1\n"
                         "    5100 Rent  100.0005\n"
                         "    2100-EAST Accruals - East  -100.0005\n"
                         "\n"
                         "2017-12-15 (1001) GL JVR 1/2018 Voucher 1\n"
                         "    5100 Rent  -100.0005\n"
                         "    2100-EAST Accruals - East  100.0005\n");
}

} // namespace
} // namespace corvane::testing
