#include "VoucherFixture.h"
#include "ledger/domain/VoucherNumbering.h"
#include "ledger/domain/VoucherTexts.h"

using namespace corvane;
using corvane::testing::VoucherTest;
namespace text = corvane::ledger::voucher_text;

using JVNumbering = VoucherTest;
using JVSave = VoucherTest;
using JVLines = VoucherTest;
using JVForm = VoucherTest;

TEST_F(JVNumbering, AFreshCompanyStartsAt1001AndTheLastNumberRestartsTheSeries) {
    ledger::VoucherKeys first = ledger::TakeVoucherKeys(db_, {}).value();
    EXPECT_EQ(first.JVNumber, 1001);
    ledger::VoucherKeys second = ledger::TakeVoucherKeys(db_, {}).value();
    EXPECT_EQ(second.JVNumber, 1002);
    EXPECT_EQ(second.JVID, first.JVID + 1);
    EXPECT_EQ(CountRows("JVCtl"), 1);
}

TEST_F(JVNumbering, TenMillionIsStillGivenThenTheNextStartsAgain) {
    SetNextNumber(10000000);
    ledger::TfrmJV& form = NewVoucherForm();
    EXPECT_EQ(form.tblJV.FieldByName("JVNumber").AsInteger(), 10000000);
    EXPECT_EQ(form.tblJV.FieldByName("JVID").AsInteger(), 50);
    form.Close(); // nobody typed: the number stays used
    EXPECT_FALSE(VoucherFormOpen());
    EXPECT_EQ(CountRows("JV"), 0);
    ledger::TfrmJV& next = NewVoucherForm();
    EXPECT_EQ(next.tblJV.FieldByName("JVNumber").AsInteger(), 1001);
    EXPECT_EQ(next.tblJV.FieldByName("JVID").AsInteger(), 51);
}

TEST_F(JVForm, ANewVoucherTakesItsDefaultsAndItsCaptionFollowsTheDescription) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    EXPECT_EQ(form.Caption, "New Journal Voucher");
    EXPECT_EQ(form.tblJV.FieldByName("Source").AsString(), "GL");
    EXPECT_EQ(form.tblJV.FieldByName("TransType").AsString(), "JV");
    EXPECT_EQ(form.tblJV.FieldByName("GLPeriod").AsInteger(), 3);
    EXPECT_EQ(form.tblJV.FieldByName("GLYear").AsInteger(), 2017);
    EXPECT_EQ(form.tblJV.FieldByName("TransDate").AsDate(), Date::Today());
    EXPECT_FALSE(form.tblJV.FieldByName("Posted").AsBoolean());
    EXPECT_FALSE(form.lblPosted.Visible);
    d.EnterText("editDescription", "Rent");
    EXPECT_EQ(form.Caption, "JV 1001");
    d.EnterText("editDescription", "");
    EXPECT_EQ(form.Caption, "New Journal Voucher");
}

// The period box takes 1 to 12 only: 13 is refused as it is typed, the voucher keeps its period.
TEST_F(JVForm, APeriodNumberOutsideOneToTwelveIsRefusedWhereItIsTyped) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    app.Run([&] {
        d.EnterText("editPeriod", "13");
        d.Focus("editDescription");
    });
    EXPECT_EQ(dialogs.LastText(),
              "13 is not a valid value for field 'Period'. The allowed range is 1 to 12");
    EXPECT_EQ(form.tblJV.FieldByName("GLPeriod").AsInteger(), 3);
    app.Run([&] {
        d.EnterText("editPeriod", "12");
        d.Focus("editDescription");
    });
    EXPECT_EQ(form.tblJV.FieldByName("GLPeriod").AsInteger(), 12);
}

