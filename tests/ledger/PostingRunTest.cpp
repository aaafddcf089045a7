#include "ledger/PostingFixture.h"

#include "ledger/posting/PostingRun.h"
#include "ledger/posting/TfrmJVsPost.h"
#include "store/EngineError.h"
#include "support/ChildProcess.h"

namespace corvane::testing {
namespace {

using ledger::PostingRun;
using ledger::TfrmJVsPost;

class PostingRunTest : public PostingTest {
protected:
    std::int64_t Post() { return PostingRun(db_).Run({}); }
};

TEST_F(PostingRunTest, AutoReversingAccrualAtYearEndReversesIntoTheNextYear) {
    AddVoucher(1, 2017, 12, {{Rent, M(100)}, {Accruals, M(-100)}}, true);
    EXPECT_EQ(Post(), 1);

    EXPECT_TRUE(Posted(1));
    EXPECT_EQ(Count("SELECT count(*) FROM GLHist WHERE JVID = 1"), 4);
    EXPECT_EQ(Count("SELECT count(*) FROM GLHist WHERE GLYear = 2017 AND GLPeriod = 12 AND "
                    "TransType = 'JV'"),
              2);
    EXPECT_EQ(Count("SELECT count(*) FROM GLHist WHERE GLYear = 2018 AND GLPeriod = 1 AND "
                    "TransType = 'JVR' AND TransDate = '2017-12-15' AND JVNumber = 1001"),
              2);
    EXPECT_EQ(Count("SELECT sum(Amount) FROM GLHist WHERE GLAccountID = 1 AND TransType = 'JVR'"),
              M(-100).Units());
    EXPECT_EQ(Total(Rent, 2017, 12), M(100));
    EXPECT_EQ(Total(Rent, 2018, 1), M(-100));
    EXPECT_EQ(Total(Accruals, 2017, 12), M(-100));
    EXPECT_EQ(Total(Accruals, 2018, 1), M(100));
    // A new year's row carries the one amount; the rest and the opening balance stay empty.
    EXPECT_EQ(Total(Rent, 2018, 2), std::nullopt);
    EXPECT_EQ(Total(Rent, 2017, 11), std::nullopt);
    EXPECT_EQ(
        Count("SELECT count(*) FROM GLActual WHERE OpeningBal IS NULL AND ActualBudget = 'A'"), 4);
}

TEST_F(PostingRunTest, AmountsAddToExistingTotalsAndKeyBySubaccount) {
    InsertRow("GLActual", {{"GLAccountID", Rent},
                           {"GLYear", 2018},
                           {"ActualBudget", "A"},
                           {"OpeningBal", M(10)},
                           {"Amount3", M(50)}});
    AddVoucher(1, 2018, 3,
               {{Rent, Money::FromUnits(255000)},
                {Rent, M(4)},
                {Rent, M(-7), 7},
                {Cash, Money::FromUnits(-225000)}});
    AddVoucher(2, 2018, 3, {{Rent, M(1)}, {Cash, M(-1)}});
    EXPECT_EQ(Post(), 2);
    EXPECT_EQ(Total(Rent, 2018, 3), Money::FromUnits(255000) + M(55));
    EXPECT_EQ(Total(Rent, 2018, 3, 7), M(-7));
    EXPECT_EQ(Count("SELECT OpeningBal FROM GLActual WHERE GLAccountID = 1 AND GLYear = 2018 "
                    "AND SubAccount1ID IS NULL"),
              M(10).Units());
    EXPECT_EQ(Count("SELECT count(*) FROM GLActual WHERE GLAccountID = 1"), 2);
    EXPECT_EQ(Count("SELECT count(*) FROM GLHist WHERE JVID = 1 AND GLAccountID = 1"), 3);
}

TEST_F(PostingRunTest, EmptyVoucherIsMarkedPostedAndWritesNothing) {
    AddVoucher(1, 2018, 2, {}, true);
    EXPECT_EQ(Post(), 1);
    EXPECT_TRUE(Posted(1));
    EXPECT_EQ(CountRows("GLHist"), 0);
    EXPECT_EQ(CountRows("GLActual"), 0);
    EXPECT_EQ(Post(), 0);
}

TEST_F(PostingRunTest, PeriodOutsideTheYearWritesHistoryButNoAmount) {
    AddVoucher(1, 2018, 13, {{Rent, M(5)}, {Cash, M(-5)}});
    Post();
    EXPECT_EQ(Count("SELECT count(*) FROM GLHist WHERE GLPeriod = 13"), 2);
    EXPECT_TRUE(HasTotalsRow(Rent, 2018));
    for (int p = 1; p <= 12; ++p)
        EXPECT_EQ(Total(Rent, 2018, p), std::nullopt) << "period " << p;
}

TEST_F(PostingRunTest, SubledgerDocumentsAreCopiedForDrillDown) {
    AddVoucher(1, 2018, 4, {{Cash, M(-30)}, {Accruals, M(30)}}, false, "AP", "Chq");
    {
        store::Table jv(db_, "JV");
        jv.Open();
        ASSERT_TRUE(jv.Locate("JVID", {1}));
        jv.Edit();
        jv.FieldByName("VendorID").SetAsInteger(4);
        jv.FieldByName("ChequeID").SetAsInteger(9);
        jv.Post();
    }
    Post();
    EXPECT_EQ(Count("SELECT count(*) FROM GLHist WHERE VendorID = 4 AND ChequeID = 9 AND "
                    "CustomerID IS NULL AND Source = 'AP' AND TransType = 'Chq' AND "
                    "Reconciled = 0 AND Reconciling = 0 AND TransDescription = 'Voucher 1'"),
              2);
}

TEST_F(PostingRunTest, FailureHalfWayLeavesNothingPosted) {
    AddVoucher(1, 2018, 1, {{Rent, M(10)}, {Cash, M(-10)}});
    // A line with no account cannot become a history row: the run fails on its second voucher.
    AddVoucher(2, 2018, 1, {{Rent, M(20)}, {0, M(-20)}});
    AddVoucher(3, 2018, 1, {{Rent, M(30)}, {Cash, M(-30)}});
    EXPECT_THROW(Post(), store::EngineError);
    EXPECT_FALSE(Posted(1));
    EXPECT_FALSE(Posted(2));
    EXPECT_EQ(CountRows("GLHist"), 0);
    EXPECT_EQ(CountRows("GLActual"), 0);

    // The locks went with the failure: once the voucher is mended the run goes through.
    {
        store::Table det(db_, "JVDet");
        det.Open();
        ASSERT_TRUE(det.Locate("JVID;Seq", {2, 2}));
        det.Edit();
        det.FieldByName("GLAccountID").SetAsInteger(Cash);
        det.Post();
    }
    EXPECT_EQ(Post(), 3);
    EXPECT_EQ(Total(Rent, 2018, 1), M(60));
}

TEST_F(PostingRunTest, DialogCountsWhatWaitsAndPostsOnOK) {
    AddVoucher(1, 2018, 1, {{Rent, M(10)}, {Cash, M(-10)}});
    AddVoucher(2, 2018, 2, {{Rent, M(10)}, {Cash, M(-10)}});
    auto& form = app.CreateForm<TfrmJVsPost>(db_);
    EXPECT_EQ(form.Caption, "Post Journal Vouchers");
    EXPECT_EQ(form.lblCount.Caption, "2 JV(s) to be posted");
    app.Run([&] { form.btnOK.Click(); });
    EXPECT_TRUE(dialogs.Shown().empty()) << dialogs.LastText();
    EXPECT_EQ(form.ModalResult(), ui::mrOK);
    EXPECT_EQ(form.ProgressBar1.Max, 2);
    EXPECT_EQ(form.ProgressBar1.Position, 2);
    EXPECT_TRUE(Posted(1));
    EXPECT_TRUE(Posted(2));
}

TEST_F(PostingRunTest, DialogWithNothingToPostCancels) {
    auto& form = app.CreateForm<TfrmJVsPost>(db_);
    EXPECT_EQ(form.lblCount.Caption, "0 JV(s) to be posted");
    // Written after the count: the dialog does not look again.
    AddVoucher(1, 2018, 1, {{Rent, M(10)}, {Cash, M(-10)}});
    app.Run([&] { form.btnOK.Click(); });
    EXPECT_EQ(form.ModalResult(), ui::mrCancel);
    EXPECT_FALSE(Posted(1));
}

TEST_F(PostingRunTest, OpenVoucherFormIsAConflict) {
    AddVoucher(1, 2018, 1, {{Rent, M(10)}, {Cash, M(-10)}});
    app.CreateForm<ui::Form>("frmJV");
    auto& form = app.CreateForm<TfrmJVsPost>(db_);
    app.Run([&] { form.btnOK.Click(); });
    EXPECT_EQ(dialogs.LastText(), TfrmJVsPost::ConflictMessage);
    EXPECT_EQ(form.ModalResult(), ui::mrCancel);
    EXPECT_FALSE(Posted(1));
}

TEST_F(PostingRunTest, VouchersLockedByAnotherJobAskToRetryAndGiveUpUnposted) {
    AddVoucher(1, 2018, 1, {{Rent, M(10)}, {Cash, M(-10)}});
    {
        tests::ChildProcess holder(CORVANE_CURSOR_HOLDER, {folder_.Path(), "locktable", "JV"});
        ASSERT_TRUE(holder.WaitForLine("ready"));
        auto& form = app.CreateForm<TfrmJVsPost>(db_);
        dialogs.Answer(PostingRun::JVLockMessage, ui::mbRetry);
        dialogs.Answer(PostingRun::JVLockMessage, ui::mbCancel);
        app.Run([&] { form.btnOK.Click(); });
        EXPECT_EQ(dialogs.PendingAnswers(), 0u);
        ASSERT_EQ(dialogs.Shown().size(), 3u); // two questions, then the refusal itself
        EXPECT_EQ(dialogs.Shown()[1].Buttons, (ui::MsgButtons{ui::mbRetry, ui::mbCancel}));
        EXPECT_FALSE(Posted(1));
        EXPECT_EQ(form.ModalResult(), ui::mrCancel);
        app.FreeForm(form);
    }
    // The holder is gone with its locks: a retry now goes through.
    auto& again = app.CreateForm<TfrmJVsPost>(db_);
    app.Run([&] { again.btnOK.Click(); });
    EXPECT_TRUE(Posted(1));
}

TEST_F(PostingRunTest, TotalsLockedByAnotherJobGivesBackTheVoucherLock) {
    AddVoucher(1, 2018, 1, {{Rent, M(10)}, {Cash, M(-10)}});
    tests::ChildProcess holder(CORVANE_CURSOR_HOLDER, {folder_.Path(), "locktable", "GLActual"});
    ASSERT_TRUE(holder.WaitForLine("ready"));
    dialogs.Answer(PostingRun::ActualLockMessage, ui::mbCancel);
    EXPECT_THROW(PostingRun(db_).Run(ledger::AskRetryThrough(app)), store::EngineError);
    EXPECT_FALSE(Posted(1));
    // Another job can take the vouchers' table now.
    tests::ChildProcess other(CORVANE_CURSOR_HOLDER, {folder_.Path(), "locktable", "JV"});
    EXPECT_TRUE(other.WaitForLine("ready"));
}

} // namespace
} // namespace corvane::testing
