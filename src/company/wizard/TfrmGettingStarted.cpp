#include "company/wizard/TfrmGettingStarted.h"

#include "company/wizard/CountryDefaults.h"
#include "company/wizard/StarterCompany.h"
#include "core/Date.h"
#include "core/Exception.h"
#include "store/Database.h"
#include "store/tables/CompanyTables.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"
#include "ui/WaitCursor.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace corvane::company {

namespace {

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// A year that is no whole number is no year at all, and the range check refuses it.
int YearOf(const std::string& text) {
    const std::string t = Trimmed(text);
    int year = 0;
    auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), year);
    return ec == std::errc() && end == t.data() + t.size() ? year : 0;
}

// Nothing when the text is no number; an empty text is a rate of 0.
std::optional<double> RateOf(const std::string& text) {
    const std::string t = Trimmed(text);
    if (t.empty()) return 0.0;
    char* end = nullptr;
    const double rate = std::strtod(t.c_str(), &end);
    if (end != t.c_str() + t.size() || !std::isfinite(rate)) return std::nullopt;
    return rate;
}

int FieldSize(const store::TableDef& table, const char* field) {
    const store::FieldDef* def = table.FindField(field);
    return def ? def->Size : 0;
}

} // namespace

TfrmGettingStarted::TfrmGettingStarted(ui::Application& app, store::Database& db)
    : Form(app, "frmGettingStarted"), db_(db) {
    using namespace ui;
    Caption = "New Company Wizard";
    KeyPreview = true;
    OnKeyDown = [](Key& key, Modifiers) { SwallowAlt(key); };

    // The edits take no more than the rows will hold.
    editCompanyName.MaxLength = FieldSize(store::tables::Company(), "CompanyName");
    editAddressLine1.MaxLength = FieldSize(store::tables::Company(), "AddressLine1");
    editAddressLine2.MaxLength = FieldSize(store::tables::Company(), "AddressLine2");
    editAddressLine3.MaxLength = FieldSize(store::tables::Company(), "AddressLine3");
    editFiscalYear.MaxLength = 4;
    editCurrencyName.MaxLength = FieldSize(store::tables::Currency(), "CurrencyName");
    editBankName.MaxLength = FieldSize(store::tables::Bank(), "BankName");
    editTaxName.MaxLength = FieldSize(store::tables::Tax(), "TaxName");
    lblCompanyName.FocusControl = &editCompanyName;
    lblFiscalYear.FocusControl = &editFiscalYear;
    lblAddress.FocusControl = &editAddressLine1;
    lblCurrencyName.FocusControl = &editCurrencyName;
    lblBankName.FocusControl = &editBankName;
    lblTaxName.FocusControl = &editTaxName;
    editRate.AlignRight = true;
    lblRate.FocusControl = &editRate;
    lblFinishReady.Caption =
        "You have now entered all the basic information to begin using " + app.Title + ".";

    editFiscalYear.SetText(std::to_string(Date::Today().Year()));
    const CountryDefaults defaults = DefaultsForCountry(app.Desktop().CountryName());
    editCurrencyName.SetText(defaults.CurrencyName);
    editTaxName.SetText(defaults.TaxName);

    PanelCompany.SetLayout(Column{
        lblCompanyHeading,
        FormRow{lblCompanyName, editCompanyName},
        FormRow{lblFiscalYear, editFiscalYear},
        FormRow{lblAddress, editAddressLine1},
        FormRow{"", editAddressLine2},
        FormRow{"", editAddressLine3},
        Stretch{},
    });
    PanelCurrency.SetLayout(Column{
        lblCurrencyHeading,
        FormRow{lblCurrencyName, editCurrencyName},
        FormRow{lblBankName, editBankName},
        lblMoreBanks,
        Stretch{},
    });
    panelTax.SetLayout(Column{
        lblTaxHeading,
        FormRow{lblTaxName, editTaxName},
        FormRow{lblRate, editRate},
        lblMoreTaxes,
        Stretch{},
    });
    PanelFinish.SetLayout(Column{lblFinishReady, lblFinishChart, lblFinishMore, Stretch{}});
    SetLayout(Column{pcWizard, ButtonRow{btnBack, btnNext, btnCancel}});

    // One page at a time: the others have no tab to be reached by.
    for (Page* page : pcWizard.Pages())
        page->TabVisible = page == &PanelCompany;
    btnBack.Enabled = false;
    btnNext.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    btnNext.OnClick = [this] { Next(); };
    btnBack.OnClick = [this] { Back(); };
}

