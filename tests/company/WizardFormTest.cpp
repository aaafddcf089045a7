#include "company/CompanyForms.h"
#include "company/WizardTestRows.h"
#include "company/wizard/TfrmGettingStarted.h"
#include "core/Date.h"
#include "shell/main/FormRegistry.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane::company {
namespace {

class WizardFormTest : public testing::UiCompanyTest {
protected:
    // The wizard as the program makes it: by its registered name.
    TfrmGettingStarted& Wizard() {
        shell::FormRegistry registry;
        RegisterCompanyForms(registry);
        const shell::FormFactory* factory = registry.Find("frmGettingStarted");
        EXPECT_NE(factory, nullptr);
        shell::FormContext ctx{app, db_, nullptr};
        auto& wizard = dynamic_cast<TfrmGettingStarted&>((*factory)(ctx));
        wizard.Show();
        return wizard;
    }
    std::string Page(const TfrmGettingStarted& w) const { return w.pcWizard.ActivePage()->Name(); }
    // Clicks Next and returns the message it raised ("" when none).
    std::string Next(ui::FormDriver& d) {
        dialogs.ClearShown();
        d.Click("btnNext");
        return dialogs.LastText();
    }
    void FillCompanyPage(ui::FormDriver& d) {
        d.EnterText("editCompanyName", "Acme Tools");
        d.EnterText("editFiscalYear", "2018");
        d.EnterText("editAddressLine1", "12 Mill Road");
    }
    void FillCurrencyPage(ui::FormDriver& d) {
        d.EnterText("editCurrencyName", "Rand");
        d.EnterText("editBankName", "Operating Account");
    }
};

TEST_F(WizardFormTest, CompanyPageRefusesAMissingNameAndAYearOutOfRangeWithTheFocusThere) {
    desktop.Country = "Canada";
    auto& w = Wizard();
    ui::FormDriver d(w);
    EXPECT_EQ(w.Caption, "New Company Wizard");
    EXPECT_EQ(Page(w), "PanelCompany");
    EXPECT_FALSE(d.Enabled("btnBack"));

    EXPECT_EQ(Next(d), "Field 'Company Name' must have a value");
    EXPECT_EQ(d.FocusedName(), "editCompanyName");
    EXPECT_EQ(Page(w), "PanelCompany");

    d.EnterText("editCompanyName", "Acme Tools");
    for (const char* year : {"2051", "1989", "", "20x8"}) {
        d.EnterText("editFiscalYear", year);
        d.Focus("editCompanyName");
        EXPECT_EQ(Next(d), "Fiscal Year must be between 1990 and 2050") << year;
        EXPECT_EQ(d.FocusedName(), "editFiscalYear");
        EXPECT_EQ(Page(w), "PanelCompany");
    }
    d.EnterText("editFiscalYear", "2050");
    EXPECT_EQ(Next(d), "");
    EXPECT_EQ(Page(w), "PanelCurrency");
    EXPECT_TRUE(d.Enabled("btnBack"));
    // Only the page in front can be reached.
    EXPECT_FALSE(d.Visible("editCompanyName"));
    EXPECT_TRUE(d.Visible("editBankName"));
    EXPECT_EQ(CountRows("Company"), 0);
}

TEST_F(WizardFormTest, TheCountryOffersItsCurrencyAndTax) {
    desktop.Country = "United Kingdom";
    auto& w = Wizard();
    EXPECT_EQ(w.editCurrencyName.Text(), "Pounds");
    EXPECT_EQ(w.editTaxName.Text(), "VAT");
    EXPECT_EQ(w.editFiscalYear.Text(), std::to_string(Date::Today().Year()));
}

TEST_F(WizardFormTest, OutsideTheKnownCountriesTheCurrencyPageAsksForTheCurrency) {
    desktop.Country = "Freedonia";
    auto& w = Wizard();
    ui::FormDriver d(w);
    EXPECT_EQ(w.editCurrencyName.Text(), "");
    EXPECT_EQ(w.editTaxName.Text(), "");
    FillCompanyPage(d);
    ASSERT_EQ(Next(d), "");
    EXPECT_EQ(d.FocusedName(), "editCurrencyName");
    EXPECT_EQ(Next(d), "Field 'Bank Name' must have a value");
    EXPECT_EQ(d.FocusedName(), "editBankName");
    d.EnterText("editBankName", "Operating Account");
    EXPECT_EQ(Next(d), "Field 'Currency Name' must have a value");
    EXPECT_EQ(d.FocusedName(), "editCurrencyName");
    EXPECT_EQ(Page(w), "PanelCurrency");
    d.EnterText("editCurrencyName", "Lira");
    EXPECT_EQ(Next(d), "");
    EXPECT_EQ(Page(w), "panelTax");
}

TEST_F(WizardFormTest, TaxPageWantsBothNameAndRateOrNeither) {
    auto& w = Wizard();
    ui::FormDriver d(w);
    FillCompanyPage(d);
    ASSERT_EQ(Next(d), "");
    FillCurrencyPage(d);
    ASSERT_EQ(Next(d), "");
    ASSERT_EQ(Page(w), "panelTax");

    d.EnterText("editRate", "7");
    EXPECT_EQ(Next(d), "Field 'Tax Name' must have a value (if rate entered)");
    EXPECT_EQ(d.FocusedName(), "editTaxName");
    d.EnterText("editTaxName", "PST");
    d.EnterText("editRate", "");
    EXPECT_EQ(Next(d), "Field 'Rate' must have a value (if tax name entered)");
    EXPECT_EQ(d.FocusedName(), "editRate");
    d.EnterText("editRate", "seven");
    EXPECT_EQ(Next(d), "'seven' is not a valid floating point value for field 'Rate'");
    EXPECT_EQ(Page(w), "panelTax");

    d.EnterText("editTaxName", "");
    d.EnterText("editRate", "");
    EXPECT_EQ(d.Text("btnNext"), "Next >");
    EXPECT_EQ(Next(d), "");
    EXPECT_EQ(Page(w), "PanelFinish");
    EXPECT_EQ(d.Text("btnNext"), "Finish");
    EXPECT_EQ(d.Text("lblFinishReady"),
              "You have now entered all the basic information to begin using Corvane.");
    EXPECT_EQ(d.Text("lblFinishChart"),
              "A sample chart of accounts will now be added. You can add, modify, or delete GL "
              "accounts to suit the needs of your company.");
    EXPECT_EQ(d.Text("lblFinishMore"),
              "You can add more bank accounts, currencies, taxes, and a logo. See Help.");
    EXPECT_EQ(CountRows("Company"), 0);
}

TEST_F(WizardFormTest, BackReturnsThroughThePagesKeepingTheAnswers) {
    auto& w = Wizard();
    ui::FormDriver d(w);
    FillCompanyPage(d);
    Next(d);
    FillCurrencyPage(d);
    Next(d);
    Next(d);
    ASSERT_EQ(Page(w), "PanelFinish");
    d.Click("btnBack");
    EXPECT_EQ(Page(w), "panelTax");
    EXPECT_EQ(d.Text("btnNext"), "Next >");
    d.Click("btnBack");
    d.Click("btnBack");
    EXPECT_EQ(Page(w), "PanelCompany");
    EXPECT_FALSE(d.Enabled("btnBack"));
    EXPECT_EQ(d.Text("editCompanyName"), "Acme Tools");
    EXPECT_EQ(w.Answers().BankName, "Operating Account");
}

TEST_F(WizardFormTest, FinishWritesTheCompanyFromThePages) {
    auto& w = Wizard();
    ui::FormDriver d(w);
    FillCompanyPage(d);
    Next(d);
    FillCurrencyPage(d);
    Next(d);
    d.EnterText("editTaxName", "VAT");
    d.EnterText("editRate", "15");
    Next(d);
    EXPECT_EQ(Next(d), "");
    EXPECT_FALSE(w.Visible());
    EXPECT_EQ(w.ModalResult(), ui::mrOK);
    EXPECT_EQ(testing::QueryValue(db_, "SELECT CompanyName || '/' || FiscalYear || '/' || "
                                       "AddressLine1 FROM Company"),
              "'Acme Tools/2018/12 Mill Road'");
    EXPECT_EQ(testing::QueryValue(db_, "SELECT CurrencyName FROM Currency"), "'Rand'");
    EXPECT_EQ(testing::QueryValue(db_, "SELECT TaxCode || Rate FROM Tax"), "'V15.0'");
    EXPECT_EQ(CountRows("GLAccnt"), 44);
}

TEST_F(WizardFormTest, CancelOnAnyPageBeforeFinishWritesNothing) {
    for (int pages = 0; pages < 4; ++pages) {
        host.ScriptModal("frmGettingStarted", [this, pages](ui::Form& form) {
            ui::FormDriver d(form);
            auto& wizard = dynamic_cast<TfrmGettingStarted&>(form);
            FillCompanyPage(d);
            if (pages >= 1) {
                d.Click("btnNext");
                FillCurrencyPage(d);
            }
            for (int i = 2; i <= pages; ++i)
                d.Click("btnNext");
            EXPECT_EQ(wizard.pcWizard.ActivePage(), wizard.pcWizard.Pages()[pages]);
            d.Click("btnCancel");
        });
        auto& w = app.CreateForm<TfrmGettingStarted>(db_);
        w.PresetCompanyName("Acme Tools");
        EXPECT_EQ(w.ShowModal(), ui::mrCancel) << pages;
        app.FreeForm(w);
        for (const char* table : {"Company", "GLAccnt", "Currency", "Bank", "Item", "Customer"})
            EXPECT_EQ(CountRows(table), 0) << table << " after " << pages << " pages";
    }
}

} // namespace
} // namespace corvane::company
