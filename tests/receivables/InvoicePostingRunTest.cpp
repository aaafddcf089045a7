#include "receivables/InvoiceFixture.h"

#include "ledger/posting/LedgerCheck.h"
#include "ledger/posting/PostingRun.h"
#include "receivables/posting/InvoicePostingRun.h"
#include "receivables/posting/ReceivablesCheck.h"
#include "receivables/posting/TfrmARInvoicesPost.h"
#include "support/ChildProcess.h"

namespace corvane::testing {
namespace {

using receivables::InvoicePostingRun;

class InvoicePostingRunTest : public InvoiceTest {
protected:
    std::int64_t PostInvoices() {
        return InvoicePostingRun(db_).Run([](const std::string&) { return false; });
    }

    // The voucher lines of an invoice's or a payment's voucher as "account:amount" in Seq order.
    std::string Lines(const std::string& where) {
        store::Statement s(db_.Conn(), "SELECT d.GLAccountID, d.GLAmount FROM JV v JOIN JVDet d ON "
                                       "d.JVID = v.JVID WHERE " +
                                           where + " ORDER BY d.Seq");
        std::string text;
        while (s.Step())
            text += (text.empty() ? "" : " ") + std::to_string(s.ColumnInt(0)) + ":" +
                    s.ColumnValue(1, store::FieldType::Currency).Money().ToString();
        return text;
    }
};

TEST_F(InvoicePostingRunTest, PostsEachPrintedInvoiceIntoItsVoucherBalancesStockAndPayment) {
    // 2 services of 50.00 (G and P) and 3 widgets of 20.00 (G): 160.00 + 8.00 + 8.00.
    const Money first = AddInvoice(1, Local, {{2, C(5000), Service}, {3, C(2000), Widget}});
    EXPECT_EQ(first, C(17600));
    const Money abroad = AddInvoice(2, Abroad, {{1, C(10000), Service}});
    AddInvoice(3, Local, {{1, C(1000), Service}}, /*printed=*/false);
    const Money paid = AddInvoice(4, Local, {{1, C(10000), Service}}, true, C(11300), 2, "553");
    AddInvoice(5, Local, {{-1, C(2000), Widget}, {2, C(9000), 0, Design}});

    EXPECT_EQ(PostInvoices(), 4);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv WHERE Posted = 1"), 4);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv WHERE Posted = 0 AND ARInvoiceID = 3"), 1);
    EXPECT_EQ(Lines("v.ARInvoiceID = 1"),
              "40:-100.0000 40:-60.0000 50:37.0400 13:-37.0400 21:-8.0000 22:-8.0000 "
              "11:176.0000");
    EXPECT_EQ(Lines("v.ARInvoiceID = 2"), "40:-125.0000 21:-6.2500 12:105.0000 80:26.2500");
    EXPECT_EQ(Lines("v.ARInvoiceID = 5"),
              "40:20.0000 50:-12.3500 13:12.3500 45:-180.0000 21:1.0000 11:159.0000");
    EXPECT_EQ(Lines("v.PaymentID = 1"), "11:-113.0000 10:113.0000");
    {
        store::Statement s(db_.Conn(), "SELECT JVNumber, Source, TransType, TransDescription, "
                                       "JVAmount, CustomerID FROM JV WHERE ARInvoiceID = 1");
        ASSERT_TRUE(s.Step());
        EXPECT_EQ(s.ColumnInt(0), 1001);
        EXPECT_EQ(s.ColumnNatural(1).Str(), "AR");
        EXPECT_EQ(s.ColumnNatural(2).Str(), "Inv");
        EXPECT_EQ(s.ColumnNatural(3).Str(), "AR Invoice 1001");
        EXPECT_EQ(s.ColumnValue(4, store::FieldType::Currency).Money(), C(17600 + 3704));
        EXPECT_EQ(s.ColumnInt(5), Local);
    }
    EXPECT_EQ(Count("SELECT count(*) FROM JV WHERE PaymentID = 1 AND ARInvoiceID IS NULL AND "
                    "TransType = 'Pmt' AND TransDescription = 'AR Payment: Cheque 553'"),
              1);
    // The rate is fixed on the invoice at posting.
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv WHERE ARInvoiceID = 2 AND ExchangeRate = 1.25"), 1);
    // Balances in each customer's currency; the payment settled its invoice in full.
    EXPECT_EQ(SumOf("SELECT Balance FROM CBalance WHERE CustomerID = 1"),
              first + C(15900) + paid - C(11300));
    EXPECT_EQ(SumOf("SELECT Balance FROM CBalance WHERE CustomerID = 2"), abroad);
    // 10 on hand, 3 sold, 1 returned; the unit cost kept on the lines of stocked items only.
    EXPECT_EQ(QtyOnHand(Widget), 8.0);
    EXPECT_EQ(Count("SELECT count(*) FROM IHist WHERE TransType = 2 AND ItemID = 2 AND "
                    "TransDescription = 'AR Invoice: 1001' AND Quantity = 3 AND ARInvoiceID = 1"),
              1);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvDet WHERE UnitCost IS NOT NULL"), 2);
    EXPECT_EQ(SumOf("SELECT UnitCost FROM ARInvDet WHERE ARInvoiceID = 1 AND Seq = 2"),
              Money::FromUnits(123456));
    {
        store::Statement s(db_.Conn(), "SELECT PaymentID, ChequeNo, ChequeAmount, Posted, PaidBy, "
                                       "BankID FROM ARPmt");
        ASSERT_TRUE(s.Step());
        EXPECT_EQ(s.ColumnNatural(1).Str(), "553");
        EXPECT_EQ(s.ColumnValue(2, store::FieldType::Currency).Money(), C(11300));
        EXPECT_EQ(s.ColumnInt(3), 1);
        EXPECT_EQ(s.ColumnInt(4), 2);
        EXPECT_FALSE(s.Step());
    }
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvPmt WHERE ARInvoiceID = 4 AND PaymentID = 1 AND "
                    "Seq = 1 AND PaymentAmount = 1130000"),
              1);
    EXPECT_EQ(Count("SELECT NextJVID FROM JVCtl"), 6);
    EXPECT_EQ(Count("SELECT NextJVNumber FROM JVCtl"), 1006);
    EXPECT_EQ(Count("SELECT NextPaymentID FROM ARPmtCtl"), 2);

    EXPECT_EQ(receivables::CheckReceivables(db_), std::vector<std::string>{});
    EXPECT_EQ(ledger::PostingRun(db_).Run({}), 5);
    EXPECT_EQ(ledger::CheckLedger(db_), std::vector<std::string>{});
    // A second run finds nothing left.
    EXPECT_EQ(PostInvoices(), 0);
}

