#include "ledger/vouchers/JVImport.h"
#include "VoucherFixture.h"
#include "core/Exception.h"
#include "ledger/domain/VoucherTexts.h"

#include <fstream>

using namespace corvane;
using corvane::testing::VoucherTest;
namespace text = corvane::ledger::voucher_text;

namespace {

// The message a faulty file is refused with; empty when it is read.
std::string Refusal(std::string_view file) {
    try {
        ledger::ParseJVImport(file);
    } catch (const Exception& e) {
        return e.what();
    }
    return {};
}

// The voucher form with import files written to a folder of the test. Accounts 1000 (id 1) and
// 4000 (id 2), and subaccount "10" (id 1) on each level, come from the voucher fixture.
class JVImport : public VoucherTest {
protected:
    std::string WriteFile(const std::string& contents, const std::string& name = "lines.csv") {
        std::string path = files_.Path() + "/" + name;
        std::ofstream(path, std::ios::binary) << contents;
        return path;
    }
    // Imports through the pop-up menu and its dialog, as the user does.
    void ImportByMenu(ledger::TfrmJV& form, const std::string& path) {
        host.ScriptModal("frmImportJVData", [path](ui::Form& dialog) {
            ui::FormDriver f(dialog);
            f.EnterText("editFileName", path);
            f.Click("btnOK");
        });
        ui::FormDriver(form).Click("popImport");
        EXPECT_EQ(host.PendingScripts(), 0u);
    }
    std::string SubsOf(const ledger::TfrmJV& form) {
        return SqlText("SELECT Seq, SubAccount1ID, SubAccount2ID, SubAccount3ID FROM \"\\Memory\\" +
                       form.LinesTableName() + "\" ORDER BY Seq");
    }
    std::vector<std::string> Questions() const {
        std::vector<std::string> asked;
        for (const ui::Message& m : dialogs.Shown())
            if (m.Type == ui::MsgType::Confirmation) asked.push_back(m.Text);
        return asked;
    }

    corvane::testing::TempFolder files_;
};

} // namespace

TEST(JVImportFile, ReadsEachLineSkippingAHeaderBlankLinesAndQuotes) {
    auto rows = ledger::ParseJVImport("Account,Amount,Sub1,Sub2,Sub3\r\n"
                                      "1000, 12.5 ,10,,\"20\"\r\n"
                                      "\r\n"
                                      "\"4,1\",-0.0001\n"
                                      ",,,,\n"
                                      "4000,-12.4999,,,7");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].Line, 2);
    EXPECT_EQ(rows[0].Account, "1000");
    EXPECT_EQ(rows[0].Amount, Money::FromCents(1250));
    EXPECT_EQ(rows[0].SubAccounts, (std::array<std::string, 3>{"10", "", "20"}));
    EXPECT_EQ(rows[1].Line, 4);
    EXPECT_EQ(rows[1].Account, "4,1");
    EXPECT_EQ(rows[1].Amount, Money::FromUnits(-1));
    EXPECT_EQ(rows[1].SubAccounts, (std::array<std::string, 3>{"", "", ""}));
    EXPECT_EQ(rows[2].Line, 6);
    EXPECT_EQ(rows[2].Amount, Money::FromUnits(-124999));
    EXPECT_EQ(rows[2].SubAccounts[2], "7");
}

TEST(JVImportFile, AFirstLineWithAnAmountIsDataAndOnlyTheFirstLineMayBeAHeader) {
    auto rows = ledger::ParseJVImport("1000,5\n4000,-5\n");
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].Line, 1);
    EXPECT_EQ(rows[0].Amount, Money::FromWhole(5));
    EXPECT_EQ(Refusal("1000,5\nAccount,Amount\n"),
              "Line 2 of the import file: 'Amount' is not an amount. Amounts are written like "
              "1234.56 or -10.00.\n\nNothing has been imported.");
}

