#include "ARReportFixture.h"
#include "receivables/payments/forms/TfrmARPayments.h"
#include "receivables/reports/TrptARPayments.h"
#include "store/sql/Connection.h"
#include "ui/FormDriver.h"

using namespace corvane;
using namespace corvane::receivables;
using corvane::testing::ARReportTest;

namespace {

// The payment list over the receivables report company: four payments of Alpha (one cash, one
// unposted) and one bank transfer of Beta, who has a telephone but no e-mail address.
class PaymentList : public ARReportTest {
protected:
    void SetUp() override {
        ARReportTest::SetUp();
        AddPayment(5, Beta, "2018-06-25", "EFT9", {{201, 30}}, true, 3);
        AddCustomer(9, "C9", "Zeta Co", Dollars, {});
        AddPayment(6, 9, "2018-06-26", "Z1", {{101, 1}}, false);
    }
    TfrmARPayments& List() {
        auto& list = app.CreateForm<TfrmARPayments>(db_);
        list.Show();
        return list;
    }
    // The test's own fixed statements.
    void Exec(const std::string& sql) {
        store::Statement s(db_.Conn(), sql);
        s.Step();
    }
    std::int64_t Count(const std::string& sql) {
        store::Statement s(db_.Conn(), sql);
        s.Step();
        return s.ColumnInt(0);
    }
    void StandOn(TfrmARPayments& list, int paymentId) {
        ASSERT_TRUE(list.tblARPmt.Locate("PaymentID", {store::Value(paymentId)}));
    }
};

TEST_F(PaymentList, PrintShowsTheRowsOfTheListWithPeriodHowPaidAndTheTotal) {
    TfrmARPayments& list = List();
    TrptARPayments all(db_, false);
    all.FollowList(list);
    const std::string text = Pages(all);
    Golden("ar-payments.txt", text);
    // Newest first, as the list: period as period/year, the codes in words, amounts summed.
    const std::string transfer = LineWith(text, {"EFT9"});
    EXPECT_EQ(Cell(transfer, 1), "6/2018");
    EXPECT_EQ(LastCell(transfer), "30.00");
    EXPECT_NE(LineWith(text, {"CHQ1", "Cheque"}), "");
    EXPECT_NE(LineWith(text, {"Alpha Ltd", "Cash", "78.00"}), "");
    EXPECT_EQ(LastCell(LineWith(text, {"Total:"})), "959.00");
    EXPECT_LT(text.find("Z1"), text.find("EFT9"));
    EXPECT_LT(text.find("EFT9"), text.find("CHQ3"));

    // What the list narrows to is what prints, and the United States write "Check".
    list.tblARPmt.SetFilter("(Posted <> true)");
    list.tblARPmt.SetFiltered(true);
    TrptARPayments unposted(db_, true);
    unposted.FollowList(list);
    const std::string some = Pages(unposted);
    EXPECT_EQ(LineWith(some, {"CHQ1"}), "");
    EXPECT_NE(LineWith(some, {"CHQ3", "Check", "200.00"}), "");
    EXPECT_EQ(LastCell(LineWith(some, {"Total:"})), "201.00");
    EXPECT_EQ(Cell(LineWith(some, {"Count:"}), 1), "2");
}

TEST_F(PaymentList, ReconciledFlipsTheRowAndTheOutstandingViewFollows) {
    TfrmARPayments& list = List();
    ui::FormDriver d(list);
    app.Run([&] { d.Click("mnuOutstanding"); });
    ASSERT_EQ(list.tblARPmt.RecordCount(), 6);
    StandOn(list, 1);
    app.Run([&] { d.Click("mnuReconciled"); });
    EXPECT_EQ(Count("SELECT count(*) FROM ARPmt WHERE Reconciled = 1"), 1);
    EXPECT_EQ(Count("SELECT count(*) FROM ARPmt WHERE PaymentID = 1 AND Reconciled = 1"), 1);
    list.RefreshList();
    EXPECT_EQ(list.tblARPmt.RecordCount(), 5);
    EXPECT_FALSE(list.tblARPmt.Locate("PaymentID", {store::Value(1)}));

    // Again on the whole list: the mark comes off, and a posted payment keeps its other values.
    app.Run([&] { d.Click("mnuOutstanding"); });
    StandOn(list, 1);
    app.Run([&] { d.Click("mnuReconciled"); });
    EXPECT_EQ(Count("SELECT count(*) FROM ARPmt WHERE Reconciled = 1"), 0);
    EXPECT_EQ(Count("SELECT count(*) FROM ARPmt WHERE PaymentID = 1 AND Posted = 1 AND "
                    "ChequeAmount = 1500000"),
              1);
}

TEST_F(PaymentList, PhoneAndMailReachTheCustomerOfTheRowWhenItHasThem) {
    TfrmARPayments& list = List();
    ui::FormDriver d(list);
    StandOn(list, 1);
    EXPECT_TRUE(d.Enabled("popPhone"));
    EXPECT_TRUE(d.Enabled("popEMail"));
    app.Run([&] { d.Click("popPhone"); });
    app.Run([&] { d.Click("popEMail"); });
    ASSERT_GE(desktop.Calls().size(), 2u);
    EXPECT_EQ(desktop.Calls()[desktop.Calls().size() - 2], "OpenUrl tel:555-0101");
    EXPECT_EQ(desktop.Calls().back(), "OpenMail mailto:ann@alpha.example");

    StandOn(list, 5);
    EXPECT_TRUE(d.Enabled("popPhone"));
    EXPECT_FALSE(d.Enabled("popEMail"));
    StandOn(list, 6);
    EXPECT_FALSE(d.Enabled("popPhone"));
    // A number given to the customer meanwhile counts when the menu opens.
    Exec("UPDATE Customer SET EMail = 'z@zeta.example' WHERE CustomerID = 9");
    list.popList.Popup();
    EXPECT_TRUE(d.Enabled("popEMail"));
    app.Run([&] { d.Click("popEMail"); });
    EXPECT_EQ(desktop.Calls().back(), "OpenMail mailto:z@zeta.example");
}

} // namespace
