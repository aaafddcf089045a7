#include "ledger/periods/PeriodCheck.h"
#include "core/Exception.h"
#include "ledger/periods/YearEntry.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/HeadlessApp.h"

using namespace corvane;
using namespace corvane::ledger;

namespace {

const char* kNotDefined = "Current fiscal year is not yet defined...\nSee \"Your Company\"";
const char* kPrior = "GL Period is prior to current fiscal year \nas defined by \"Your Company\"";
const char* kNotAllowed = "GL Period is not within allowed range \nas defined by \"Your Company\"";
const char* kNotExpected =
    "GL Period is not within expected range \nas defined by \"Your Company\".";

class PeriodCheckTest : public corvane::testing::UiTest {
protected:
    // The refusal CheckPeriod raises, or "" when the period passes.
    std::string Refusal(const CompanyPeriods& company, Period period) {
        try {
            CheckPeriod(app, company, period, nullptr);
        } catch (const EAbort&) {
            return "abort";
        } catch (const Exception& e) {
            return e.what();
        }
        return "";
    }
    static CompanyPeriods Fiscal(int year) {
        CompanyPeriods company;
        company.FiscalYear = year;
        return company;
    }
};

} // namespace

TEST_F(PeriodCheckTest, UndefinedFiscalYearIsToldBeforeAnythingElse) {
    CompanyPeriods company;
    company.ErrorFrom = {2030, 1};
    EXPECT_EQ(Refusal(company, {2017, 3}), kNotDefined);
}

TEST_F(PeriodCheckTest, ClosedYearIsToldBeforeTheRange) {
    CompanyPeriods company = Fiscal(2017);
    company.ErrorFrom = {2018, 6};
    EXPECT_EQ(Refusal(company, {2016, 12}), kPrior);
    EXPECT_EQ(Refusal(company, {2018, 5}), kNotAllowed);
    EXPECT_EQ(Refusal(company, {2018, 6}), "");
}

TEST_F(PeriodCheckTest, WithoutBoundsEveryOpenYearIsAccepted) {
    CompanyPeriods company = Fiscal(2017);
    EXPECT_EQ(Refusal(company, {2017, 1}), "");
    EXPECT_EQ(Refusal(company, {2018, 1}), "");
    EXPECT_EQ(Refusal(company, {2099, 12}), "");
    EXPECT_TRUE(dialogs.Shown().empty());
}

TEST_F(PeriodCheckTest, ErrorAfterBoundRefusesLaterPeriodsOnly) {
    CompanyPeriods company = Fiscal(2017);
    company.ErrorTo = {2017, 6};
    EXPECT_EQ(Refusal(company, {2017, 6}), "");
    EXPECT_EQ(Refusal(company, {2017, 7}), kNotAllowed);
}

TEST_F(PeriodCheckTest, UpperBoundWithOnlyItsPeriodHalfLocksTheCompany) {
    CompanyPeriods company = Fiscal(2017);
    company.ErrorTo = {0, 12};
    EXPECT_EQ(Refusal(company, {2017, 1}), kNotAllowed);
    company.ErrorTo = {};
    company.WarnTo = {0, 12};
    dialogs.Answer(ui::mbCancel);
    EXPECT_EQ(Refusal(company, {2017, 1}), "abort");
}

TEST_F(PeriodCheckTest, ErrorRangeIsTestedBeforeTheWarning) {
    CompanyPeriods company = Fiscal(2017);
    company.ErrorFrom = {2017, 4};
    company.WarnFrom = {2017, 6};
    EXPECT_EQ(Refusal(company, {2017, 3}), kNotAllowed);
    EXPECT_TRUE(dialogs.Shown().empty());
}

TEST_F(PeriodCheckTest, WarningAsksWithCancelAsDefaultAndOnlyOkGoesOn) {
    CompanyPeriods company = Fiscal(2017);
    company.WarnFrom = {2017, 4};
    company.WarnTo = {2017, 9};
    dialogs.Answer(ui::mbOK);
    EXPECT_EQ(Refusal(company, {2017, 3}), "");
    ASSERT_EQ(dialogs.Shown().size(), 1u);
    const ui::Message& box = dialogs.Shown().back();
    EXPECT_EQ(box.Title, "Warning");
    EXPECT_EQ(box.Text, kNotExpected);
    EXPECT_EQ(box.Buttons, (ui::MsgButtons{ui::mbOK, ui::mbCancel}));
    EXPECT_EQ(box.DefaultButton, ui::mbCancel);

    dialogs.Answer(ui::mbCancel);
    EXPECT_EQ(Refusal(company, {2017, 10}), "abort");
    EXPECT_EQ(Refusal(company, {2017, 9}), "");
    EXPECT_EQ(dialogs.Shown().size(), 2u);
}

TEST_F(PeriodCheckTest, RefusalAndCancelPutTheFocusOnThePeriod) {
    ui::Form form(app, "frmDoc");
    ui::Edit editOther(form, "editOther");
    ui::Edit editPeriod(form, "editPeriod");
    form.Show();
    editOther.SetFocus();
    EXPECT_THROW(CheckPeriod(app, Fiscal(2017), {2016, 1}, &editPeriod), Exception);
    EXPECT_TRUE(editPeriod.Focused());

    editOther.SetFocus();
    CompanyPeriods company = Fiscal(2017);
    company.WarnFrom = {2017, 5};
    dialogs.Answer(ui::mbCancel);
    EXPECT_THROW(CheckPeriod(app, company, {2017, 1}, &editPeriod), EAbort);
    EXPECT_TRUE(editPeriod.Focused());
}

TEST(DefaultPeriod, EachHalfFallsBackToTodayByItself) {
    Date today = Date::FromYmd(2019, 8, 14);
    CompanyPeriods company;
    EXPECT_EQ(DefaultPeriod(company, today), (Period{2019, 8}));
    company.Default = {0, 5};
    EXPECT_EQ(DefaultPeriod(company, today), (Period{2019, 5}));
    company.Default = {2018, 0};
    EXPECT_EQ(DefaultPeriod(company, today), (Period{2018, 8}));
    company.Default = {2017, 11};
    EXPECT_EQ(DefaultPeriod(company, today), (Period{2017, 11}));
}

TEST(TwoDigitYear, FiftyIsTheLastCenturyFortyNineThisOne) {
    const std::string bad = BadYearMessage("Period");
    EXPECT_EQ(bad, "Period invalid...\nEnter year as 2 digits.\nExample: for 2017 enter 17");
    EXPECT_EQ(TwoDigitYear("49", bad), 2049);
    EXPECT_EQ(TwoDigitYear("50", bad), 1950);
    EXPECT_EQ(TwoDigitYear("0", bad), 2000);
    EXPECT_EQ(TwoDigitYear("99", bad), 1999);
    EXPECT_EQ(TwoDigitYear("", bad), 0);
}

TEST(TwoDigitYear, OutOfRangeGivesTheFieldsMessageAndTextTheConversions) {
    const std::string bad = BadYearMessage("Warn After Period");
    for (const char* text : {"100", "2017", "-1"}) {
        try {
            TwoDigitYear(text, bad);
            ADD_FAILURE() << text << " was taken";
        } catch (const Exception& e) {
            EXPECT_EQ(std::string(e.what()), bad) << text;
        }
    }
    try {
        TwoDigitYear("1x", bad);
        ADD_FAILURE() << "1x was taken";
    } catch (const Exception& e) {
        EXPECT_EQ(std::string(e.what()), "'1x' is not a valid integer value");
    }
}