TEST(JVImportFile, ABadAmountOrAShortLineIsRefusedNamingTheLine) {
    const std::string tail = "\n\nNothing has been imported.";
    for (const char* bad : {"12x", "1.23456", "--1", "1.2.3", "+5", "1,000", "."}) {
        std::string file = "Account,Amount\n1000,5\n4000,\"" + std::string(bad) + "\"\n";
        EXPECT_EQ(Refusal(file), "Line 3 of the import file: '" + std::string(bad) +
                                     "' is not an amount. Amounts are written like 1234.56 or "
                                     "-10.00." +
                                     tail)
            << bad;
    }
    const std::string shortLine = " must hold at least an account no. and an amount." + tail;
    EXPECT_EQ(Refusal("1000,5\n4000\n"), "Line 2 of the import file" + shortLine);
    EXPECT_EQ(Refusal("1000,5\n,5\n"), "Line 2 of the import file" + shortLine);
    EXPECT_EQ(Refusal("1000,5\n4000,\n"), "Line 2 of the import file" + shortLine);
    EXPECT_NE(Refusal("1000,5,1,2,3,4\n").find("Line 1 of the import file has more than five"),
              std::string::npos);
}

TEST(JVImportFile, TheQuestionForAMissingNumberNamesItsKind) {
    EXPECT_EQ(ledger::MissingNumberQuestion("Account", "7777"),
              "Account '7777' does not exist.\nData for this account cannot be imported.\n\nDo "
              "you want to continue?");
    EXPECT_EQ(ledger::MissingNumberQuestion("SubAccount2", "99"),
              "SubAccount2 '99' does not exist.\nData for this account cannot be imported.\n\nDo "
              "you want to continue?");
}

TEST_F(JVImport, AGoodFileBecomesLinesAfterThoseTypedAndTheVoucherSaves) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    d.EnterText("editDescription", "Imported sales");
    TypeLine(d, "1000", "1");
    ImportByMenu(form, WriteFile("Account,Amount,Sub1,Sub2,Sub3\n"
                                 "1000,12.50,10,,10\n"
                                 "4000,-13.50,,10\n"));
    EXPECT_EQ(FormLines(form), "1,1,1|2,1,12.5|3,2,-13.5");
    EXPECT_EQ(SubsOf(form), "1,,,|2,1,,1|3,,1,");
    EXPECT_EQ(form.Totals().Debits(), Money::FromCents(1350));
    EXPECT_EQ(form.Totals().Credits(), Money::FromCents(-1350));
    EXPECT_EQ(form.stbTotals.SimpleText, "Debits: 13.50   Credits: 13.50CR");
    EXPECT_EQ(form.tblJV.FieldByName("JVAmount").AsMoney(), Money::FromCents(1350));
    EXPECT_TRUE(Questions().empty());
    // The scratch table of the match goes with it.
    for (const std::string& name : db_.TableNames(store::Database::MemorySchema))
        EXPECT_NE(name.rfind("JVImport", 0), 0u) << name;

    d.Click("btnOK");
    EXPECT_FALSE(VoucherFormOpen()) << LastMessage();
    EXPECT_EQ(SqlText("SELECT Seq, GLAccountID, GLAmount, SubAccount1ID, SubAccount3ID FROM "
                      "JVDet ORDER BY Seq"),
              "1,1,1,,|2,1,12.5,1,1|3,2,-13.5,,");
}

TEST_F(JVImport, AMissingAccountOrSubaccountAsksYesSkipsTheRowNoStops) {
    ledger::TfrmJV& form = NewVoucherForm();
    const std::string tail =
        "' does not exist.\nData for this account cannot be imported.\n\nDo you want to continue?";
    dialogs.Answer("Account '7777" + tail, ui::mbYes);
    dialogs.Answer("SubAccount3 '55" + tail, ui::mbYes);
    dialogs.Answer("SubAccount1 '99" + tail, ui::mbNo);
    ImportByMenu(form, WriteFile("1000,5\n"
                                 "7777,3\n"
                                 "4000,-5,10,10,55\n"
                                 "4000,-2\n"
                                 "1000,1,99,,56\n"
                                 "1000,2\n"));
    EXPECT_EQ(dialogs.PendingAnswers(), 0u);
    // Only the first unknown number of a row is asked about.
    EXPECT_EQ(Questions().size(), 3u);
    EXPECT_EQ(FormLines(form), "1,1,5|2,2,-2");
    EXPECT_EQ(form.stbTotals.SimpleText, "Debits: 5.00   Credits: 2.00CR   Diff: 3.00");
}