TEST_F(JVSave, EachRefusalComesInItsOrderAndWritesNoVoucher) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    auto refused = [&](const std::string& expected, const char* focus) {
        d.Click("btnOK");
        EXPECT_EQ(LastMessage(), expected);
        EXPECT_EQ(form.tblJV.State(), store::DataSetState::Insert);
        EXPECT_TRUE(form.Visible());
        EXPECT_EQ(SavedRowsOf(form), "0/0") << expected;
        if (focus) {
            EXPECT_EQ(d.FocusedName(), focus) << expected;
        }
    };
    refused(text::NoDescription, "editDescription");
    d.EnterText("editDescription", "Opening cash");
    refused(text::NoLines, "grdLines");

    // One line of 0: the debit test speaks first, and a line is added for the missing debit.
    TypeLine(d, "1000", "0");
    refused(text::NoDebits, "grdLines");
    EXPECT_EQ(form.tblJVDet.State(), store::DataSetState::Insert);

    d.EnterCell("grdLines", "GLAccountID", "1000");
    d.EnterCell("grdLines", "GLAmount", "25.00");
    refused(text::NoCredits, "grdLines");
    d.EnterCell("grdLines", "GLAccountID", "4000");
    d.EnterCell("grdLines", "GLAmount", "-20");
    refused(text::OutOfBalance, "grdLines");
    EXPECT_EQ(form.stbTotals.SimpleText, "Debits: 25.00   Credits: 20.00CR   Diff: 5.00");

    TypeLine(d, "4000", "-5");
    d.Click("btnOK");
    EXPECT_EQ(SqlText("SELECT JVNumber, JVAmount, Posted FROM JV"), "1001,25,False");
    EXPECT_EQ(SqlText("SELECT Seq, GLAccountID, GLAmount FROM JVDet ORDER BY Seq"),
              "1,1,0|2,1,25|3,2,-20|4,2,-5");
    EXPECT_FALSE(VoucherFormOpen());
}

TEST_F(JVSave, AClosedPeriodIsRefusedBeforeTheDescription) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    d.EnterText("editYear", "16");
    TypeBalancedVoucher(d, "Last year");
    d.Click("btnOK");
    EXPECT_EQ(LastMessage(),
              "GL Period is prior to current fiscal year \nas defined by \"Your Company\"");
    EXPECT_EQ(SavedRowsOf(form), "0/0");
    EXPECT_EQ(FormLines(form), "1,1,5|2,2,-5");
    EXPECT_EQ(form.tblJV.State(), store::DataSetState::Insert);
}

TEST_F(JVSave, ASecondVoucherWithTheSameNumberInThePeriodIsRefused) {
    AddVoucher(7, 1001, "GL", "JV", false);
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    TypeBalancedVoucher(d, "Twice");
    d.Click("btnOK");
    EXPECT_EQ(LastMessage(), text::DuplicateNumber);
    EXPECT_EQ(d.FocusedName(), "editJVNumber");
    // The lines had gone out before the voucher's row was refused: they went back with it.
    EXPECT_EQ(SavedRowsOf(form), "0/0");
    EXPECT_EQ(SavedLines(7), "1,1,10|2,2,-10");
    // Another period may hold the same number.
    d.EnterText("editPeriod", "4");
    d.Click("btnOK");
    EXPECT_EQ(CountRows("JV"), 2);
    EXPECT_EQ(CountRows("JVDet"), 4);
}

TEST_F(JVLines, ALineNeedsAKnownAccountAndKnownSubaccounts) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    d.Click("popNewLine");
    d.EnterCell("grdLines", "GLAmount", "5");
    d.Click("popNewLine");
    EXPECT_EQ(LastMessage(), text::LineNoAccount);
    // A typed number is looked up as its cell is written.
    d.EnterCell("grdLines", "GLAccountID", "7777");
    EXPECT_EQ(LastMessage(), text::TypedUnknownAccount);
    d.EnterCell("grdLines", "GLAccountID", "9000");
    EXPECT_EQ(LastMessage(), text::SuspendedAccount);
    d.EnterCell("grdLines", "GLAccountID", "1000");
    d.EnterCell("grdLines", "SubAccount1ID", "99");
    EXPECT_EQ(LastMessage(), text::TypedUnknownSubaccount);
    d.EnterCell("grdLines", "SubAccount1ID", "");
    // A subaccount that vanished since it was chosen is caught when the line is saved.
    form.tblJVDet.FieldByName("SubAccount2ID").SetAsInteger(42);
    d.Click("popNewLine");
    EXPECT_EQ(LastMessage(), "Subaccount 2 not found...\nMake changes or press Esc to undo");
    EXPECT_EQ(form.tblJVDet.RecordCount(), 0);
    d.EnterCell("grdLines", "SubAccount2ID", "10");
    d.Click("popNewLine");
    EXPECT_EQ(FormLines(form), "1,1,5");
    form.tblJVDet.First();
    EXPECT_EQ(form.tblJVDet.FieldByName("Name").AsString(), "Cash - East 2");
    EXPECT_EQ(form.tblJVDet.FieldByName("GLAccountID").DisplayText(), "1000");
}

