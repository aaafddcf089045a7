#include "receivables/PaymentFixture.h"

#include "receivables/payments/domain/PaymentTexts.h"
#include "receivables/payments/forms/TfrmARPayment.h"
#include "receivables/payments/forms/TfrmARPayments.h"
#include "receivables/posting/TfrmARPaymentsPost.h"
#include "ui/FormDriver.h"

namespace corvane::testing {
namespace {

using namespace receivables;
namespace text = payment_text;

class PaymentFormTest : public PaymentTest {
protected:
    void SetUp() override {
        PaymentTest::SetUp();
        Exec("UPDATE ARPmtCtl SET NextPaymentID = 40");
        // Today's date decides the discount: the terms run long enough to hold whenever the
        // test runs.
        AddPosted(1, Local, C(10000), 2.0, 30000);
        AddPosted(2, Local, C(5000));
        AddPosted(3, Local, C(3000), 0, 0, Date::FromYmd(2018, 3, 1), false);
        AddPosted(4, Abroad, C(8000));
    }

    TfrmARPayment& NewPaymentForm() {
        auto& form = app.SingleForm<TfrmARPayment>(db_);
        form.EntryTable.Insert();
        form.Show();
        return form;
    }
    TfrmARPayment& EditPaymentForm(int id) {
        auto& form = app.SingleForm<TfrmARPayment>(db_);
        EXPECT_TRUE(form.EntryTable.Locate("PaymentID", {store::Value(id)}));
        form.EntryTable.Edit();
        form.Show();
        return form;
    }
    std::string StoredLines(int payment) {
        store::Statement s(db_.Conn(),
                           "SELECT group_concat(ARInvoiceID || ':' || ifnull(PaymentAmount, '-') "
                           "|| ':' || ifnull(DiscTakenAmount, '-'), ' ') FROM (SELECT * FROM "
                           "ARInvPmt WHERE PaymentID = " +
                               std::to_string(payment) + " ORDER BY Seq)");
        s.Step();
        store::Value v = s.ColumnValue(0, store::FieldType::String);
        return v.IsNull() ? "" : v.Str();
    }
};

// A new payment: its id drawn, the bank following the customer's currency, AutoCreate over the
// posted open invoices with the discount where it may be taken, and the amount left empty filled
// in by the first OK and saved by the second. No invoice owes less for it.
TEST_F(PaymentFormTest, ANewPaymentAllocatesAutomaticallyAndTheFirstOKFillsInTheAmount) {
    TfrmARPayment& form = NewPaymentForm();
    ui::FormDriver d(form);
    EXPECT_EQ(form.Caption, "New Payment");
    EXPECT_EQ(form.tblARPmt.FieldByName("PaymentID").AsInteger(), 40);
    EXPECT_EQ(d.Text("cboPaidBy"), "Cheque");
    app.Run([&] { d.Click("btnOK"); });
    EXPECT_EQ(dialogs.LastText(), text::BankMissing);
    EXPECT_EQ(form.ActiveControl(), &form.cboBank);
    app.Run([&] {
        d.EnterText("editCustomerNo", "C1");
        d.Focus("editChequeNo");
    });
    EXPECT_EQ(form.lblCustomerName.Caption, "Local Ltd");
    EXPECT_EQ(form.tblARPmt.FieldByName("BankID").AsInteger(), HomeBank);
    app.Run([&] { d.Click("btnAutoCreate"); });
    EXPECT_EQ(dialogs.LastText(),
              "Invoice no. '2003' was not included because it has not been posted yet.");
    EXPECT_EQ(StoredLines(40), "1:980000:20000 2:500000:-");
    EXPECT_EQ(form.lblTotal.Caption, "148.00");
    app.Run([&] { d.Click("btnOK"); });
    EXPECT_EQ(dialogs.LastText(), text::ReferenceMissingCheque);
    EXPECT_EQ(form.ActiveControl(), &form.editChequeNo);
    dialogs.Answer(ui::mbYes);
    app.Run([&] {
        d.EnterText("editChequeNo", "553");
        d.Click("btnOK");
    });
    EXPECT_EQ(dialogs.LastText(), "Amount is 148.00\nIs this correct?");
    EXPECT_EQ(form.tblARPmt.FieldByName("ChequeAmount").AsMoney(), C(14800));
    EXPECT_EQ(form.ActiveControl(), &form.editAmount);
    EXPECT_EQ(Count("SELECT count(*) FROM ARPmt"), 0);
    app.Run([&] { d.Click("btnOK"); });
    EXPECT_EQ(SumOf("SELECT ChequeAmount FROM ARPmt WHERE PaymentID = 40"), C(14800));
    EXPECT_EQ(Count("SELECT count(*) FROM ARPmt WHERE ChequeNo = '553' AND Posted = 0 AND "
                    "PaidBy = 2 AND BankID = 1"),
              1);
    EXPECT_EQ(Owing(1), C(10000));
    EXPECT_EQ(Owing(2), C(5000));
}

// Lines typed into the grid: an invoice by its number, paid with its discount, refused a second
// time on the same payment, its discount refused when the payment does not settle the invoice,
// and the rest written off after the question.
TEST_F(PaymentFormTest, LinesAreCheckedAsTheyAreSavedWithTheQuestionsOfTheWriteOff) {
    TfrmARPayment& form = NewPaymentForm();
    ui::FormDriver d(form);
    app.Run([&] {
        d.EnterText("editCustomerNo", "C1");
        d.Focus("editChequeNo");
        d.EnterCell("grdLines", "ARInvoiceID", "2001");
    });
    EXPECT_EQ(dialogs.LastText(), "");
    EXPECT_EQ(d.Text("cboBank"), "First Bank");
    EXPECT_EQ(form.tblARInvPmt.FieldByName("PaymentAmount").AsMoney(), C(9800));
    EXPECT_EQ(form.tblARInvPmt.FieldByName("DiscTakenAmount").AsMoney(), C(200));
    app.Run([&] {
        d.EnterCell("grdLines", "PaymentAmount", "90");
        form.tblARInvPmt.Post();
    });
    EXPECT_EQ(dialogs.LastText(), text::DiscountNeedsFullPayment);
    dialogs.ClearShown();
    app.Run([&] {
        d.EnterCell("grdLines", "PaymentAmount", "98");
        form.tblARInvPmt.Post();
    });
    EXPECT_EQ(dialogs.LastText(), "");
    EXPECT_EQ(form.LinesTotal(), C(9800));
    // The same invoice again is refused; a typed number the chooser would not offer too.
    app.Run([&] {
        form.tblARInvPmt.Append();
        d.EnterCell("grdLines", "ARInvoiceID", "2001");
    });
    EXPECT_EQ(dialogs.LastText(), "Invoice '2001' is already on this payment");
    app.Run([&] { d.EnterCell("grdLines", "ARInvoiceID", "2004"); });
    EXPECT_EQ(dialogs.LastText(), "Invoice '2004' not found");
    // Part of the second invoice paid, the rest written off on the question.
    dialogs.Answer("Do you want to write off the remaining 10.00?", ui::mbYes);
    app.Run([&] {
        d.EnterCell("grdLines", "ARInvoiceID", "2002");
        d.EnterCell("grdLines", "PaymentAmount", "40");
        d.EnterCell("grdLines", "WriteOffGLAccountID", "4800");
        form.tblARInvPmt.Post();
    });
    EXPECT_EQ(form.tblARInvPmt.FieldByName("WriteOffAmount").AsMoney(), C(1000));
    app.Run([&] { form.tblARInvPmt.Post(); });
    EXPECT_EQ(Count("SELECT WriteOffGLAccountID FROM ARInvPmt WHERE ARInvoiceID = 2"),
              OtherWriteOffs);
    EXPECT_EQ(form.LinesTotal(), C(13800));
    // With lines on the payment the customer stays.
    app.Run([&] {
        d.EnterText("editCustomerNo", "C2");
        d.Focus("editChequeNo");
    });
    EXPECT_EQ(dialogs.LastText(), text::CustomerFixed);
    // An amount that does not match the lines says by how much.
    app.Run([&] {
        d.EnterText("editCustomerNo", "C1");
        d.EnterText("editChequeNo", "77");
        d.EnterText("editAmount", "150");
        d.Click("btnOK");
    });
    EXPECT_EQ(dialogs.LastText(),
              "Amount does not match the total of the invoice payments (Payment column): "
              "138.00\nIf the amount 150.00 is correct, increase the invoice payment(s) by 12.00");
    EXPECT_EQ(form.ActiveControl(), &form.editAmount);
}

// Cancel on an edited payment puts back the lines it had before, whatever was typed since; the
// invoices never changed.
TEST_F(PaymentFormTest, CancelPutsBackTheAllocationAndOwingNeverMoves) {
    AddPayment(7, Local, C(15000), "Q7");
    AddLine(7, 1, 1, C(10000));
    AddLine(7, 2, 2, C(5000));
    TfrmARPayment& form = EditPaymentForm(7);
    ui::FormDriver d(form);
    EXPECT_EQ(form.Caption, "Payment Q7");
    EXPECT_EQ(form.LinesTotal(), C(15000));
    app.Run([&] {
        form.tblARInvPmt.First();
        d.EnterCell("grdLines", "PaymentAmount", "1");
        form.tblARInvPmt.Post();
        form.tblARInvPmt.Last();
        form.tblARInvPmt.Delete();
    });
    EXPECT_EQ(dialogs.LastText(), "");
    EXPECT_EQ(StoredLines(7), "1:10000:-");
    EXPECT_EQ(form.LinesTotal(), C(100));
    app.Run([&] { d.Click("btnCancel"); });
    EXPECT_EQ(StoredLines(7), "1:1000000:- 2:500000:-");
    EXPECT_EQ(Owing(1), C(10000));
    EXPECT_EQ(Owing(2), C(5000));
}

// The list: its captions, deleting through the document's rules, a posted payment refusing a
// change, and Post through the posting form.
TEST_F(PaymentFormTest, TheListDeletesPostsAndShowsWhatIsOutstanding) {
    AddPayment(7, Local, C(5000), "");
    AddLine(7, 2, 1, C(5000));
    AddPayment(8, Local, C(10000), "P8");
    AddLine(8, 1, 1, C(10000));
    Exec("UPDATE ARPmt SET Posted = 1 WHERE PaymentID = 8");
    auto& list = app.SingleForm<TfrmARPayments>(db_);
    list.Show();
    ui::FormDriver d(list);
    EXPECT_EQ(list.Caption, "AR Payments");
    app.Run([&] { d.Click("mnuOutstanding"); });
    EXPECT_EQ(list.Caption, "AR Payments (Outstanding)");
    ASSERT_TRUE(list.tblARPmt.Locate("PaymentID", {store::Value(8)}));
    app.Run([&] { d.Click("mnuEdit"); });
    EXPECT_EQ(dialogs.LastText(), text::PostedCannotChange);
    dialogs.Answer("Delete payment 'P8'?", ui::mbYes);
    app.Run([&] { d.Click("mnuDelete"); });
    EXPECT_EQ(dialogs.LastText(), text::PostedCannotDelete);
    ASSERT_TRUE(list.tblARPmt.Locate("PaymentID", {store::Value(7)}));
    dialogs.Answer("Delete payment for 'Local Ltd'?", ui::mbYes);
    app.Run([&] { d.Click("mnuDelete"); });
    EXPECT_EQ(Count("SELECT count(*) FROM ARPmt"), 1);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvPmt"), 1);

    // The posting form counts what waits and refuses while a payment is open.
    AddPayment(9, Local, C(5000), "P9");
    AddLine(9, 2, 1, C(5000));
    auto& post = app.CreateForm<TfrmARPaymentsPost>(db_);
    EXPECT_EQ(post.lblCount.Caption, "1 payment(s) to be posted");
    auto& open = NewPaymentForm();
    app.Run([&] { ui::FormDriver(post).Click("btnOK"); });
    EXPECT_EQ(dialogs.LastText(), TfrmARPaymentsPost::ConflictMessage);
    open.CancelAndClose();
    app.Run([&] { ui::FormDriver(post).Click("btnOK"); });
    EXPECT_EQ(Owing(2), Money());
    EXPECT_EQ(Count("SELECT Posted FROM ARPmt WHERE PaymentID = 9"), 1);
}

} // namespace
} // namespace corvane::testing
