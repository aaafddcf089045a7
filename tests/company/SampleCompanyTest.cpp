#include "company/sample/SampleCompany.h"
#include "company/sample/SampleVouchers.h"
#include "ledger/posting/LedgerCheck.h"
#include "ledger/posting/PostingRun.h"
#include "receivables/posting/ReceivablesCheck.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyDatabase.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace corvane::company {
namespace {

class SampleCompanyTest : public testing::CompanyTest {
protected:
    // Every row of the query, as text: what two runs are compared by.
    std::string Dump(const std::string& sql) { return Dump(db_, sql); }
    static std::string Dump(store::Database& db, const std::string& sql) {
        store::Statement s(db.Conn(), sql);
        std::ostringstream out;
        while (s.Step()) {
            for (int c = 0; c < s.ColumnCount(); ++c)
                out << (s.ColumnIsNull(c) ? std::string("null") : s.ColumnNatural(c).DebugString())
                    << '|';
            out << '\n';
        }
        return out.str();
    }
    std::int64_t Scalar(const std::string& sql) {
        store::Statement s(db_.Conn(), sql);
        s.Step();
        return s.ColumnInt(0);
    }
};

TEST_F(SampleCompanyTest, IsABalancedLedgerThatTheCheckPasses) {
    const SampleSummary summary = GenerateSampleCompany(db_);
    EXPECT_TRUE(ledger::CheckLedger(db_).empty());
    // Debits are positive: a balanced ledger nets to nothing in each year.
    for (int year : {2016, 2017}) {
        std::string total = "SELECT coalesce(sum(coalesce(Amount1,0)";
        for (int p = 2; p <= 12; ++p)
            total += "+coalesce(Amount" + std::to_string(p) + ",0)";
        total += "), 0) FROM GLActual WHERE GLYear = " + std::to_string(year);
        EXPECT_EQ(Scalar(total), 0) << year;
        EXPECT_GT(Scalar("SELECT count(*) FROM GLHist WHERE GLYear = " + std::to_string(year)), 0);
    }
    EXPECT_EQ(summary.Vouchers, Scalar("SELECT count(*) FROM JV"));
    EXPECT_EQ(summary.HistoryRows, Scalar("SELECT count(*) FROM GLHist"));
    // Every voucher balances as written, posted or not.
    EXPECT_EQ(Scalar("SELECT count(*) FROM (SELECT JVID FROM JVDet GROUP BY JVID "
                     "HAVING sum(GLAmount) <> 0)"),
              0);
}

TEST_F(SampleCompanyTest, LeavesTheLastQuarterUnpostedAndPostsTheRest) {
    const SampleSummary summary = GenerateSampleCompany(db_);
    EXPECT_GT(summary.Unposted, 0);
    EXPECT_EQ(Scalar("SELECT count(*) FROM JV WHERE Posted = 0 AND NOT (GLYear = 2017 AND "
                     "GLPeriod >= " +
                     std::to_string(kFirstUnpostedPeriod) + ")"),
              0);
    EXPECT_EQ(Scalar("SELECT count(*) FROM JV WHERE Posted <> 0 AND GLYear = 2017 AND "
                     "GLPeriod >= " +
                     std::to_string(kFirstUnpostedPeriod)),
              0);
    // Unposted vouchers left nothing in the ledger; reversing ones reached the next period.
    EXPECT_EQ(Scalar("SELECT count(*) FROM GLHist h JOIN JV j ON j.JVID = h.JVID "
                     "WHERE j.Posted = 0"),
              0);
    EXPECT_GT(Scalar("SELECT count(*) FROM JV WHERE AutoReverse <> 0 AND Posted <> 0"), 0);
    // The control row hands out numbers after the sample's own.
    EXPECT_EQ(Scalar("SELECT NextJVID FROM JVCtl"), Scalar("SELECT max(JVID) + 1 FROM JV"));
}

// The quarter's sales: invoices in both currencies, most printed and posted into vouchers that
// wait for the ledger, payments at the counter and a credit note; after the ledger's posting the
// receivables still agree with the ledger.
TEST_F(SampleCompanyTest, SellsInBothCurrenciesWithCounterPaymentsAndACreditNote) {
    GenerateSampleCompany(db_);
    EXPECT_EQ(Scalar("SELECT count(DISTINCT CurrencyID) FROM ARInv WHERE Posted = 1"), 2);
    EXPECT_GT(Scalar("SELECT count(*) FROM ARInv WHERE Posted = 0"), 0);
    EXPECT_EQ(Scalar("SELECT count(*) FROM ARInv WHERE InvoiceAmount < 0"), 1);
    EXPECT_EQ(Scalar("SELECT count(*) FROM ARPmt p JOIN ARInvPmt l ON l.PaymentID = p.PaymentID "
                     "JOIN ARInv i ON i.ARInvoiceID = l.ARInvoiceID WHERE p.Posted = 1 AND "
                     "i.POSPmtAmount = l.PaymentAmount"),
              2);
    EXPECT_EQ(Scalar("SELECT count(*) FROM ARInv WHERE POSPmtAmount <> 0 AND Owing = 0"), 1);
    EXPECT_EQ(receivables::CheckReceivables(db_), std::vector<std::string>{});
    ledger::PostingRun(db_).Run({});
    EXPECT_EQ(ledger::CheckLedger(db_), std::vector<std::string>{});
    EXPECT_EQ(receivables::CheckReceivables(db_), std::vector<std::string>{});
}

// The last month's payments: in full with a discount, in part, abroad with a write-off, posted
// into vouchers that wait for the ledger, and one still to post; the checks hold before and
// after the ledger's posting.
TEST_F(SampleCompanyTest, TakesPaymentsWithDiscountsWriteOffsAndPartsInBothCurrencies) {
    GenerateSampleCompany(db_);
    EXPECT_EQ(Dump("SELECT p.ChequeNo, p.Posted, i.InvoiceNo, i.Owing, i.PaidAmount, "
                   "i.DiscTakenAmount, i.WriteOffAmount FROM ARPmt p JOIN ARInvPmt l ON "
                   "l.PaymentID = p.PaymentID JOIN ARInv i ON i.ARInvoiceID = l.ARInvoiceID "
                   "WHERE p.PaymentID > 2 ORDER BY p.PaymentID"),
              "'4410'|1|'2'|0|8308200|169600|0|\n"
              "'EFT0088'|1|'4'|3700200|5000000|0|0|\n"
              "'77120'|1|'7'|0|1100000|0|43700|\n"
              "'2231'|0|'5'|3833300|0|0|0|\n");
    EXPECT_EQ(Scalar("SELECT count(*) FROM JV WHERE PaymentID > 2 AND Posted = 0"), 3);
    EXPECT_EQ(receivables::CheckReceivables(db_), std::vector<std::string>{});
    ledger::PostingRun(db_).Run({});
    EXPECT_EQ(ledger::CheckLedger(db_), std::vector<std::string>{});
    EXPECT_EQ(receivables::CheckReceivables(db_), std::vector<std::string>{});
}

TEST_F(SampleCompanyTest, IsAFirmInTwoCurrenciesWithSubaccounts) {
    GenerateSampleCompany(db_);
    EXPECT_EQ(Dump("SELECT CompanyName, FiscalYear, ApplicationVersion FROM Company"),
              "'Sample Data Company'|2017|'2017.8'|\n");
    EXPECT_EQ(Dump("SELECT CurrencyID, CurrencyName FROM Currency ORDER BY CurrencyID"),
              "1|'Canadian Dollars'|\n2|'US Dollars'|\n");
    EXPECT_EQ(Scalar("SELECT count(*) FROM Bank b JOIN GLAccnt g ON g.GLAccountID = "
                     "b.BankGLAccountID"),
              2);
    // The wizard's 44 accounts and the US dollar bank account.
    EXPECT_EQ(Scalar("SELECT count(*) FROM GLAccnt"), 45);
    for (int level = 1; level <= 3; ++level)
        EXPECT_GT(Scalar("SELECT count(*) FROM GLHist WHERE SubAccount" + std::to_string(level) +
                         "ID IS NOT NULL"),
                  0)
            << level;
    EXPECT_GT(Scalar("SELECT count(*) FROM JV WHERE TransDescription = "
                     "'To record mth-end currency conversion'"),
              0);
}

TEST_F(SampleCompanyTest, TheSameShapeGivesTheSameCompanyAndTheSizeScalesIt) {
    SampleShape shape;
    shape.Vouchers = 600;
    GenerateSampleCompany(db_, shape);
    auto rows = [](store::Database& db) {
        return Dump(db, "SELECT * FROM JVDet ORDER BY JVID, Seq") +
               Dump(db, "SELECT * FROM GLActual ORDER BY 1, 2, 3, 4, 5, 6") +
               Dump(db, "SELECT JVID, TransDate, TransDescription FROM JV ORDER BY 1");
    };
    // The shape counts the ledger's own vouchers; the sales add theirs.
    EXPECT_EQ(Scalar("SELECT count(*) FROM JV WHERE Source = 'GL'"), 600);
    const std::int64_t historyAt600 = Scalar("SELECT count(*) FROM GLHist");

    testing::TempFolder other;
    store::tables::CreateCompanyDatabase(other.Path());
    store::Database again(session_);
    again.SetDirectory(other.Path());
    again.Open();
    GenerateSampleCompany(again, shape);
    EXPECT_EQ(rows(db_), rows(again));
    again.Close();

    // The default demo is smaller, and scales with the shape.
    testing::TempFolder demo;
    store::tables::CreateCompanyDatabase(demo.Path());
    store::Database small(session_);
    small.SetDirectory(demo.Path());
    small.Open();
    const SampleSummary summary = GenerateSampleCompany(small);
    EXPECT_EQ(Dump(small, "SELECT count(*) FROM JV WHERE Source = 'GL'"), "480|\n");
    EXPECT_GT(summary.Vouchers, 480);
    EXPECT_LT(summary.HistoryRows, historyAt600);
    small.Close();
}

} // namespace
} // namespace corvane::company
