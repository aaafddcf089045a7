#include "receivables/PaymentFixture.h"

#include "receivables/invoices/forms/TfrmARInvoice.h"
#include "receivables/invoices/forms/TfrmARInvoiceNotes.h"
#include "receivables/invoices/forms/TfrmARInvoicePayments.h"
#include "receivables/invoices/forms/TfrmARInvoices.h"
#include "receivables/invoices/forms/TfrmARInvoicesFilter.h"
#include "receivables/invoices/forms/TfrmARInvoicesFind.h"
#include "ui/FormDriver.h"

namespace corvane::testing {
namespace {

using namespace receivables;

// Five invoices: 2001 and 2002 of Local (2002 paid in full and so not outstanding), 2003 of
// Local not yet posted, 2004 and 2005 of Abroad in euros. Descriptions and line notes to find.
class InvoiceListTest : public PaymentTest {
protected:
    void SetUp() override {
        PaymentTest::SetUp();
        AddPosted(1, Local, C(10000));
        AddPosted(2, Local, C(5000));
        AddPosted(3, Local, C(3000), 0, 0, Date::FromYmd(2018, 3, 1), false);
        AddPosted(4, Abroad, C(8000));
        AddPosted(5, Abroad, C(2000));
        Exec("UPDATE ARInv SET Owing = 0 WHERE ARInvoiceID = 2");
        for (auto [id, text] : std::vector<std::pair<int, const char*>>{{1, "Spring fence repair"},
                                                                        {2, "Gate"},
                                                                        {3, "Fence paint"},
                                                                        {4, "Roof"},
                                                                        {5, "fence posts"}})
            store::Statement(db_.Conn(), "UPDATE ARInv SET Description = '" + std::string(text) +
                                             "' WHERE ARInvoiceID = " + std::to_string(id))
                .Step();
        InsertRow("ARInvDet", {{"ARInvoiceID", 4},
                               {"Seq", 1},
                               {"Quantity", 1.0},
                               {"ItemID", Service},
                               {"Notes", "Ladder left on site"}});
        InsertRow("ARInvDet", {{"ARInvoiceID", 1},
                               {"Seq", 1},
                               {"Quantity", 1.0},
                               {"ItemID", Service},
                               {"Notes", "Needs a LADDER"}});
    }
    TfrmARInvoices& List() {
        auto& list = app.SingleForm<TfrmARInvoices>(db_);
        list.Show();
        list.mnuSortInvoiceNo.Click();
        return list;
    }
    std::string Numbers(TfrmARInvoices& list) {
        std::string numbers;
        for (list.tblARInv.First(); !list.tblARInv.Eof(); list.tblARInv.Next())
            numbers +=
                (numbers.empty() ? "" : ",") + list.tblARInv.FieldByName("InvoiceNo").AsString();
        list.tblARInv.First();
        return numbers;
    }
    std::string At(TfrmARInvoices& list) {
        return list.tblARInv.FieldByName("InvoiceNo").AsString();
    }
};

// The filter's customer, currency and posted choices, alone and with the outstanding view.
TEST_F(InvoiceListTest, TheFilterNarrowsByCustomerCurrencyAndPostedAndJoinsTheOutstandingView) {
    TfrmARInvoices& list = List();
    ui::FormDriver d(list);
    host.ScriptModal("frmARInvoicesFilter", [](ui::Form& form) {
        ui::FormDriver f(form);
        f.Choose("cboCustomer", "Local Ltd");
        f.Choose("rgPosted", "&Yes");
        f.Click("btnOK");
    });
    app.Run([&] { d.Click("mnuFilter"); });
    EXPECT_EQ(list.Caption, "AR Invoices (Filtered)");
    EXPECT_EQ(Numbers(list), "2001,2002");
    app.Run([&] { d.Click("mnuOutstanding"); });
    EXPECT_EQ(list.Caption, "AR Invoices (Outstanding, Filtered)");
    EXPECT_EQ(list.tblARInv.Filter(), "(CustomerID = 1) AND (Posted = true) AND (Owing <> 0)");
    EXPECT_EQ(Numbers(list), "2001");

    host.ScriptModal("frmARInvoicesFilter", [](ui::Form& form) {
        ui::FormDriver f(form);
        f.Click("btnReset");
        f.Choose("cboCurrency", "Euros");
        f.Choose("rgPosted", "&All");
        f.Click("btnOK");
    });
    app.Run([&] { d.Click("mnuFilter"); });
    EXPECT_EQ(Numbers(list), "2004,2005");
    app.Run([&] { d.Click("mnuOutstanding"); });
    EXPECT_EQ(list.Caption, "AR Invoices (Filtered)");
    EXPECT_EQ(list.tblARInv.Filter(), "(CurrencyID = 2)");
}

// By number exactly; by a piece of the description or of a line's notes from the present
// invoice onwards, going on past a find when asked again, with the words for none and no more.
TEST_F(InvoiceListTest, FindGoesByNumberAndByPiecesOfDescriptionAndNotesFromThePresentRow) {
    TfrmARInvoices& list = List();
    auto& find = app.SingleForm<TfrmARInvoicesFind>(list);
    ui::FormDriver f(find);
    auto search = [&](const char* edit, const char* text) {
        for (const char* each : {"editInvoiceNo", "editDescription", "editNotes"})
            find.Get<ui::Edit>(each).SetText(each == std::string(edit) ? text : "");
        app.Run([&] { f.Click("btnOK"); });
    };
    search("editInvoiceNo", "2004");
    EXPECT_EQ(At(list), "2004");
    search("editInvoiceNo", "2009");
    EXPECT_EQ(dialogs.LastText(), "Invoice '2009' not found");
    EXPECT_EQ(At(list), "2004");

    list.tblARInv.First();
    search("editDescription", "FENCE");
    EXPECT_EQ(At(list), "2001");
    search("editDescription", "FENCE");
    EXPECT_EQ(At(list), "2003");
    search("editDescription", "FENCE");
    EXPECT_EQ(At(list), "2005");
    search("editDescription", "FENCE");
    EXPECT_EQ(dialogs.LastText(), "No more invoices with 'FENCE' in description found");
    EXPECT_EQ(At(list), "2005");
    // From a row after every match there is none to be found at all.
    search("editDescription", "gate");
    EXPECT_EQ(dialogs.LastText(), "No invoices with 'gate' in description found");

    list.tblARInv.First();
    search("editNotes", "ladder");
    EXPECT_EQ(At(list), "2001");
    search("editNotes", "ladder");
    EXPECT_EQ(At(list), "2004");
    search("editNotes", "ladder");
    EXPECT_EQ(dialogs.LastText(), "No more invoices with 'ladder' in notes found");
    search("editNotes", "scaffold");
    EXPECT_EQ(dialogs.LastText(), "No invoices with 'scaffold' in notes found");
    EXPECT_EQ(At(list), "2004");
}

// Phone and mail go to the customer of the invoice on the list.
TEST_F(InvoiceListTest, TheCustomerCommandsFollowTheInvoiceOnTheList) {
    Exec("UPDATE Customer SET Phone = '555-0199' WHERE CustomerID = 2");
    TfrmARInvoices& list = List();
    ui::FormDriver d(list);
    ASSERT_TRUE(list.tblARInv.Locate("InvoiceNo", {store::Value("2004")}));
    EXPECT_TRUE(d.Enabled("popPhone"));
    EXPECT_FALSE(d.Enabled("popEMail"));
    app.Run([&] { d.Click("popPhone"); });
    EXPECT_EQ(desktop.Calls().back(), "OpenUrl tel:555-0199");
    ASSERT_TRUE(list.tblARInv.Locate("InvoiceNo", {store::Value("2001")}));
    EXPECT_FALSE(d.Enabled("popPhone"));
}

// Payment(s): refused for an unposted invoice with the words for a point-of-sale amount or
// none, refused for a posted one without payments, and otherwise the list of what was applied.
TEST_F(InvoiceListTest, PaymentsShowWhatWasAppliedToThePostedInvoice) {
    AddPayment(7, Local, C(6000), "CHQ7");
    AddLine(7, 1, 1, C(6000));
    AddPayment(8, Local, C(4000), "", 1, Date::FromYmd(2018, 3, 25));
    AddLine(8, 1, 1, C(3900), C(100));
    Exec("UPDATE ARInv SET POSPmtAmount = 1000000 WHERE ARInvoiceID = 3");
    TfrmARInvoices& list = List();
    ui::FormDriver d(list);
    ASSERT_TRUE(list.tblARInv.Locate("InvoiceNo", {store::Value("2003")}));
    app.Run([&] { d.Click("mnuPayments"); });
    EXPECT_EQ(dialogs.LastText(),
              "POS Payment not yet created because invoice '2003' not yet posted.");
    ASSERT_TRUE(list.tblARInv.Locate("InvoiceNo", {store::Value("2004")}));
    app.Run([&] { d.Click("mnuPayments"); });
    EXPECT_EQ(dialogs.LastText(), "No payments exist for invoice '2004'.");
    ASSERT_TRUE(list.tblARInv.Locate("InvoiceNo", {store::Value("2001")}));
    app.Run([&] { d.Click("mnuPayments"); });
    auto* payments = dynamic_cast<TfrmARInvoicePayments*>(app.FindForm("frmARInvoicePayments"));
    ASSERT_NE(payments, nullptr);
    EXPECT_TRUE(payments->Visible());
    EXPECT_TRUE(payments->StayOnTop);
    EXPECT_EQ(payments->Caption, "Payment(s) for invoice 2001");
    ui::FormDriver p(*payments);
    EXPECT_EQ(payments->grdPayments.RowCount(), 2);
    EXPECT_EQ(payments->grdPayments.Text(), "20 Mar 18 | CHQ7 | Cheque | 60.00 | 60.00 |  | ");
    payments->qryPayments.Next();
    EXPECT_EQ(payments->grdPayments.Text(), "25 Mar 18 |  | Cash | 40.00 | 39.00 | 1.00 | ");
}

// A key in a line's notes opens the notes pop-up with the key added: Ctrl+Enter keeps what it
// holds (the line stays in edit, as after typing into the cell), Esc leaves the line as it was.
TEST_F(InvoiceListTest, TheNotesPopUpKeepsWhatCtrlEnterKeepsAndEscLeavesTheLine) {
    InsertRow("ARInvDet", {{"ARInvoiceID", 3},
                           {"Seq", 1},
                           {"Quantity", 2.0},
                           {"ItemID", Service},
                           {"UnitPrice", C(1500)},
                           {"Notes", "Old"}});
    auto& form = app.SingleForm<TfrmARInvoice>(db_);
    ASSERT_TRUE(form.EntryTable.Locate("ARInvoiceID", {store::Value(3)}));
    form.EntryTable.Edit();
    form.Show();
    ui::FormDriver d(form);
    d.Focus("grdLines");
    form.grdLines.SelectColumn(8);
    std::string seen;
    host.ScriptModal("frmARInvoiceNotes", [&seen](ui::Form& pop) {
        auto& notes = dynamic_cast<TfrmARInvoiceNotes&>(pop);
        seen = notes.memoNotes.Text();
        ui::FormDriver p(pop);
        p.Type("\nsecond line");
        p.PressKey(ui::Ctrl(ui::Key::Enter));
    });
    app.Run([&] { d.Type("!"); });
    EXPECT_EQ(seen, "Old!");
    EXPECT_EQ(form.tblARInvDet.FieldByName("Notes").AsString(), "Old!\nsecond line");
    EXPECT_EQ(form.tblARInvDet.State(), store::DataSetState::Edit);

    host.ScriptModal("frmARInvoiceNotes", [](ui::Form& pop) {
        ui::FormDriver p(pop);
        p.Type(" lost");
        p.PressKey(ui::KeyStroke{ui::Key::Escape, {}});
    });
    app.Run([&] { d.Type("?"); });
    EXPECT_EQ(form.tblARInvDet.FieldByName("Notes").AsString(), "Old!\nsecond line");
    form.CancelAndClose();
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvDet WHERE ARInvoiceID = 3 AND Notes = 'Old'"), 1);
}

} // namespace
} // namespace corvane::testing
