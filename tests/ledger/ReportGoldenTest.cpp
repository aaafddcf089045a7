#include "ReportFixture.h"
#include "ledger/reports/TrptGLHistory.h"
#include "ledger/reports/TrptJV.h"

using namespace corvane;
using corvane::testing::ReportTest;

namespace {

// Whole pages compared with the stored ones: layout, labels, masks and totals at once.
class ReportGolden : public ReportTest {
protected:
    void SetUp() override {
        ReportTest::SetUp();
        InsertRow("GLAcSub2",
                  {{"SubAccountID", 3}, {"SubAccount", "NORTH"}, {"SubAccountName", "North"}});
    }
};

TEST_F(ReportGolden, VoucherWithSubaccountsDebitAndCreditColumnsAndTotals) {
    AddVoucher(1, 2017, 3,
               {{Rent, M(40), 7},
                {Cash, Money::FromCents(6050)},
                {Accruals, M(-80)},
                {Sales, Money::FromCents(-2050)}});
    // A level skipped ahead of a set one keeps its place in the account number.
    InsertRow("JVDet", {{"JVID", 1},
                        {"Seq", 5},
                        {"GLAccountID", Rent},
                        {"SubAccount2ID", 3},
                        {"GLAmount", Money::FromCents(1)}});
    InsertRow("JVDet",
              {{"JVID", 1}, {"Seq", 6}, {"GLAccountID", Cash}, {"GLAmount", Money::FromCents(-1)}});

    ledger::TrptJV report(db_, 1);
    int pages = 0;
    const std::string text = Pages(report, &pages);
    EXPECT_EQ(report.QuickReport.ReportTitle, "JV:  1001");
    EXPECT_EQ(pages, 1);
    CompareWithGolden("ledger-jv.txt", text);
}

TEST_F(ReportGolden, HistoryGroupedByPeriodNewestFirstWithPeriodAndGrandTotals) {
    AddVoucher(1, 2017, 3, {{Cash, M(100)}, {Sales, M(-100)}});
    AddVoucher(2, 2017, 4, {{Rent, M(40), 7}, {Accruals, M(-40)}}, false, "AP", "Inv");
    AddVoucher(3, 2017, 4, {{Cash, M(25)}, {Sales, M(-25)}}, false, "AR", "Pmt");
    AddVoucher(4, 2017, 5, {{Accruals, M(10)}, {Cash, M(-10)}}, false, "AP", "Chq");
    AddVoucher(5, 2018, 1, {{Cash, Money::FromCents(1234567)}, {Sales, M(-5)}});
    PostAll();

    ledger::TrptGLHistory report(db_);
    int pages = 0;
    const std::string text = Pages(report, &pages);
    EXPECT_EQ(pages, 1);
    // One footer per period, each under its own lines.
    EXPECT_EQ(LinesWith(text, "Total of period"), 4);
    CompareWithGolden("ledger-gl-history.txt", text);
}

} // namespace