TEST_F(JVLines, TotalsFollowEachSaveAndDeleteAndSetTheVoucherAmount) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    TypeLine(d, "1000", "100");
    TypeLine(d, "4000", "-40");
    d.Click("popNewLine");
    EXPECT_EQ(form.stbTotals.SimpleText, "Debits: 100.00   Credits: 40.00CR   Diff: 60.00");
    EXPECT_EQ(form.tblJV.FieldByName("JVAmount").AsMoney(), Money::FromWhole(100));
    d.Click("popDeleteLine"); // the empty new line goes
    form.tblJVDet.First();
    d.Click("popDeleteLine"); // the debit of 100
    EXPECT_EQ(form.stbTotals.SimpleText, "Debits: 0.00   Credits: 40.00CR   Diff: 40.00CR");
    EXPECT_TRUE(form.tblJV.FieldByName("JVAmount").AsMoney().IsZero());
    d.Click("popDeleteLine");
    EXPECT_EQ(form.stbTotals.SimpleText, "Debits: 0.00   Credits: 0.00");
    EXPECT_EQ(FormLines(form), "");
}

TEST_F(JVForm, ASavedVoucherStartsFromItsAmountAndNumbersNewLinesOnward) {
    AddVoucher(7, 1500, "GL", "JV", false, 3000);
    ledger::TfrmJV& form = SavedVoucherInEdit(7);
    EXPECT_EQ(form.Caption, "JV 1500");
    EXPECT_EQ(form.stbTotals.SimpleText, "Debits: 30.00   Credits: 30.00CR");
    ui::FormDriver d(form);
    TypeLine(d, "1000", "1");
    TypeLine(d, "4000", "-1");
    d.Click("btnOK");
    EXPECT_EQ(SqlText("SELECT Seq, GLAmount FROM JVDet WHERE Seq > 2 ORDER BY Seq"), "3,1|4,-1");
    EXPECT_EQ(SqlText("SELECT JVAmount FROM JV"), "31");
}

TEST_F(JVForm, APostedVoucherRefusesEveryChange) {
    AddVoucher(7, 1500, "GL", "JV", true);
    ledger::TfrmJV& form = app.CreateForm<ledger::TfrmJV>(db_);
    ASSERT_TRUE(form.tblJV.Locate("JVID", {7}));
    form.Show();
    EXPECT_TRUE(form.lblPosted.Visible);
    EXPECT_FALSE(form.popNewLine.Enabled);
    EXPECT_FALSE(form.popDeleteLine.Enabled);
    ui::FormDriver d(form);
    d.EnterText("editDescription", "Changed");
    EXPECT_EQ(LastMessage(), text::PostedCannotChange);
    dialogs.ClearShown();
    d.EnterCell("grdLines", "GLAmount", "99");
    EXPECT_EQ(LastMessage(), text::PostedCannotChange);
    EXPECT_EQ(SqlText("SELECT TransDescription FROM JV"), "Voucher 1500");
    EXPECT_EQ(SqlText("SELECT GLAmount FROM JVDet WHERE Seq = 1"), "10");
}