TEST_F(InvoicePostingRunTest, ANumberTakenInThePeriodIsPassedOverAndAMissingControlRowCarriesOn) {
    InsertRow("JV", {{"JVID", 40},
                     {"GLYear", 2018},
                     {"GLPeriod", 3},
                     {"JVNumber", 1001},
                     {"Source", "GL"},
                     {"TransDate", Date::FromYmd(2018, 3, 1)},
                     {"TransDescription", "by hand"}});
    store::Statement(db_.Conn(), "DELETE FROM JVCtl").Step();
    AddInvoice(1, Local, {{1, C(1000), Service}});
    EXPECT_EQ(PostInvoices(), 1);
    EXPECT_EQ(Count("SELECT JVID FROM JV WHERE ARInvoiceID = 1"), 41);
    EXPECT_EQ(Count("SELECT JVNumber FROM JV WHERE ARInvoiceID = 1"), 1002);
    EXPECT_EQ(Count("SELECT NextJVNumber FROM JVCtl"), 1003);
}

TEST_F(InvoicePostingRunTest, ABrokenInvoiceRollsBackTheWholeRun) {
    AddInvoice(1, Local, {{1, C(1000), Service}});
    AddInvoice(2, Local, {{1, C(1000), Widget}});
    // A payment without a bank cannot be written: the second invoice fails the run.
    store::Statement(
        db_.Conn(), "UPDATE ARInv SET POSPmtAmount = 10000, POSPmtPaidBy = 1 WHERE ARInvoiceID = 2")
        .Step();
    EXPECT_THROW(PostInvoices(), std::exception);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv WHERE Posted = 1"), 0);
    EXPECT_EQ(Count("SELECT count(*) FROM JV"), 0);
    EXPECT_EQ(Count("SELECT count(*) FROM CBalance"), 0);
    EXPECT_EQ(QtyOnHand(Widget), 10.0);
    EXPECT_EQ(Count("SELECT NextJVID FROM JVCtl"), 1);
    EXPECT_FALSE(db_.InTransaction());
}

// Each table another job holds asks its own question, in the order the run takes them; Cancel
// gives back what was taken and writes nothing.
TEST_F(InvoicePostingRunTest, EachHeldTableAsksWithItsOwnWordsAndCancelWritesNothing) {
    AddInvoice(1, Local, {{1, C(1000), Service}});
    const std::vector<std::tuple<const char*, const char*, const char*>> held{
        {"exclusive", "JVCtl", InvoicePostingRun::JVCtlMessage},
        {"locktable", "ARInv", InvoicePostingRun::InvoicesLockMessage},
        {"locktable", "CBalance", InvoicePostingRun::BalancesLockMessage},
        {"locktable", "IBalance", InvoicePostingRun::StockLockMessage},
        {"exclusive", "ARPmtCtl", InvoicePostingRun::PmtCtlMessage}};
    for (const auto& [how, table, message] : held) {
        tests::ChildProcess holder(CORVANE_CURSOR_HOLDER, {folder_.Path(), how, table});
        ASSERT_TRUE(holder.WaitForLine("ready")) << table;
        std::vector<std::string> asked;
        EXPECT_THROW(InvoicePostingRun(db_).Run([&](const std::string& q) {
            asked.push_back(q);
            return asked.size() < 2; // Retry once, then Cancel
        }),
                     std::exception)
            << table;
        EXPECT_EQ(asked, (std::vector<std::string>{message, message})) << table;
        EXPECT_EQ(Count("SELECT count(*) FROM ARInv WHERE Posted = 1"), 0);
        holder.Kill();
        holder.Wait();
    }
    // Every lock was given back: the run goes through now.
    EXPECT_EQ(PostInvoices(), 1);
}

TEST_F(InvoicePostingRunTest, TheFormCountsPrintedInvoicesAndRefusesWhileAnInvoiceIsOpen) {
    AddInvoice(1, Local, {{1, C(1000), Service}});
    AddInvoice(2, Local, {{1, C(1000), Service}}, false);
    app.CreateForm<ui::Form>("frmARInvoice");
    auto& form = app.CreateForm<receivables::TfrmARInvoicesPost>(db_);
    EXPECT_EQ(form.Caption, "Post AR Invoices");
    EXPECT_EQ(form.lblCount.Caption, "1 printed invoice(s) to be posted");
    app.Run([&] { form.btnOK.Click(); });
    EXPECT_EQ(dialogs.LastText(), receivables::TfrmARInvoicesPost::ConflictMessage);
    EXPECT_EQ(form.ModalResult(), ui::mrCancel);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv WHERE Posted = 1"), 0);
}

} // namespace
} // namespace corvane::testing