TEST_F(JVImport, AFaultyFileAddsNothingAndTheTotalsStay) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    TypeLine(d, "1000", "4");
    ImportByMenu(form, WriteFile("1000,5\n7777,1\n4000,5x\n"));
    EXPECT_EQ(LastMessage(), "Line 3 of the import file: '5x' is not an amount. Amounts are "
                             "written like 1234.56 or -10.00.\n\nNothing has been imported.");
    // The unknown account of line 2 is never asked about: the file is refused first.
    EXPECT_TRUE(Questions().empty());
    EXPECT_EQ(FormLines(form), "1,1,4");
    EXPECT_EQ(form.Totals().Debits(), Money::FromWhole(4));
    EXPECT_TRUE(form.Totals().Credits().IsZero());
}

TEST_F(JVImport, TheDialogWantsAFileThatIsThereAndCancelImportsNothing) {
    ledger::TfrmJV& form = NewVoucherForm();
    std::string path = WriteFile("1000,5\n4000,-5\n");
    std::vector<std::string> told;
    host.ScriptModal("frmImportJVData", [&](ui::Form& dialog) {
        ui::FormDriver f(dialog);
        EXPECT_EQ(dialog.Caption, "Import JV Data");
        f.EnterText("editFileName", "  ");
        app.Run([&] { f.Click("btnOK"); });
        told.push_back(LastMessage());
        f.EnterText("editFileName", files_.Path() + "/absent.csv");
        app.Run([&] { f.Click("btnOK"); });
        told.push_back(LastMessage());
        EXPECT_TRUE(dialog.Visible());
        f.EnterText("editFileName", path);
        f.Click("btnCancel");
    });
    ui::FormDriver(form).Click("popImport");
    EXPECT_EQ(host.PendingScripts(), 0u);
    EXPECT_EQ(told, (std::vector<std::string>{"Enter the name of the file to import.",
                                              "The file '" + files_.Path() +
                                                  "/absent.csv' does not exist."}));
    EXPECT_EQ(FormLines(form), "");
}

TEST_F(JVImport, BrowsePicksTheFileAndACancelledPickKeepsWhatWasTyped) {
    ledger::TfrmJV& form = NewVoucherForm();
    const std::string path = WriteFile("1000,2\n4000,-2\n");
    desktop.AnswerFile(std::nullopt);
    desktop.AnswerFile(path);
    host.ScriptModal("frmImportJVData", [&](ui::Form& dialog) {
        ui::FormDriver f(dialog);
        f.EnterText("editFileName", "typed.csv");
        f.Click("btnBrowse");
        EXPECT_EQ(f.Text("editFileName"), "typed.csv");
        f.Click("btnBrowse");
        EXPECT_EQ(f.Text("editFileName"), path);
        f.Click("btnOK");
    });
    ui::FormDriver(form).Click("popImport");
    EXPECT_EQ(desktop.Calls().back(),
              "PickFile Import JV Data | typed.csv | CSV files (*.csv);;All files (*)");
    EXPECT_EQ(FormLines(form), "1,1,2|2,2,-2");
}

TEST_F(JVImport, APostedVoucherOffersNoImportAndRefusesOne) {
    AddVoucher(7, 1007, "GL", "JV", true);
    AddVoucher(8, 1008, "GL", "JV", false);
    ledger::TfrmJV& form = app.CreateForm<ledger::TfrmJV>(db_);
    ASSERT_TRUE(form.tblJV.Locate("JVID", {8}));
    form.Show();
    EXPECT_TRUE(form.popImport.Visible);
    ASSERT_TRUE(form.tblJV.Locate("JVID", {7}));
    EXPECT_FALSE(form.popImport.Visible);
    std::string before = FormLines(form);
    std::string path = WriteFile("1000,5\n4000,-5\n");
    try {
        form.ImportLines(path);
        ADD_FAILURE() << "a posted voucher took imported lines";
    } catch (const Exception& e) {
        EXPECT_EQ(std::string(e.what()), text::PostedCannotChange);
    }
    EXPECT_EQ(FormLines(form), before);
    EXPECT_EQ(SavedLines(7), "1,1,10|2,2,-10");
}
