#include "ledger/PostingFixture.h"

#include "core/Exception.h"
#include "ledger/posting/PostingRun.h"
#include "ledger/posting/Unposting.h"

namespace corvane::testing {
namespace {

using ledger::UnpostJV;
namespace texts = ledger::unposting;

class UnpostTest : public PostingTest {
protected:
    void Post() { ledger::PostingRun(db_).Run({}); }
    bool Unpost(int jvid, int fiscalYear = 2017) {
        dialogs.Answer(texts::Question, ui::mbYes);
        return UnpostJV(app, db_, jvid, fiscalYear);
    }
};

TEST_F(UnpostTest, PostThenUnpostLeavesEveryAmountAsBeforeAndTheRowsWithZero) {
    InsertRow("GLActual",
              {{"GLAccountID", Rent}, {"GLYear", 2017}, {"ActualBudget", "A"}, {"Amount12", M(3)}});
    AddVoucher(1, 2017, 12, {{Rent, M(100)}, {Accruals, M(-100)}}, true);
    AddVoucher(2, 2017, 12, {{Rent, M(8)}, {Cash, M(-8)}});
    Post();
    ASSERT_EQ(Total(Rent, 2017, 12), M(111));

    EXPECT_TRUE(Unpost(1));
    EXPECT_FALSE(Posted(1));
    EXPECT_TRUE(Posted(2));
    EXPECT_EQ(Count("SELECT count(*) FROM GLHist WHERE JVID = 1"), 0);
    EXPECT_EQ(Count("SELECT count(*) FROM GLHist WHERE JVID = 2"), 2);
    EXPECT_EQ(Total(Rent, 2017, 12), M(11));
    EXPECT_EQ(Total(Rent, 2018, 1), M(0));
    EXPECT_EQ(Total(Accruals, 2017, 12), M(0));
    EXPECT_EQ(Total(Accruals, 2018, 1), M(0));
    EXPECT_TRUE(HasTotalsRow(Accruals, 2018));

    // Posted again, it comes back exactly.
    Post();
    EXPECT_EQ(Total(Rent, 2017, 12), M(111));
    EXPECT_EQ(Total(Accruals, 2018, 1), M(100));
}

TEST_F(UnpostTest, AfterAPurgeCompensatingRowsStandInOnce) {
    AddVoucher(1, 2017, 12, {{Rent, M(100)}, {Accruals, M(-100)}}, true);
    Post();
    db_.Conn().Exec("DELETE FROM GLHist");

    EXPECT_TRUE(Unpost(1));
    EXPECT_EQ(CountRows("GLHist"), 4);
    EXPECT_EQ(Count("SELECT count(*) FROM GLHist WHERE JVID IS NULL AND Reconciled IS NULL AND "
                    "Reconciling IS NULL"),
              4);
    EXPECT_EQ(Count("SELECT Amount FROM GLHist WHERE GLAccountID = 1 AND TransType = 'JV'"),
              M(-100).Units());
    EXPECT_EQ(Count("SELECT Amount FROM GLHist WHERE GLAccountID = 1 AND TransType = 'JVR' AND "
                    "GLYear = 2018 AND GLPeriod = 1"),
              M(100).Units());
    EXPECT_EQ(Total(Rent, 2017, 12), M(0));
    EXPECT_EQ(Total(Rent, 2018, 1), M(0));

    // Posted and unposted again: its new rows go, the compensating ones stay.
    Post();
    EXPECT_EQ(CountRows("GLHist"), 8);
    EXPECT_TRUE(Unpost(1));
    EXPECT_EQ(CountRows("GLHist"), 4);
    EXPECT_EQ(Total(Rent, 2017, 12), M(0));
}

TEST_F(UnpostTest, ClosedYearRefusesWithoutAsking) {
    AddVoucher(1, 2017, 12, {{Rent, M(5)}, {Cash, M(-5)}});
    Post();
    EXPECT_FALSE(UnpostJV(app, db_, 1, 2018));
    EXPECT_EQ(dialogs.LastText(), texts::ClosedYearMessage);
    EXPECT_TRUE(Posted(1));
    EXPECT_EQ(Total(Rent, 2017, 12), M(5));
}

TEST_F(UnpostTest, AnswerNoChangesNothing) {
    AddVoucher(1, 2018, 2, {{Rent, M(5)}, {Cash, M(-5)}});
    Post();
    dialogs.Answer(texts::Question, ui::mbNo);
    EXPECT_FALSE(UnpostJV(app, db_, 1, 2018));
    EXPECT_TRUE(Posted(1));
    EXPECT_EQ(CountRows("GLHist"), 2);
}

TEST_F(UnpostTest, VoucherUnpostedMeanwhileFailsWithNothingChanged) {
    AddVoucher(1, 2018, 2, {{Rent, M(5)}, {Cash, M(-5)}});
    Post();
    db_.Conn().Exec("UPDATE JV SET Posted = 0");
    dialogs.Answer(texts::Question, ui::mbYes);
    try {
        UnpostJV(app, db_, 1, 2018);
        ADD_FAILURE() << "no failure";
    } catch (const Exception& e) {
        EXPECT_STREQ(e.what(), texts::AlreadyUnpostedMessage);
    }
    EXPECT_EQ(CountRows("GLHist"), 2);
    EXPECT_EQ(Total(Rent, 2018, 2), M(5));
}

} // namespace
} // namespace corvane::testing
