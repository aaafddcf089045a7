#include "receivables/InvoiceFixture.h"

#include "receivables/invoices/InvoiceTexts.h"
#include "receivables/invoices/forms/TfrmARInvoice.h"
#include "receivables/invoices/forms/TfrmARInvoicePOSPmt.h"
#include "receivables/invoices/forms/TfrmARInvoices.h"
#include "ui/FormDriver.h"

namespace corvane::testing {
namespace {

using namespace receivables;
namespace text = invoice_text;

class InvoiceFormTest : public InvoiceTest {
protected:
    void SetUp() override {
        InvoiceTest::SetUp();
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Seller"},
                              {"FiscalYear", 2018},
                              {"DefaultPeriodYYYY", 2018},
                              {"DefaultPeriodPP", 3}});
        InsertRow("ARInvCtl", {{"NextInvoiceID", 100}, {"NextInvoiceNo", 5001}});
    }

    TfrmARInvoice& NewInvoiceForm() {
        auto& form = app.SingleForm<TfrmARInvoice>(db_);
        form.EntryTable.Insert();
        form.Show();
        return form;
    }

    void TypeLine(ui::FormDriver& d, const std::string& qty, const std::string& item) {
        d.EnterCell("grdLines", "ItemID", item);
        d.EnterCell("grdLines", "Quantity", qty);
    }
};

// A new invoice with lines of two taxes: prices come from the items, the tax line and amount
// follow each line, the caption follows the customer, and the saved invoice is what posting
// expects.
TEST_F(InvoiceFormTest, LinesTypedIntoTheGridKeepTheTaxesAndAmountAndTheInvoiceSaves) {
    TfrmARInvoice& form = NewInvoiceForm();
    ui::FormDriver d(form);
    EXPECT_EQ(form.Caption, "New Invoice");
    EXPECT_EQ(form.tblARInv.FieldByName("InvoiceNo").AsString(), "5001");
    EXPECT_EQ(form.tblARInv.FieldByName("GLPeriod").AsInteger(), 3);
    // The period and its year stand at the right, as numbers do.
    EXPECT_TRUE(form.editPeriod.RightAligned());
    EXPECT_TRUE(form.editYear.RightAligned());
    app.Run([&] {
        d.EnterText("editCustomerNo", "C1");
        d.Focus("editDescription");
    });
    EXPECT_EQ(form.Caption, "Invoice 5001 - Local Ltd");
    EXPECT_EQ(form.lblShipTo.Caption, "Same");
    EXPECT_EQ(form.lblTerms.Caption, "Net 0");
    app.Run([&] {
        TypeLine(d, "2", "SVC");
        d.EnterCell("grdLines", "PercentDiscount", "10");
        form.tblARInvDet.Append();
        TypeLine(d, "3", "WIDGET");
        form.tblARInvDet.Post();
    });
    EXPECT_EQ(dialogs.LastText(), "");
    // 2 x 18.00 (20.00 less 10%) + 3 x 20.00 = 96.00; GST 4.80, PST on 36.00 is 2.88.
    EXPECT_EQ(form.lblTax.Caption, "GST: 4.80     PST: 2.88     ");
    EXPECT_EQ(form.tblARInv.FieldByName("InvoiceAmount").AsMoney(), C(10368));
    app.Run([&] { d.Click("btnOK"); });
    EXPECT_EQ(dialogs.LastText(), "");
    EXPECT_EQ(SumOf("SELECT InvoiceAmount FROM ARInv WHERE InvoiceNo = '5001'"), C(10368));
    EXPECT_EQ(SumOf("SELECT Owing FROM ARInv WHERE InvoiceNo = '5001'"), C(10368));
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvDet WHERE ARInvoiceID = 100"), 2);
    EXPECT_EQ(SumOf("SELECT UnitPrice FROM ARInvDet WHERE Seq = 1"), C(1800));
}

TEST_F(InvoiceFormTest, ASaveIsRefusedWithTheSystemsWordsAndTheFocusOnTheField) {
    TfrmARInvoice& form = NewInvoiceForm();
    ui::FormDriver d(form);
    app.Run([&] { d.Click("btnOK"); });
    EXPECT_EQ(dialogs.LastText(), text::CustomerMissing);
    EXPECT_EQ(form.ActiveControl(), &form.editCustomerNo);
    app.Run([&] {
        d.EnterText("editCustomerNo", "C1");
        d.Click("btnOK");
    });
    EXPECT_EQ(dialogs.LastText(), text::NoLines);
    app.Run([&] {
        d.EnterText("editCustomerNo", "NOPE");
        d.Focus("editDescription");
    });
    EXPECT_EQ(dialogs.LastText(), text::CustomerNotFound);
    app.Run([&] {
        d.EnterText("editCustomerNo", "C1");
        d.Focus("editDescription");
    });
    // A key in a read-only amount answers with its reason.
    app.Run([&] { d.EnterText("editInvoiceAmount", "5"); });
    EXPECT_EQ(dialogs.LastText(), "Invoice Amount is read-only...\n\nThe invoice amount is "
                                  "calculated based on the item totals and any taxes.");
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv"), 0);
}

