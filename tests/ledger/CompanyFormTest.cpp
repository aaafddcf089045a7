#include "ledger/company/TfrmCompany.h"
#include "ledger/periods/PeriodCheck.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

using namespace corvane;
using namespace corvane::ledger;
using corvane::ui::FormDriver;

namespace {

class CompanyFormTest : public corvane::testing::UiCompanyTest {
protected:
    void AddCompany(int fiscalYear) {
        InsertRow("Company",
                  {{"CompanyNo", 1}, {"CompanyName", "Acme"}, {"FiscalYear", fiscalYear}});
    }
    TfrmCompany& Form() {
        auto& form = app.CreateForm<TfrmCompany>(db_);
        form.Show();
        return form;
    }
    // Types text into the edit and leaves it with Enter, as the user does.
    static void Put(FormDriver& f, std::string_view edit, std::string_view text) {
        f.EnterText(edit, text);
        f.PressKey(ui::KeyStroke(ui::Key::Enter));
    }
    static std::string Forward(const std::string& what) {
        return "Fiscal Year cannot be changed forward by typing here...\n" + what +
               "\nPress Esc to undo.\nUse the Year-End button to move the year forward";
    }
};

} // namespace

TEST_F(CompanyFormTest, EmptyTableGetsItsRowWithTheVersionMark) {
    auto& form = Form();
    FormDriver f(form);
    EXPECT_EQ(form.Caption, "Your Company");
    Put(f, "editCompanyName", "Acme");
    f.Click("tabPeriods");
    Put(f, "editFiscalYear", "17");
    f.Click("btnOK");
    EXPECT_FALSE(form.Visible()) << dialogs.LastText();
    store::Table t(db_, "Company");
    t.Open();
    ASSERT_EQ(t.RecordCount(), 1);
    EXPECT_EQ(t.FieldByName("ApplicationVersion").AsString(), "2017.8");
    EXPECT_EQ(t.FieldByName("ARInvoiceStyle").AsValue(), store::Value(0));
    EXPECT_EQ(t.FieldByName("ARInvoiceCopies").AsInteger(), 1);
    EXPECT_EQ(t.FieldByName("FiscalYear").AsInteger(), 2017);
}

TEST_F(CompanyFormTest, YearsAreTypedAsTwoDigitsAndShownAsFourWhenNotEdited) {
    AddCompany(2017);
    auto& form = Form();
    FormDriver f(form);
    f.Click("tabPeriods");
    Put(f, "editDefaultPeriodYYYY", "50");
    Put(f, "editDefaultPeriodPP", "3");
    EXPECT_EQ(form.tblCompany.FieldByName("DefaultPeriodYYYY").AsInteger(), 1950);
    EXPECT_EQ(form.tblCompany.FieldByName("DefaultPeriodYYYY").DisplayText(), "1950");
    EXPECT_EQ(form.tblCompany.FieldByName("DefaultPeriodYYYY").Text(), "50");
    Put(f, "editEPeriodToYYYY", "49");
    EXPECT_EQ(form.tblCompany.FieldByName("EPeriodToYYYY").AsInteger(), 2049);
    Put(f, "editEPeriodToYYYY", "");
    EXPECT_TRUE(form.tblCompany.FieldByName("EPeriodToYYYY").IsNull());
}

TEST_F(CompanyFormTest, EachYearFieldRefusesInItsOwnWords) {
    AddCompany(2017);
    FormDriver f(Form());
    f.Click("tabPeriods");
    const std::pair<const char*, const char*> fields[] = {
        {"editFiscalYear", "Current Fiscal Year"},      {"editDefaultPeriodYYYY", "Default Period"},
        {"editWPeriodFromYYYY", "Warn Before Period"},  {"editWPeriodToYYYY", "Warn After Period"},
        {"editEPeriodFromYYYY", "Error Before Period"}, {"editEPeriodToYYYY", "Error After Period"},
    };
    for (auto [edit, label] : fields) {
        Put(f, edit, "123");
        EXPECT_EQ(dialogs.LastText(), std::string(label) +
                                          " invalid...\nEnter year as 2 digits.\nExample: for "
                                          "2017 enter 17");
        Put(f, edit, "18");
    }
}

TEST_F(CompanyFormTest, PeriodNumbersRunFromOneToTwelve) {
    AddCompany(2017);
    auto& form = Form();
    FormDriver f(form);
    f.Click("tabPeriods");
    Put(f, "editWPeriodToPP", "13");
    EXPECT_EQ(
        dialogs.LastText(),
        "13 is not a valid value for field 'Warn After Period'. The allowed range is 1 to 12");
    EXPECT_TRUE(form.tblCompany.FieldByName("WPeriodToPP").IsNull());
    Put(f, "editWPeriodToPP", "12");
    EXPECT_EQ(form.tblCompany.FieldByName("WPeriodToPP").AsInteger(), 12);
}

