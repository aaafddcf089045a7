#include "receivables/PaymentFixture.h"

#include "receivables/domain/LinesSnapshot.h"
#include "receivables/payments/domain/PaymentDocument.h"
#include "receivables/payments/domain/PaymentTexts.h"

namespace corvane::testing {
namespace {

using namespace receivables;
namespace text = payment_text;
using Kind = LineVerdict::Kind;

InvoiceDue Due(Money amount, Money owing, double discPC = 0, int discDays = 0) {
    InvoiceDue due;
    due.ARInvoiceID = 7;
    due.InvoiceNo = "2007";
    due.InvoiceDate = Date::FromYmd(2018, 3, 1);
    due.InvoiceAmount = amount;
    due.Owing = owing;
    due.DiscPC = discPC;
    due.DiscDays = discDays;
    due.Posted = true;
    return due;
}

bool AllExist(int, std::int64_t) {
    return true;
}

// The discount is taken on the whole invoice up to its last day and not after; the commands
// clear what they do not set.
TEST(PaymentLineRules, PayCommandsFollowTheDiscountDateAndClearWhatTheyDoNotSet) {
    const InvoiceDue due = Due(Money::FromCents(10050), Money::FromCents(10050), 2.0, 10);
    EXPECT_EQ(due.DiscountAmount(), Money::FromCents(201)); // 2% of 100.50 is 2.01
    EXPECT_EQ(due.DiscountDate(), Date::FromYmd(2018, 3, 11));
    AllocationLine line;
    line.WriteOffAmount = Money::FromCents(5);
    line.WriteOffGLAccountID = 47;
    PayDiscountIfEligible(line, due, Date::FromYmd(2018, 3, 11));
    EXPECT_EQ(line.PaymentAmount, Money::FromCents(9849));
    EXPECT_EQ(line.DiscTakenAmount, Money::FromCents(201));
    EXPECT_FALSE(line.WriteOffAmount);
    EXPECT_FALSE(line.WriteOffGLAccountID);
    PayDiscountIfEligible(line, due, Date::FromYmd(2018, 3, 12));
    EXPECT_EQ(line.PaymentAmount, Money::FromCents(10050));
    EXPECT_FALSE(line.DiscTakenAmount);
    WriteOffAll(line, due);
    EXPECT_FALSE(line.PaymentAmount);
    EXPECT_EQ(line.WriteOffAmount, Money::FromCents(10050));
    // No terms, no discount, whatever the date.
    const InvoiceDue plain = Due(Money::FromWhole(40), Money::FromWhole(25));
    EXPECT_FALSE(plain.DiscountAmount());
    PayTakeDiscount(line, plain);
    EXPECT_EQ(line.PaymentAmount, Money::FromWhole(25));
    EXPECT_FALSE(line.DiscTakenAmount);
}

// Each check of a line's save in its order, with the system's words and the column it puts the
// user in.
TEST(PaymentLineRules, ALineIsCheckedInOrderAndTheFirstFailureIsTheVerdict) {
    const InvoiceDue due = Due(Money::FromWhole(100), Money::FromWhole(100), 3.0, 10);
    AllocationLine line;
    LineVerdict v = ValidateLine(line, std::nullopt, AllExist);
    EXPECT_EQ(v.Message, text::LineInvoiceMissing);
    EXPECT_EQ(v.Column, 0);

    line.ARInvoiceID = 7;
    line.WriteOffAmount = Money::FromWhole(2);
    v = ValidateLine(line, due, AllExist);
    EXPECT_EQ(v.Message, text::LineWriteOffAccountMissing);
    EXPECT_EQ(v.Column, 6);

    line.WriteOffGLAccountID = 99;
    line.WriteOffSubAccountIDs[1] = 5;
    auto onlyKnown = [](int level, std::int64_t id) { return level == 0 ? id == 47 : id == 1; };
    EXPECT_EQ(ValidateLine(line, due, onlyKnown).Message, text::LineAccountNotFound);
    line.WriteOffGLAccountID = 47;
    v = ValidateLine(line, due, onlyKnown);
    EXPECT_EQ(v.Message, "Subaccount 2 not found...\nMake changes or press Esc to undo");
    EXPECT_EQ(v.Column, 8);
    line.WriteOffSubAccountIDs[1].reset();

    // A discount with the whole amount paid tells what the payment should be.
    line.PaymentAmount = Money::FromWhole(100);
    line.DiscTakenAmount = Money::FromWhole(3);
    EXPECT_EQ(ValidateLine(line, due, AllExist).Message,
              "Payment amount must equal amount owing less discount taken and any write-off:\n"
              "95.00 if discount is 3.00 and write-off is 2.00\n(Discount can only be taken if "
              "invoice is fully paid).\n\nMake changes or press Esc to undo");
    line.ClearWriteOff();
    EXPECT_EQ(ValidateLine(line, due, AllExist).Message,
              "Payment amount must equal amount owing less discount taken (and any write-off):\n"
              "97.00 if discount is 3.00\n(Discount can only be taken if invoice is fully "
              "paid).\n\nMake changes or press Esc to undo");
    line.PaymentAmount = Money::FromWhole(90);
    EXPECT_EQ(ValidateLine(line, due, AllExist).Message, text::DiscountNeedsFullPayment);
    line.PaymentAmount = Money::FromWhole(97);
    EXPECT_TRUE(ValidateLine(line, due, AllExist).Accepted());

    // An account with no write-off amount asks about the rest; No goes on.
    line.DiscTakenAmount.reset();
    line.PaymentAmount = Money::FromWhole(60);
    line.WriteOffGLAccountID = 47;
    v = ValidateLine(line, due, AllExist);
    EXPECT_EQ(v.Verdict, Kind::Question);
    EXPECT_EQ(v.Message, "Do you want to write off the remaining 40.00?");
    EXPECT_EQ(v.WriteOff, Money::FromWhole(40));
    EXPECT_EQ(v.Column, 5);
    EXPECT_TRUE(ValidateLine(line, due, AllExist, {true, false}).Accepted());

    // A write-off that leaves something owing is a warning, passed with OK.
    line.WriteOffAmount = Money::FromWhole(30);
    v = ValidateLine(line, due, AllExist);
    EXPECT_EQ(v.Verdict, Kind::Warning);
    EXPECT_EQ(v.Message, text::WriteOffDiffers);
    EXPECT_TRUE(ValidateLine(line, due, AllExist, {false, true}).Accepted());

    // Nothing else limits the amount: an overpayment and a negative line both pass.
    AllocationLine over;
    over.ARInvoiceID = 7;
    over.PaymentAmount = Money::FromWhole(150);
    EXPECT_TRUE(ValidateLine(over, due, AllExist).Accepted());
    over.PaymentAmount = -Money::FromWhole(20);
    EXPECT_TRUE(ValidateLine(over, due, AllExist).Accepted());
}

// The payment's checks in order, each with its field, up to the amount question that a Yes
// answers by filling in the total.
TEST_F(PaymentTest, APaymentIsCheckedInOrderUpToTheAmountQuestion) {
    PaymentHeader p;
    p.PaymentID = 1;
    p.PaidBy = 2;
    PaymentLinesTotal lines{2, Money::FromWhole(150)};
    auto verdict = [&](bool check = false) { return ValidatePayment(db_, p, lines, check); };
    EXPECT_EQ(verdict().Message, text::BankMissing);
    p.BankID = EuroBank;
    EXPECT_EQ(verdict().Message, text::CustomerMissing);
    EXPECT_EQ(verdict().Field, "CustomerID");
    p.CustomerID = Local;
    EXPECT_EQ(verdict().Message, text::ReferenceMissingCheque);
    EXPECT_EQ(verdict(true).Message, text::ReferenceMissingCheck);
    p.PaidBy = 1; // cash needs no reference
    EXPECT_EQ(verdict().Message, text::BankCurrency);
    p.BankID = 9;
    EXPECT_EQ(verdict().Message, text::BankGone);
    p.BankID = HomeBank;
    EXPECT_EQ(verdict().Message, text::DateMissing);
    p.PaymentDate = Date::FromYmd(2018, 3, 20);
    EXPECT_EQ(verdict().Message, text::YearMissing);
    p.GLYear = 2018;
    EXPECT_EQ(verdict().Message, text::PeriodMissing);
    p.GLPeriod = 3;
    p.GLYear = 2017;
    EXPECT_EQ(verdict().Message,
              "GL Period is prior to current fiscal year \nas defined by \"Your Company\"");
    p.GLYear = 2018;
    lines.Count = 0;
    EXPECT_EQ(verdict().Message, text::NoLines);
    EXPECT_EQ(verdict().Field, "Lines");
    lines.Count = 2;
    p.ChequeAmount = Money::FromWhole(100);
    EXPECT_EQ(verdict().Message,
              "Amount does not match the total of the invoice payments (Payment column): "
              "150.00\nIf the amount 100.00 is correct, decrease the invoice payment(s) by 50.00");
    p.ChequeAmount = Money::FromCents(1500050);
    EXPECT_EQ(verdict().Message,
              "Amount does not match the total of the invoice payments (Payment column): "
              "150.00\nIf the amount 15,000.50 is correct, increase the invoice payment(s) by "
              "14,850.50");
    p.ChequeAmount.reset();
    const PaymentVerdict question = verdict();
    EXPECT_EQ(question.Verdict, PaymentVerdict::Kind::Question);
    EXPECT_EQ(question.Message, "Amount is 150.00\nIs this correct?");
    EXPECT_EQ(question.Amount, Money::FromWhole(150));
    p.ChequeAmount = question.Amount;
    EXPECT_TRUE(verdict().Accepted());
    // A posted payment is not checked again.
    PaymentHeader posted;
    posted.Posted = true;
    EXPECT_TRUE(ValidatePayment(db_, posted, {}, false).Accepted());
}

// AutoCreate pays every posted invoice with something owing, in number order, with the discount
// where the date allows, replacing what was there; unposted ones are told and left out.
TEST_F(PaymentTest, AutoCreatePaysThePostedOpenInvoicesAndTellsOfTheUnposted) {
    AddPosted(3, Local, Money::FromWhole(100), 2.0, 30);
    AddPosted(1, Local, Money::FromWhole(50));
    AddPosted(2, Local, Money::FromWhole(70), 0, 0, Date::FromYmd(2018, 3, 1), false);
    AddPosted(4, Abroad, Money::FromWhole(80));
    AddPosted(5, Local, Money::FromWhole(10));
    Exec("UPDATE ARInv SET Owing = 0 WHERE ARInvoiceID = 5");
    AddPayment(9, Local, Money());
    AddLine(9, 5, 1, Money::FromWhole(1));
    ASSERT_TRUE(HasOutstandingInvoices(db_, Local));
    const AutoCreateResult r = AutoCreateLines(db_, 9, Local, Date::FromYmd(2018, 3, 20));
    EXPECT_EQ(r.Lines, 2);
    EXPECT_EQ(r.Total, Money::FromWhole(148)); // 50 + 100 less 2%
    EXPECT_EQ(r.Notices,
              std::vector<std::string>{
                  "Invoice no. '2002' was not included because it has not been posted yet."});
    store::Statement s(db_.Conn(),
                       "SELECT group_concat(ARInvoiceID || ':' || Seq || ':' || "
                       "ifnull(DiscTakenAmount, '-'), ' ') FROM (SELECT * FROM ARInvPmt WHERE "
                       "PaymentID = 9 ORDER BY Seq)");
    s.Step();
    EXPECT_EQ(s.ColumnValue(0, store::FieldType::String).Str(), "1:1:- 3:2:20000");
    const PaymentLinesTotal total = ReadLinesTotal(db_, 9);
    EXPECT_EQ(total.Count, 2);
    EXPECT_EQ(total.Total, Money::FromWhole(148));
    EXPECT_FALSE(HasOutstandingInvoices(db_, 99));
}

// A posted payment is never deleted; an unposted one goes with its lines. The question names the
// reference, or the customer when there is none.
TEST_F(PaymentTest, DeletingRemovesAnUnpostedPaymentWithItsLinesAndRefusesAPostedOne) {
    AddPosted(1, Local, Money::FromWhole(50));
    AddPayment(1, Local, Money::FromWhole(50), "");
    AddLine(1, 1, 1, Money::FromWhole(50));
    AddPayment(2, Local, Money::FromWhole(50), "A7");
    AddLine(2, 1, 1, Money::FromWhole(50));
    Exec("UPDATE ARPmt SET Posted = 1 WHERE PaymentID = 2");
    EXPECT_EQ(DeleteQuestion(db_, 1), "Delete payment for 'Local Ltd'?");
    EXPECT_EQ(DeleteQuestion(db_, 2), "Delete payment 'A7'?");
    EXPECT_EQ(DeletePayment(db_, 2).Message, text::PostedCannotDelete);
    EXPECT_TRUE(DeletePayment(db_, 1).Accepted());
    EXPECT_EQ(Count("SELECT count(*) FROM ARPmt"), 1);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvPmt"), 1);
    EXPECT_EQ(InvoiceAlreadyOnMessage(db_, 1), "Invoice '2001' is already on this payment");
    EXPECT_EQ(InvoiceAlreadyOnMessage(db_, 77), text::InvoiceAlreadyOn);
}

// A header saved and read back is the header; the bank follows the customer's currency.
TEST_F(PaymentTest, ASavedPaymentReadsBackAndTheBankFollowsTheCustomersCurrency) {
    PaymentHeader p;
    p.PaymentID = 4;
    p.ChequeNo = "88";
    p.CustomerID = Abroad;
    p.BankID = BankForCustomer(db_, Abroad, HomeBank);
    p.GLYear = 2018;
    p.GLPeriod = 3;
    p.PaymentDate = Date::FromYmd(2018, 3, 9);
    p.ChequeAmount = Money::FromCents(12345);
    SavePayment(db_, p);
    const auto back = ReadPayment(db_, 4);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->BankID, EuroBank);
    EXPECT_EQ(back->ChequeAmount, Money::FromCents(12345));
    EXPECT_EQ(back->PaymentDate, Date::FromYmd(2018, 3, 9));
    EXPECT_EQ(back->PaidBy, 2);
    EXPECT_EQ(BankForCustomer(db_, Local, std::nullopt), HomeBank);
    EXPECT_EQ(BankForCustomer(db_, Local, HomeBank), HomeBank);
    EXPECT_EQ(DefaultWriteOffAccount(db_, Abroad), WriteOffs);
    EXPECT_EQ(DrawPaymentID(db_, [](const std::string&) { return false; }), 1);
    EXPECT_EQ(DrawPaymentID(db_, [](const std::string&) { return false; }), 2);
}

// The lines as they stood before the first change come back on Cancel, and the ones written
// since go, whatever happened in between.
TEST_F(PaymentTest, ASnapshotPutsBackTheLinesAsTheyWere) {
    AddPosted(1, Local, Money::FromWhole(50));
    AddPosted(2, Local, Money::FromWhole(60));
    AddPayment(1, Local, Money::FromWhole(50));
    AddLine(1, 1, 1, Money::FromWhole(50), Money(), Money::FromWhole(1), OtherWriteOffs);
    LinesSnapshot snapshot;
    snapshot.Take(db_, "ARInvPmt", "PaymentID", store::Value(1));
    Exec("UPDATE ARInvPmt SET PaymentAmount = 7");
    snapshot.Take(db_, "ARInvPmt", "PaymentID", store::Value(1)); // the first one is kept
    AddLine(1, 2, 2, Money::FromWhole(60));
    snapshot.Restore(db_);
    EXPECT_FALSE(snapshot.Taken());
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvPmt"), 1);
    EXPECT_EQ(SumOf("SELECT PaymentAmount FROM ARInvPmt"), Money::FromWhole(50));
    EXPECT_EQ(Count("SELECT WriteOffGLAccountID FROM ARInvPmt"), OtherWriteOffs);
}

} // namespace
} // namespace corvane::testing
