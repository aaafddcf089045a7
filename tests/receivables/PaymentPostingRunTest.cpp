#include "receivables/PaymentFixture.h"

#include "ledger/posting/LedgerCheck.h"
#include "ledger/posting/PostingRun.h"
#include "receivables/posting/PaymentPostingRun.h"
#include "receivables/posting/ReceivablesCheck.h"
#include "support/CompanyFingerprint.h"

#include <stdexcept>

namespace corvane::testing {
namespace {

using receivables::PaymentPostingRun;

class PaymentPostingRunTest : public PaymentTest {
protected:
    std::int64_t PostPayments(const std::function<void()>& afterEach = {}) {
        PaymentPostingRun run(db_);
        run.OnPaymentPosted = afterEach;
        return run.Run([](const std::string&) { return false; });
    }
    // Every voucher to the ledger, then both checks: nothing may disagree.
    void PostVouchersAndCheck() {
        ledger::PostingRun(db_).Run([](const std::string&) { return false; });
        EXPECT_EQ(ledger::CheckLedger(db_), std::vector<std::string>{});
        EXPECT_EQ(receivables::CheckReceivables(db_), std::vector<std::string>{});
    }
    std::string Lines(std::int64_t paymentId) {
        store::Statement s(db_.Conn(), "SELECT d.Seq, d.GLAccountID, d.GLAmount FROM JV v JOIN "
                                       "JVDet d ON d.JVID = v.JVID WHERE v.PaymentID = " +
                                           std::to_string(paymentId) + " ORDER BY d.Seq");
        std::string text;
        while (s.Step())
            text += (text.empty() ? "" : " ") + std::to_string(s.ColumnInt(0)) + ":" +
                    std::to_string(s.ColumnInt(1)) + ":" +
                    s.ColumnValue(2, store::FieldType::Currency).Money().ToString();
        return text;
    }
    std::string Settled(int invoice) {
        store::Statement s(db_.Conn(), "SELECT PaidAmount, DiscTakenAmount, WriteOffAmount, Owing "
                                       "FROM ARInv WHERE ARInvoiceID = " +
                                           std::to_string(invoice));
        s.Step();
        std::string text;
        for (int c = 0; c < 4; ++c)
            text +=
                (c ? " " : "") + s.ColumnValue(c, store::FieldType::Currency).Money().ToString();
        return text;
    }
};

// One payment over three invoices, with a discount on one and a write-off on another: each
// invoice's totals and Owing, the customer's balance, the voucher, and the ledger agreeing after.
TEST_F(PaymentPostingRunTest, APaymentOverThreeInvoicesSettlesEachAndBalancesTheLedger) {
    AddPosted(1, Local, C(10000), 2.0, 10);
    AddPosted(2, Local, C(5000));
    AddPosted(3, Local, C(12000));
    AddPosted(4, Local, C(7000));
    AddPayment(1, Local, C(25000), "553");
    AddLine(1, 1, 1, C(9800), C(200));
    AddLine(1, 2, 2, C(5000));
    AddLine(1, 3, 3, C(10200), {}, C(1800));
    EXPECT_EQ(PostPayments(), 1);
    EXPECT_EQ(Settled(1), "98.0000 2.0000 0.0000 0.0000");
    EXPECT_EQ(Settled(2), "50.0000 0.0000 0.0000 0.0000");
    EXPECT_EQ(Settled(3), "102.0000 0.0000 18.0000 0.0000");
    EXPECT_EQ(Owing(4), C(7000));
    EXPECT_EQ(Balance(Local), C(7000));
    EXPECT_EQ(Lines(1), "1:11:-270.0000 2:10:250.0000 3:46:2.0000 6:47:18.0000");
    EXPECT_EQ(Count("SELECT count(*) FROM JV WHERE PaymentID = 1 AND Source = 'AR' AND "
                    "TransType = 'Pmt' AND TransDescription = 'AR Payment: Cheque 553' AND "
                    "JVAmount = 2700000 AND Posted = 0 AND TransDate = '2018-03-20'"),
              1);
    EXPECT_EQ(Count("SELECT Posted FROM ARPmt WHERE PaymentID = 1"), 1);
    EXPECT_EQ(Count("SELECT Reconciled FROM ARPmt WHERE PaymentID = 1"), 0);
    PostVouchersAndCheck();
    // Nothing is left to post the second time.
    EXPECT_EQ(PostPayments(), 0);
}

// An invoice abroad posted at 1.20, paid while the currency stands at 1.25 with a discount and a
// write-off: the receivable leaves at the amount owed in euros, the discount and write-off at
// today's rate, and the exchange row makes up the rest.
TEST_F(PaymentPostingRunTest, AForeignPaymentAtAnotherRateBooksTheExchangeDifference) {
    AddPosted(1, Abroad, C(10000), 3.0, 30);
    Exec("UPDATE ARInv SET ExchangeRate = 1.2 WHERE ARInvoiceID = 1");
    AddPayment(1, Abroad, C(9500), "E1");
    AddLine(1, 1, 1, C(9500), C(300), C(200));
    EXPECT_EQ(PostPayments(), 1);
    EXPECT_EQ(Lines(1), "1:12:-100.0000 2:14:95.0000 3:46:3.7500 4:47:2.5000 5:80:-1.2500");
    EXPECT_EQ(Owing(1), Money());
    EXPECT_EQ(Balance(Abroad), Money());
    PostVouchersAndCheck();
}

// An overpayment leaves the invoice owing less than nothing, a credit that stays outstanding;
// two payments on one invoice in the same run both apply.
TEST_F(PaymentPostingRunTest, AnOverpaymentLeavesACreditAndTwoPaymentsOnOneInvoiceBothApply) {
    AddPosted(1, Local, C(10000));
    AddPosted(2, Local, C(3000));
    AddPayment(1, Local, C(12000), "A");
    AddLine(1, 1, 1, C(12000));
    AddPayment(2, Local, C(1000), "B");
    AddLine(2, 2, 1, C(1000));
    AddPayment(3, Local, C(500), "C");
    AddLine(3, 2, 1, C(500));
    EXPECT_EQ(PostPayments(), 3);
    EXPECT_EQ(Owing(1), -C(2000));
    EXPECT_EQ(Settled(2), "15.0000 0.0000 0.0000 15.0000");
    EXPECT_EQ(Balance(Local), -C(500));
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv WHERE Owing <> 0"), 2);
    PostVouchersAndCheck();
}

// A thousand payments, the run broken by a failure half-way: the company is exactly as it was,
// and a whole run afterwards posts all of them.
TEST_F(PaymentPostingRunTest, FailureHalfWayThroughTheRunChangesNothing) {
    constexpr int Payments = 1000;
    db_.StartTransaction({"ARInv", "ARPmt", "ARInvPmt", "CBalance"});
    for (int id = 1; id <= Payments; ++id) {
        const int customer = id % 3 == 0 ? Abroad : Local;
        AddPosted(id, customer, C(10000 + id), 2.0, 30);
        AddPayment(id, customer, C(9000), "R" + std::to_string(id));
        AddLine(id, id, 1, C(9000), {}, id % 2 ? C(1000 + id) : Money());
    }
    db_.Commit();
    const std::string before = CompanyFingerprint(db_);
    int posted = 0;
    EXPECT_THROW(PostPayments([&] {
                     if (++posted == Payments / 2) throw std::runtime_error("disk gone");
                 }),
                 std::runtime_error);
    EXPECT_EQ(posted, Payments / 2);
    EXPECT_EQ(CompanyFingerprint(db_), before);
    EXPECT_EQ(PostPayments(), Payments);
    EXPECT_EQ(Count("SELECT count(*) FROM ARPmt WHERE Posted = 1"), Payments);
    EXPECT_EQ(Count("SELECT count(*) FROM JV WHERE TransType = 'Pmt'"), Payments);
    PostVouchersAndCheck();
}

} // namespace
} // namespace corvane::testing