TEST_F(CompanyFormTest, FiscalYearMovesForwardByTypingOnlyInACompanyWithoutDocuments) {
    AddCompany(2017);
    Date day = Date::FromYmd(2017, 1, 1);
    InsertRow("JV", {{"JVID", 1},
                     {"GLYear", 2017},
                     {"GLPeriod", 1},
                     {"JVNumber", 1},
                     {"Source", "GL"},
                     {"TransDate", day},
                     {"TransDescription", "Opening"}});
    InsertRow("APInv", {{"APInvoiceID", 1},
                        {"VendorID", 1},
                        {"InvoiceNo", "A1"},
                        {"InvoiceDate", day},
                        {"DueDate", day},
                        {"InvoiceAmount", Money()},
                        {"GLPeriod", 1},
                        {"GLYear", 2017}});
    InsertRow("ARInv", {{"ARInvoiceID", 1},
                        {"CustomerID", 1},
                        {"InvoiceNo", "R1"},
                        {"InvoiceDate", day},
                        {"InvoiceAmount", Money()},
                        {"GLPeriod", 1},
                        {"GLYear", 2017},
                        {"Printed", false},
                        {"Posted", false}});
    auto& form = Form();
    FormDriver f(form);
    f.Click("tabPeriods");
    Put(f, "editFiscalYear", "18");
    EXPECT_EQ(dialogs.LastText(), Forward("Journal Voucher(s) exist."));
    EXPECT_EQ(form.tblCompany.FieldByName("FiscalYear").AsInteger(), 2017);
    // A lower year reopens a closed one, whatever exists.
    Put(f, "editFiscalYear", "16");
    EXPECT_EQ(form.tblCompany.FieldByName("FiscalYear").AsInteger(), 2016);
    Put(f, "editFiscalYear", "17");
    EXPECT_EQ(form.tblCompany.FieldByName("FiscalYear").AsInteger(), 2017);

    for (const char* table : {"JV", "APInv", "ARInv"}) {
        store::Table t(db_, table);
        t.Open();
        t.First();
        t.Delete();
        Put(f, "editFiscalYear", "18");
        if (std::string(table) == "JV") {
            EXPECT_EQ(dialogs.LastText(), Forward("AP Invoice(s) exist."));
        } else if (std::string(table) == "APInv") {
            EXPECT_EQ(dialogs.LastText(), Forward("AR Invoice(s) exist."));
        }
    }
    EXPECT_EQ(form.tblCompany.FieldByName("FiscalYear").AsInteger(), 2018);
}

TEST_F(CompanyFormTest, GLHistoryAloneHoldsTheYear) {
    AddCompany(2017);
    store::Table hist(db_, "GLHist");
    hist.Open();
    hist.Insert();
    FillGLHistLine(hist, 1, Date::FromYmd(2017, 1, 5), Money());
    hist.Post();
    auto& form = Form();
    FormDriver f(form);
    f.Click("tabPeriods");
    Put(f, "editFiscalYear", "20");
    EXPECT_EQ(dialogs.LastText(), Forward("GL History exists."));
    form.YearEndRunning = true;
    Put(f, "editFiscalYear", "18");
    EXPECT_EQ(form.tblCompany.FieldByName("FiscalYear").AsInteger(), 2018);
}

TEST_F(CompanyFormTest, PeriodsAreReadFromTheCompanyRow) {
    EXPECT_EQ(CompanyPeriods::Read(db_).FiscalYear, 0);
    InsertRow("Company", {{"CompanyNo", 1},
                          {"CompanyName", "Acme"},
                          {"FiscalYear", 2017},
                          {"DefaultPeriodPP", 4},
                          {"WPeriodFromYYYY", 2017},
                          {"WPeriodFromPP", 2},
                          {"EPeriodToYYYY", 2018},
                          {"EPeriodToPP", 12}});
    CompanyPeriods p = CompanyPeriods::Read(db_);
    EXPECT_EQ(p.FiscalYear, 2017);
    EXPECT_EQ(p.Default, (Period{0, 4}));
    EXPECT_EQ(p.WarnFrom, (Period{2017, 2}));
    EXPECT_EQ(p.WarnTo, (Period{0, 0}));
    EXPECT_EQ(p.ErrorTo, (Period{2018, 12}));
}