TEST_F(JVForm, CancellingANewVoucherTakesItsLinesAway) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    TypeBalancedVoucher(d, "Not wanted");
    d.Click("popNewLine");
    EXPECT_EQ(FormLines(form), "1,1,5|2,2,-5");
    EXPECT_EQ(CountRows("JVDet"), 0) << "lines wait for the voucher";
    std::string scratch = form.LinesTableName();
    d.Click("btnCancel");
    EXPECT_EQ(CountRows("JVDet"), 0);
    EXPECT_EQ(CountRows("JV"), 0);
    EXPECT_FALSE(VoucherFormOpen());
    EXPECT_FALSE(db_.TableExists(store::Database::MemorySchema, scratch));
}

TEST_F(JVForm, CancellingAnEditBringsBackTheSavedLines) {
    AddVoucher(7, 1500, "GL", "JV", false, 3000);
    ledger::TfrmJV& form = SavedVoucherInEdit(7);
    ui::FormDriver d(form);
    form.tblJVDet.First();
    d.EnterCell("grdLines", "GLAmount", "45"); // the debit changed
    form.tblJVDet.Last();
    d.Click("popDeleteLine"); // the credit gone
    TypeLine(d, "4000", "-45");
    d.Click("popNewLine");
    EXPECT_EQ(FormLines(form), "1,1,45|3,2,-45");
    EXPECT_EQ(SavedLines(7), "1,1,30|2,2,-30");
    form.tblJV.Cancel(); // Escape: the form stays, on the voucher as saved
    EXPECT_EQ(SavedLines(7), "1,1,30|2,2,-30");
    EXPECT_EQ(SqlText("SELECT JVAmount FROM JV"), "30");
    EXPECT_EQ(FormLines(form), "1,1,30|2,2,-30");
    EXPECT_EQ(form.stbTotals.SimpleText, "Debits: 30.00   Credits: 30.00CR");
    // Changed again, new lines are numbered after the saved ones.
    form.tblJV.Edit();
    EXPECT_EQ(form.stbTotals.SimpleText, "Debits: 30.00   Credits: 30.00CR");
    TypeLine(d, "1000", "1");
    TypeLine(d, "4000", "-1");
    d.Click("btnOK");
    EXPECT_EQ(SavedLines(7), "1,1,30|2,2,-30|3,1,1|4,2,-1");
}

TEST_F(JVSave, ARefusedEditLeavesTheSavedVoucherAsItWas) {
    AddVoucher(7, 1500, "GL", "JV", false, 3000);
    ledger::TfrmJV& form = SavedVoucherInEdit(7);
    ui::FormDriver d(form);
    TypeLine(d, "1000", "5");
    d.Click("btnOK");
    EXPECT_EQ(LastMessage(), text::OutOfBalance);
    EXPECT_EQ(SavedLines(7), "1,1,30|2,2,-30");
    EXPECT_EQ(SqlText("SELECT JVAmount FROM JV"), "30");
    EXPECT_EQ(FormLines(form), "1,1,30|2,2,-30|3,1,5");
    EXPECT_TRUE(form.Visible());
}

TEST_F(JVSave, ClosingAsksAndSavesTheVoucherWithItsLinesOrNeither) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    d.EnterText("editDescription", "Kept");
    TypeLine(d, "1000", "5");
    TypeLine(d, "4000", "-4");
    dialogs.Answer("Do you want to save changes?", ui::mbYes);
    d.Close();
    EXPECT_EQ(LastMessage(), text::OutOfBalance);
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(SavedRowsOf(form), "0/0");
    d.EnterCell("grdLines", "GLAmount", "-5");
    dialogs.Answer("Do you want to save changes?", ui::mbYes);
    d.Close();
    EXPECT_FALSE(VoucherFormOpen());
    EXPECT_EQ(SqlText("SELECT TransDescription, JVAmount FROM JV"), "Kept,5");
    EXPECT_EQ(SqlText("SELECT GLAmount FROM JVDet ORDER BY Seq"), "5|-5");

    ledger::TfrmJV& second = NewVoucherForm();
    ui::FormDriver d2(second);
    d2.EnterText("editDescription", "Dropped");
    TypeLine(d2, "1000", "7");
    TypeLine(d2, "4000", "-7");
    dialogs.Answer("Do you want to save changes?", ui::mbNo);
    d2.Close();
    EXPECT_FALSE(VoucherFormOpen());
    EXPECT_EQ(CountRows("JV"), 1);
    EXPECT_EQ(CountRows("JVDet"), 2);
}

