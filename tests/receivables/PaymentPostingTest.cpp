#include "receivables/posting/PaymentPosting.h"

#include <gtest/gtest.h>

namespace corvane::receivables {
namespace {

constexpr int Bank = 10, Receivable = 11, Discount = 46, WriteOff = 47, Exchange = 80;

Money C(std::int64_t cents) {
    return Money::FromCents(cents);
}

PaymentToPost Payment(Money cheque, double rate = 1.0) {
    PaymentToPost p;
    p.PaymentID = 1;
    p.ChequeNo = "553";
    p.CustomerID = 1;
    p.GLYear = 2018;
    p.GLPeriod = 3;
    p.PaymentDate = Date::FromYmd(2018, 3, 20);
    p.ChequeAmount = cheque;
    p.PaidBy = 2;
    p.StoredRate = rate;
    p.ARGLAccountID = Receivable;
    p.GainLossGLAccountID = Exchange;
    p.ARDiscGLAccountID = Discount;
    p.BankGLAccountID = Bank;
    return p;
}

PaymentLineToPost Line(std::int64_t seq, std::int64_t invoice, Money paid, Money discount = {},
                       Money writeOff = {}) {
    PaymentLineToPost line;
    line.Seq = seq;
    line.ARInvoiceID = invoice;
    line.PaymentAmount = paid;
    line.DiscTakenAmount = discount;
    line.WriteOffAmount = writeOff;
    line.WriteOffAccount.GLAccountID = WriteOff;
    return line;
}

// "seq:account:amount ..." of the voucher, and a check that it balances to the ten-thousandth.
std::string Rows(const VoucherToWrite& v) {
    std::string text;
    Money sum;
    for (const auto& l : v.Lines) {
        text += (text.empty() ? "" : " ") + std::to_string(l.Seq) + ":" +
                std::to_string(l.Account.GLAccountID.value_or(0)) + ":" + l.GLAmount.ToString();
        sum += l.GLAmount;
    }
    EXPECT_TRUE(sum.IsZero()) << "voucher out of balance by " << sum.ToString() << ": " << text;
    return text;
}

TEST(PaymentPosting, APaymentWithDiscountAndWriteOffCreditsTheWholeReceivable) {
    PaymentToPost p = Payment(C(9500));
    p.Lines = {Line(1, 7, C(9500), C(300), C(200))};
    const PaymentPostingEffect e = PaymentPosting(p, false);
    EXPECT_EQ(Rows(e.Voucher), "1:11:-100.0000 2:10:95.0000 3:46:3.0000 4:47:2.0000");
    EXPECT_EQ(e.Voucher.JVAmount, C(10000));
    EXPECT_EQ(e.Voucher.TransType, "Pmt");
    EXPECT_EQ(e.Voucher.TransDescription, "AR Payment: Cheque 553");
    EXPECT_EQ(e.BalanceChange, -C(10000));
    ASSERT_EQ(e.Invoices.size(), 1u);
    EXPECT_EQ(e.Invoices[0].Paid, C(9500));
    EXPECT_EQ(e.Invoices[0].Discount, C(300));
    EXPECT_EQ(e.Invoices[0].WriteOff, C(200));
}

// Three invoices, a discount on the first and a write-off on the third: the write-off row takes
// its line's number plus three, so the voucher's numbers have a gap.
TEST(PaymentPosting, WriteOffRowsAreNumberedAfterTheirLines) {
    PaymentToPost p = Payment(C(25000));
    p.PaymentDate = Date::FromYmd(2018, 3, 20);
    p.ChequeNo.clear();
    p.PaidBy = 2;
    p.Lines = {Line(1, 1, C(9800), C(200)), Line(2, 2, C(5000)), Line(3, 3, C(10200), {}, C(1800))};
    const PaymentPostingEffect e = PaymentPosting(p, true);
    EXPECT_EQ(Rows(e.Voucher), "1:11:-270.0000 2:10:250.0000 3:46:2.0000 6:47:18.0000");
    EXPECT_EQ(e.Voucher.TransDescription, "AR Payment: Check");
    EXPECT_EQ(e.Voucher.JVAmount, C(27000));
    EXPECT_EQ(e.Invoices.size(), 3u);
}

// At 1.25 a payment of 97.00 with 3.00 of discount: the discount is converted, the receivable and
// the bank are not, and the exchange row after the last line carries the difference.
TEST(PaymentPosting, AForeignPaymentConvertsDiscountAndWriteOffOnlyAndBooksTheDifference) {
    PaymentToPost p = Payment(C(9700), 1.25);
    p.Lines = {Line(1, 7, C(9700), C(300))};
    PaymentPostingEffect e = PaymentPosting(p, false);
    EXPECT_EQ(Rows(e.Voucher), "1:11:-100.0000 2:10:97.0000 3:46:3.7500 5:80:-0.7500");
    EXPECT_EQ(e.Voucher.JVAmount, C(10075));
    // A write-off is converted on its own and the roundings meet in the exchange row.
    p.ChequeAmount = C(5000);
    p.Lines = {Line(2, 7, C(5000), {}, C(333)), Line(4, 8, Money(), {}, C(1))};
    e = PaymentPosting(p, false);
    EXPECT_EQ(Rows(e.Voucher), "1:11:-53.3400 2:10:50.0000 5:47:4.1600 7:47:0.0100 8:80:-0.8300");
    EXPECT_EQ(e.Voucher.JVAmount, C(5417));
}

// A payment of nothing that takes X off one invoice and puts it on a credit note writes a voucher
// of no rows; a reversal turns every row round.
TEST(PaymentPosting, ADummyPaymentWritesAnEmptyVoucherAndAReversalTurnsTheRowsRound) {
    PaymentToPost dummy = Payment(Money());
    dummy.Lines = {Line(1, 7, C(4000)), Line(2, 8, -C(4000))};
    PaymentPostingEffect e = PaymentPosting(dummy, false);
    EXPECT_TRUE(e.Voucher.Lines.empty());
    EXPECT_EQ(e.Voucher.JVAmount, Money());
    EXPECT_EQ(e.BalanceChange, Money());
    EXPECT_EQ(e.Invoices.size(), 2u);

    PaymentToPost reversal = Payment(-C(5000));
    reversal.Lines = {Line(1, 7, -C(5000))};
    e = PaymentPosting(reversal, false);
    EXPECT_EQ(Rows(e.Voucher), "1:11:50.0000 2:10:-50.0000");
    EXPECT_EQ(e.Voucher.JVAmount, C(5000));
    EXPECT_EQ(e.BalanceChange, C(5000));
}

// A line whose invoice has gone is passed over: it settles nothing and is not in the receivable.
TEST(PaymentPosting, ALineWhoseInvoiceHasGoneIsPassedOver) {
    PaymentToPost p = Payment(C(3000));
    p.Lines = {Line(1, 7, C(3000)), Line(2, 99, C(1000))};
    p.Lines[1].InvoiceExists = false;
    const PaymentPostingEffect e = PaymentPosting(p, false);
    ASSERT_EQ(e.Invoices.size(), 1u);
    EXPECT_EQ(e.Invoices[0].ARInvoiceID, 7);
    EXPECT_EQ(Rows(e.Voucher), "1:11:-30.0000 2:10:30.0000");
}

} // namespace
} // namespace corvane::receivables
