#include "InquiryFixture.h"
#include "ledger/inquiry/TfrmGLBalances.h"
#include "ledger/inquiry/TfrmGLHistory.h"

using namespace corvane;
using corvane::testing::InquiryTest;

namespace {

class GLBalances : public InquiryTest {
protected:
    void Open() {
        list = &app.CreateForm<ledger::TfrmGLBalances>(db_);
        list->Show();
    }
    store::Query& Rows() { return list->qryGLAccnt; }
    // Goes to the row of an account's year; fails the test when it is not in the list.
    void At(int account, int year) {
        ASSERT_TRUE(Rows().Locate("GLAccountID;GLYear", {account, year}))
            << "account " << account << " year " << year;
    }
    Money Cell(const std::string& field) { return Rows().FieldByName(field).AsMoney(); }
    // The accounts of the rows shown, in order, with their years: "1000/2017 4000/2017".
    std::string Shown() {
        std::string shown;
        for (Rows().First(); !Rows().Eof(); Rows().Next())
            shown += (shown.empty() ? "" : " ") + Rows().FieldByName("AccountNo").AsString() + "/" +
                     Rows().FieldByName("GLYear").AsString();
        return shown;
    }

    ledger::TfrmGLBalances* list = nullptr;
};

} // namespace

TEST_F(GLBalances, AnAccountWithoutTotalsShowsOneRowWithEmptyAmounts) {
    AddVoucher(1, 2017, 3, {{Rent, M(20), 7}, {Cash, M(-20)}});
    PostAll();
    Open();
    EXPECT_EQ(list->Caption, "GL Totals");
    EXPECT_EQ(Shown(), "1000/2017 2100/ 4000/ 5100-EAST/2017 6000/");

    ASSERT_TRUE(Rows().Locate("GLAccountID", {Unused}));
    EXPECT_TRUE(Rows().FieldByName("GLYear").IsNull());
    EXPECT_TRUE(Rows().FieldByName("OpeningBal").IsNull());
    EXPECT_TRUE(Rows().FieldByName("Period1").IsNull());
    EXPECT_TRUE(Rows().FieldByName("Period12").IsNull());
    EXPECT_TRUE(Rows().FieldByName("AmountTot").IsNull());
    std::vector<std::string> cells = ui::FormDriver(*list).GridRow("grdList");
    ASSERT_EQ(cells.size(), 17u);
    EXPECT_EQ(cells[0], "6000");
    EXPECT_EQ(cells[1], "Unused");
    for (std::size_t i = 2; i < cells.size(); ++i)
        EXPECT_EQ(cells[i], "") << "column " << i;

    // The subaccount's row reads as the account with its level.
    At(Rent, 2017);
    EXPECT_EQ(Rows().FieldByName("AccountNo").AsString(), "5100-EAST");
    EXPECT_EQ(Rows().FieldByName("AccountNameLabel").AsString(), "Rent - East");
    EXPECT_EQ(Cell("Period3"), M(20));
}

TEST_F(GLBalances, RevenueShowsNetChangeInAutoAndRunningBalanceUnderBalance) {
    InsertRow(
        "GLActual",
        {{"GLAccountID", Cash}, {"GLYear", 2017}, {"ActualBudget", "A"}, {"OpeningBal", M(1000)}});
    AddVoucher(1, 2017, 3, {{Cash, M(100)}, {Sales, M(-100)}});
    AddVoucher(2, 2017, 5, {{Cash, M(50)}, {Sales, M(-50)}});
    PostAll();
    Open();
    ui::FormDriver d(*list);
    EXPECT_TRUE(list->mnuDataAuto.Checked());

    At(Sales, 2017);
    EXPECT_EQ(Cell("Period3"), M(-100));
    EXPECT_EQ(Cell("Period4"), M(0));
    EXPECT_EQ(Cell("Period5"), M(-50));
    EXPECT_EQ(Cell("AmountTot"), M(-150));
    At(Cash, 2017);
    EXPECT_EQ(Cell("Period1"), M(1000));
    EXPECT_EQ(Cell("Period3"), M(1100));
    EXPECT_EQ(Cell("Period4"), M(1100));
    EXPECT_EQ(Cell("Period12"), M(1150));
    EXPECT_EQ(Cell("AmountTot"), M(150));

    d.Click("mnuDataBalance");
    EXPECT_TRUE(list->mnuDataBalance.Checked());
    EXPECT_FALSE(list->mnuDataAuto.Checked());
    At(Sales, 2017);
    EXPECT_EQ(Cell("Period3"), M(-100));
    EXPECT_EQ(Cell("Period4"), M(-100));
    EXPECT_EQ(Cell("Period5"), M(-150));
    EXPECT_EQ(Cell("Period12"), M(-150));
    // A credit balance reads with the letters CR.
    EXPECT_EQ(d.GridRow("grdList")[8], "150.00CR");
    At(Cash, 2017);
    EXPECT_EQ(Cell("Period12"), M(1150));

    // Net change: the opening balance stands alone and takes no part in the periods.
    d.Click("mnuDataNetChange");
    At(Cash, 2017);
    EXPECT_EQ(Cell("OpeningBal"), M(1000));
    EXPECT_EQ(Cell("Period1"), M(0));
    EXPECT_EQ(Cell("Period3"), M(100));
    EXPECT_EQ(Cell("Period5"), M(50));
    EXPECT_EQ(Cell("Period12"), M(0));
    EXPECT_EQ(Cell("AmountTot"), M(150));
    EXPECT_EQ(d.GridRow("grdList")[3], "1,000.00");
}