TEST_F(JVForm, SubledgerVouchersShowTheirVendorAfterTheStoredText) {
    AddCurrency(1, "Dollar");
    AddVendor(4, "V100", "Acme Supply");
    AddVoucher(7, 1500, "AP", "Inv", false);
    store::Query link(db_, "UPDATE JV SET VendorID = 4 WHERE JVID = 7");
    link.ExecSQL();
    ledger::TfrmJV& form = app.CreateForm<ledger::TfrmJV>(db_);
    ASSERT_TRUE(form.tblJV.Locate("JVID", {7}));
    form.Show();
    EXPECT_EQ(ui::FormDriver(form).Text("editDescription"), "Voucher 1500 - Acme Supply (V100)");
    EXPECT_EQ(form.tblJV.FieldByName("TransDescription").AsString(), "Voucher 1500");
}

TEST_F(JVForm, TheUnpostButtonShowsOnlyOnAPostedVoucherAndHonoursAClosedYear) {
    AddVoucher(7, 1500, "GL", "JV", true);
    store::Query closed(db_, "UPDATE JV SET GLYear = 2016 WHERE JVID = 7");
    closed.ExecSQL();
    ledger::TfrmJV& form = app.CreateForm<ledger::TfrmJV>(db_);
    ASSERT_TRUE(form.tblJV.Locate("JVID", {7}));
    form.Show();
    ASSERT_TRUE(form.btnUnpost.Visible);
    ui::FormDriver(form).Click("btnUnpost");
    EXPECT_EQ(LastMessage(), "JV is from a previous closed year.\n\nYou need to re-open the year "
                             "before you can unpost this JV.\nMenu File | General | Your "
                             "Company\nChange the Fiscal Year.");
    EXPECT_TRUE(form.lblPosted.Visible);
    EXPECT_EQ(SqlText("SELECT Posted FROM JV"), "True");

    form.Close();
    ledger::TfrmJV& next = NewVoucherForm();
    EXPECT_FALSE(next.btnUnpost.Visible);
    EXPECT_FALSE(next.lblPosted.Visible);
}

TEST_F(JVForm, AnUnpostedVoucherCanBeChangedAgain) {
    AddVoucher(7, 1500, "GL", "JV", true);
    ledger::TfrmJV& form = app.CreateForm<ledger::TfrmJV>(db_);
    ASSERT_TRUE(form.tblJV.Locate("JVID", {7}));
    form.Show();
    dialogs.Answer("Unpost this JV?", ui::mbYes);
    ui::FormDriver d(form);
    d.Click("btnUnpost");
    EXPECT_EQ(SqlText("SELECT Posted FROM JV"), "False");
    EXPECT_FALSE(form.lblPosted.Visible);
    EXPECT_FALSE(form.btnUnpost.Visible);
    EXPECT_TRUE(form.popNewLine.Enabled);
    d.EnterText("editDescription", "Corrected");
    d.Click("btnOK");
    EXPECT_EQ(SqlText("SELECT TransDescription FROM JV"), "Corrected");
}

TEST_F(JVForm, OkAndNewSavesAndStartsTheNextVoucher) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    TypeBalancedVoucher(d, "First");
    d.Click("btnOKNew");
    EXPECT_EQ(SqlText("SELECT JVNumber, TransDescription FROM JV"), "1001,First");
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(form.tblJV.State(), store::DataSetState::Insert);
    EXPECT_EQ(form.tblJV.FieldByName("JVNumber").AsInteger(), 1002);
    EXPECT_EQ(form.Caption, "New Journal Voucher");
    EXPECT_EQ(form.stbTotals.SimpleText, "Debits: 0.00   Credits: 0.00");
    EXPECT_TRUE(form.tblJVDet.IsEmpty());
}