void TfrmGettingStarted::PresetCompanyName(const std::string& name) {
    editCompanyName.SetText(name);
}

StarterAnswers TfrmGettingStarted::Answers() const {
    StarterAnswers answers;
    answers.CompanyName = editCompanyName.Text();
    answers.FiscalYear = YearOf(editFiscalYear.Text());
    answers.Address =
        editAddressLine1.Text() + "\n" + editAddressLine2.Text() + "\n" + editAddressLine3.Text();
    answers.CurrencyName = editCurrencyName.Text();
    answers.BankName = editBankName.Text();
    answers.TaxName = editTaxName.Text();
    answers.TaxRate = RateOf(editRate.Text()).value_or(0.0);
    return answers;
}

ui::Edit& TfrmGettingStarted::EditOf(StarterField field) {
    switch (field) {
    case StarterField::CompanyName:
        return editCompanyName;
    case StarterField::FiscalYear:
        return editFiscalYear;
    case StarterField::CurrencyName:
        return editCurrencyName;
    case StarterField::BankName:
        return editBankName;
    case StarterField::TaxName:
        return editTaxName;
    case StarterField::TaxRate:
        break;
    }
    return editRate;
}

void TfrmGettingStarted::Check(const std::optional<StarterRefusal>& refusal) {
    if (!refusal) return;
    ui::Edit& edit = EditOf(refusal->Field);
    if (edit.CanFocus()) edit.SetFocus();
    throw Exception(refusal->Message);
}

void TfrmGettingStarted::ShowPage(ui::Page& page) {
    page.TabVisible = true;
    pcWizard.SetActivePage(page);
    for (ui::Page* other : pcWizard.Pages())
        if (other != &page) other->TabVisible = false;
    btnBack.Enabled = &page != &PanelCompany;
    btnNext.Caption = &page == &PanelFinish ? kFinishCaption : kNextCaption;
    ui::Control* first = nullptr;
    page.Layout()->ForEachControl([&first](ui::Control& c) {
        if (!first && c.TabStop && c.CanFocus()) first = &c;
    });
    if (first)
        first->SetFocus();
    else
        btnNext.SetFocus();
}

void TfrmGettingStarted::Next() {
    CommitPendingEdit();
    ui::Page* page = pcWizard.ActivePage();
    if (page == &PanelCompany) {
        Check(CheckCompanyPage(Answers()));
        ShowPage(PanelCurrency);
    } else if (page == &PanelCurrency) {
        Check(CheckCurrencyPage(Answers()));
        ShowPage(panelTax);
    } else if (page == &panelTax) {
        if (!RateOf(editRate.Text())) {
            editRate.SetFocus();
            throw Exception("'" + editRate.Text() +
                            "' is not a valid floating point value for field 'Rate'");
        }
        Check(CheckTaxPage(Answers()));
        ShowPage(PanelFinish);
    } else {
        Finish();
    }
}

void TfrmGettingStarted::Back() {
    ui::Page* page = pcWizard.ActivePage();
    if (page == &PanelCurrency)
        ShowPage(PanelCompany);
    else if (page == &panelTax)
        ShowPage(PanelCurrency);
    else if (page == &PanelFinish)
        ShowPage(panelTax);
}

void TfrmGettingStarted::Finish() {
    const StarterAnswers answers = Answers();
    {
        ui::WaitCursor wait(App());
        CreateStarterCompany(db_, answers);
    }
    SetModalResult(ui::mrOK);
    if (!IsModal()) Close();
}

} // namespace corvane::company
