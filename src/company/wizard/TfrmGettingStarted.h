#pragma once

#include "company/wizard/StarterAnswers.h"
#include "company/wizard/StarterChecks.h"
#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/PageControl.h"

#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::company {

// The New Company Wizard: four pages that ask for the least a new company needs, one at a time.
// Nothing is written until Finish, so leaving the wizard early leaves the company as empty as it
// was, and the wizard comes again the next time the company opens.
class TfrmGettingStarted : public ui::Form {
public:
    TfrmGettingStarted(ui::Application& app, store::Database& db);

    // The name the company was given in its shortcut.
    void PresetCompanyName(const std::string& name);

    // What the pages hold now.
    StarterAnswers Answers() const;

    ui::PageControl pcWizard{*this, "pcWizard"};
    ui::Page PanelCompany{pcWizard, "PanelCompany", "Company"};
    ui::Page PanelCurrency{pcWizard, "PanelCurrency", "Currency and Bank"};
    ui::Page panelTax{pcWizard, "panelTax", "Sales Tax"};
    ui::Page PanelFinish{pcWizard, "PanelFinish", "Finish"};

    ui::Label lblCompanyHeading{*this, "lblCompanyHeading",
                                "Please enter your company information..."};
    ui::Label lblCompanyName{*this, "lblCompanyName", "Company &Name:"};
    ui::Edit editCompanyName{*this, "editCompanyName"};
    ui::Label lblFiscalYear{*this, "lblFiscalYear", "&Fiscal Year:"};
    ui::Edit editFiscalYear{*this, "editFiscalYear"};
    ui::Label lblAddress{*this, "lblAddress", "&Address:"};
    ui::Edit editAddressLine1{*this, "editAddressLine1"};
    ui::Edit editAddressLine2{*this, "editAddressLine2"};
    ui::Edit editAddressLine3{*this, "editAddressLine3"};

    ui::Label lblCurrencyHeading{*this, "lblCurrencyHeading", "Your main bank account is..."};
    ui::Label lblCurrencyName{*this, "lblCurrencyName", "&Currency:"};
    ui::Edit editCurrencyName{*this, "editCurrencyName"};
    ui::Label lblBankName{*this, "lblBankName", "&Bank Name:"};
    ui::Edit editBankName{*this, "editBankName"};
    ui::Label lblMoreBanks{*this, "lblMoreBanks", "You can add more later."};

    ui::Label lblTaxHeading{*this, "lblTaxHeading", "Sales tax you collect (if applicable)..."};
    ui::Label lblTaxName{*this, "lblTaxName", "&Tax Name:"};
    ui::Edit editTaxName{*this, "editTaxName"};
    ui::Label lblRate{*this, "lblRate", "&Rate %:"};
    ui::Edit editRate{*this, "editRate"};
    ui::Label lblMoreTaxes{*this, "lblMoreTaxes", "You can add more taxes later."};

    ui::Label lblFinishReady{*this, "lblFinishReady"};
    ui::Label lblFinishChart{*this, "lblFinishChart",
                             "A sample chart of accounts will now be added. You can add, modify, "
                             "or delete GL accounts to suit the needs of your company."};
    ui::Label lblFinishMore{*this, "lblFinishMore",
                            "You can add more bank accounts, currencies, taxes, and a logo. "
                            "See Help."};

    ui::Button btnBack{*this, "btnBack", "< &Back"};
    ui::Button btnNext{*this, "btnNext", "&Next >"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    static constexpr const char* kNextCaption = "&Next >";
    static constexpr const char* kFinishCaption = "&Finish";

private:
    void Next();
    void Back();
    void ShowPage(ui::Page& page);
    // Raises the refusal's message with the focus on its field.
    void Check(const std::optional<StarterRefusal>& refusal);
    ui::Edit& EditOf(StarterField field);
    void Finish();

    store::Database& db_;
};

} // namespace corvane::company
