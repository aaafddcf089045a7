#pragma once

#include "ledger/accounts/AccountBox.h"
#include "shell/patterns/EntryForm.h"
#include "ui/DBEdit.h"
#include "ui/Edit.h"
#include "ui/FieldDataLink.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::receivables {

// One sales tax: its name, the letter items carry for it, the text of the invoice footer, the
// rate and the account the tax is credited to.
class TfrmTax : public shell::EntryForm {
public:
    TfrmTax(ui::Application& app, store::Database& db);

    store::Table& tblTax = EntryTable;
    ui::DBEdit editTaxName{*this, "editTaxName", EntryTable, "TaxName"};
    ui::DBEdit editTaxCode{*this, "editTaxCode", EntryTable, "TaxCode"};
    ui::DBEdit editTaxDescription{*this, "editTaxDescription", EntryTable, "TaxDescription"};
    ui::DBEdit editRate{*this, "editRate", EntryTable, "Rate"};
    ui::Edit editTaxGLAccount{*this, "editTaxGLAccount"};
    ui::Edit editTaxGLAccountName{*this, "editTaxGLAccountName"};

    shell::TdmLookUps* LookUps = nullptr;

protected:
    std::string KeyViolationMessage() const override;

private:
    void BeforePostTax();
    void ShowCaption();

    ledger::AccountBox accountNumber_;
    ledger::AccountBox accountName_;
    ui::DBEdit* const nameEdit_ = &editTaxName;
    ui::FieldDataLink nameLink_{EntryTable, "TaxName", [this] { ShowCaption(); }};
};

} // namespace corvane::receivables