TEST_F(GLBalances, FilterReplacesTheWhereLineWithNumbersOnly) {
    AddVoucher(1, 2017, 3, {{Rent, M(20), 7}, {Cash, M(-20)}});
    AddVoucher(2, 2017, 4, {{Rent, M(5)}, {Sales, M(-5)}});
    PostAll();
    Open();
    ui::FormDriver d(*list);

    WhenModal("frmGLBalancesFilter", [](ui::FormDriver& f) {
        f.Choose("cboType", "Revenue or Expense");
        f.SetChecked("chkYearAll", false);
        EXPECT_EQ(f.Text("editYear"), "1997");
        f.EnterText("editYear", "2017");
        f.Choose("cboSub1", "EAST");
        f.Click("btnOK");
    });
    d.Click("mnuFilter");
    EXPECT_EQ(list->WhereLine(), "WHERE ((AccountType = 3) OR (AccountType = 4)) AND (GLYear = "
                                 "2017) AND (SubAccount1ID = 7)");
    EXPECT_EQ(list->Caption, "GL Totals (Filtered)");
    EXPECT_EQ(Shown(), "5100-EAST/2017");

    WhenModal("frmGLBalancesFilter", [](ui::FormDriver& f) {
        f.Click("btnReset");
        f.Choose("cboType", "Asset");
        f.Click("btnOK");
    });
    d.Click("mnuFilter");
    EXPECT_EQ(list->WhereLine(), "WHERE (AccountType = 1)");
    EXPECT_EQ(Shown(), "1000/2017");

    // A year that is no number is refused and changes nothing; Cancel puts the choices back.
    WhenModal("frmGLBalancesFilter", [this](ui::FormDriver& f) {
        f.SetChecked("chkYearAll", false);
        f.EnterText("editYear", "2017 OR 1=1");
        f.Click("btnOK");
        EXPECT_EQ(LastMessage(), "'2017 OR 1=1' is not a valid integer value");
        f.Click("btnCancel");
    });
    d.Click("mnuFilter");
    EXPECT_EQ(list->WhereLine(), "WHERE (AccountType = 1)");
    WhenModal("frmGLBalancesFilter", [](ui::FormDriver& f) {
        EXPECT_EQ(f.Text("cboType"), "Asset");
        EXPECT_TRUE(f.Checked("chkYearAll"));
        f.Click("btnReset");
        f.Click("btnOK");
    });
    d.Click("mnuFilter");
    EXPECT_EQ(list->WhereLine(), "WHERE 1=1");
    EXPECT_EQ(list->Caption, "GL Totals");
    EXPECT_EQ(Shown(), "1000/2017 2100/ 4000/2017 5100/2017 5100-EAST/2017 6000/");
}

TEST_F(GLBalances, HistoryLandsOnTheRowsAccountAndYear) {
    AddVoucher(1, 2017, 3, {{Rent, M(100)}, {Cash, M(-100)}});
    AddVoucher(2, 2017, 12, {{Rent, M(30)}, {Accruals, M(-30)}}, true);
    PostAll();
    Open();
    At(Rent, 2018);
    ui::FormDriver(*list).Click("mnuHistory");

    auto& history = dynamic_cast<ledger::TfrmGLHistory&>(app.GetForm("frmGLHistory"));
    EXPECT_TRUE(history.Visible());
    EXPECT_EQ(history.Caption, "GL History (Filtered)");
    EXPECT_EQ(history.tblGLHist.IndexName(), ledger::TfrmGLHistory::kAccountIndex);
    EXPECT_EQ(history.tblGLHist.Filter(), "(GLAccountID = 1) AND (GLYear = 2018)");
    history.tblGLHist.First();
    EXPECT_EQ(history.tblGLHist.FieldByName("TransType").AsString(), "JVR");
    EXPECT_EQ(history.tblGLHist.FieldByName("Amount").AsMoney(), M(-30));
    history.tblGLHist.Next();
    EXPECT_TRUE(history.tblGLHist.Eof());

    // From the 2017 row the same account shows that year's lines only, newest first.
    At(Rent, 2017);
    ui::FormDriver(*list).Click("mnuHistory");
    EXPECT_EQ(history.tblGLHist.Filter(), "(GLAccountID = 1) AND (GLYear = 2017)");
    history.tblGLHist.First();
    EXPECT_EQ(history.tblGLHist.FieldByName("JVNumber").AsInteger(), 1002);
    history.tblGLHist.Next();
    EXPECT_EQ(history.tblGLHist.FieldByName("JVNumber").AsInteger(), 1001);
    history.tblGLHist.Next();
    EXPECT_TRUE(history.tblGLHist.Eof());
}

TEST_F(GLBalances, UnpostingBringsTheTotalsBack) {
    AddVoucher(1, 2017, 3, {{Cash, M(100)}, {Sales, M(-100)}});
    AddVoucher(2, 2017, 3, {{Cash, M(30)}, {Sales, M(-30)}});
    PostAll();
    Open();
    At(Cash, 2017);
    EXPECT_EQ(Cell("Period3"), M(130));

    ASSERT_TRUE(Unpost(2));
    ui::FormDriver(*list).Click("mnuRefresh");
    At(Cash, 2017);
    EXPECT_EQ(Cell("Period3"), M(100));
    At(Sales, 2017);
    EXPECT_EQ(Cell("Period3"), M(-100));

    // Shown again, the list reads the totals afresh.
    ASSERT_TRUE(Unpost(1));
    ui::FormDriver(*list).Close();
    list->Show();
    At(Cash, 2017);
    EXPECT_EQ(Cell("Period3"), M(0));
    EXPECT_EQ(Cell("AmountTot"), M(0));
}