// Lines are written as they are typed; Cancel on an edited invoice puts back the lines it had,
// and a cancelled new invoice leaves none.
TEST_F(InvoiceFormTest, CancelPutsBackTheLinesOfAnEditedInvoiceAndLeavesNoneOfANewOne) {
    AddInvoice(1, Local, {{2, C(5000), Service}, {3, C(2000), Widget}});
    auto& form = app.SingleForm<TfrmARInvoice>(db_);
    ASSERT_TRUE(form.EntryTable.Locate("ARInvoiceID", {store::Value(1)}));
    form.EntryTable.Edit();
    form.Show();
    ui::FormDriver d(form);
    app.Run([&] {
        form.tblARInvDet.First();
        d.EnterCell("grdLines", "Quantity", "7");
        form.tblARInvDet.Post();
        form.tblARInvDet.Last();
        form.tblARInvDet.Delete();
    });
    EXPECT_EQ(dialogs.LastText(), "");
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvDet WHERE ARInvoiceID = 1"), 1);
    app.Run([&] { d.Click("btnCancel"); });
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvDet WHERE ARInvoiceID = 1"), 2);
    EXPECT_EQ(Count("SELECT Quantity FROM ARInvDet WHERE ARInvoiceID = 1 AND Seq = 1"), 2);

    TfrmARInvoice& fresh = NewInvoiceForm();
    ui::FormDriver n(fresh);
    app.Run([&] {
        n.EnterText("editCustomerNo", "C1");
        TypeLine(n, "1", "SVC");
        fresh.tblARInvDet.Post();
    });
    EXPECT_EQ(dialogs.LastText(), "");
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvDet"), 3);
    app.Run([&] { n.Click("btnCancel"); });
    EXPECT_EQ(dialogs.LastText(), "");
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvDet WHERE ARInvoiceID = 100"), 0);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvDet"), 2);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv"), 1);
}

// C.O.D. terms want the whole amount paid at the point of sale: the save opens the pop-up, whose
// own checks speak in turn, and its OK makes the invoice paid.
TEST_F(InvoiceFormTest, CodTermsOpenThePointOfSalePopUpWhichChecksAndPaysTheInvoice) {
    store::Statement(db_.Conn(), "UPDATE Customer SET COD = 1 WHERE CustomerID = 1").Step();
    TfrmARInvoice& form = NewInvoiceForm();
    ui::FormDriver d(form);
    bool popped = false;
    form.OpenPayment = [&] {
        popped = true;
        auto& pop = app.CreateForm<TfrmARInvoicePOSPmt>(db_, form);
        ui::FormDriver p(pop);
        EXPECT_EQ(pop.Caption, "POS Payment");
        EXPECT_EQ(pop.lblCurrency.Caption, "Dollars");
        p.Choose("cboPaidBy", "Cheque"); // the amount becomes the invoice's
        p.Click("btnOK");
        EXPECT_EQ(dialogs.LastText(), text::ReferenceMissingCheque);
        p.EnterText("editReference", "431");
        p.Click("btnOK");
        EXPECT_EQ(dialogs.LastText(), text::BankMissing);
        p.Choose("cboBank", "First Bank");
        p.Click("btnOK");
        app.FreeForm(pop);
    };
    app.Run([&] {
        d.EnterText("editCustomerNo", "C1");
        TypeLine(d, "1", "WIDGET");
        d.Click("btnOK");
    });
    EXPECT_TRUE(popped);
    EXPECT_EQ(form.tblARInv.FieldByName("PaidAmount").AsMoney(), C(2100));
    EXPECT_EQ(form.tblARInv.FieldByName("Owing").AsMoney(), Money());
    app.Run([&] { d.Click("btnOK"); });
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv WHERE POSPmtAmount = 210000 AND POSPmtPaidBy = 2 "
                    "AND POSPmtReference = '431' AND POSPmtBankID = 1 AND Owing = 0"),
              1);
}

TEST_F(InvoiceFormTest, TheListShowsItsFourCaptionsAndRefusesToDeleteAPostedInvoice) {
    AddInvoice(1, Local, {{1, C(1000), Service}});
    AddInvoice(2, Local, {{1, C(1000), Service}});
    store::Statement(db_.Conn(), "UPDATE ARInv SET Owing = 0 WHERE ARInvoiceID = 2").Step();
    store::Statement(db_.Conn(), "UPDATE ARInv SET Posted = 1 WHERE ARInvoiceID = 1").Step();
    auto& list = app.SingleForm<TfrmARInvoices>(db_);
    list.Show();
    EXPECT_EQ(list.Caption, "AR Invoices");
    EXPECT_EQ(list.tblARInv.RecordCount(), 2);
    ui::FormDriver d(list);
    d.Click("mnuOutstanding");
    EXPECT_EQ(list.Caption, "AR Invoices (Outstanding)");
    EXPECT_EQ(list.tblARInv.RecordCount(), 1);
    list.mnuFilter.SetChecked(true);
    EXPECT_EQ(list.CaptionNow(), "AR Invoices (Outstanding, Filtered)");
    list.mnuOutstanding.SetChecked(false);
    EXPECT_EQ(list.CaptionNow(), "AR Invoices (Filtered)");
    list.mnuFilter.SetChecked(false);
    d.Click("mnuOutstanding");
    d.Click("mnuOutstanding");
    EXPECT_EQ(list.tblARInv.RecordCount(), 2);
    ASSERT_TRUE(list.tblARInv.Locate("ARInvoiceID", {store::Value(1)}));
    EXPECT_EQ(list.tblARInv.FieldByName("Periodppyyyy").AsString(), "03/2018");
    EXPECT_EQ(list.tblARInv.FieldByName("CustomerName").AsString(), "Local Ltd");
    dialogs.Answer("Delete invoice '1001'?", ui::mbYes);
    app.Run([&] { d.Click("mnuDelete"); });
    EXPECT_EQ(dialogs.LastText(), text::PostedCannotDelete);
    app.Run([&] { d.Click("mnuPayments"); });
    EXPECT_EQ(dialogs.LastText(), "No payments exist for invoice '1001'.");
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv"), 2);
}

} // namespace
} // namespace corvane::testing
