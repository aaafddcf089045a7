#pragma once

#include "ledger/accounts/AccountBox.h"
#include "shell/patterns/EntryForm.h"
#include "ui/DBEdit.h"
#include "ui/DBLookupComboBox.h"
#include "ui/FieldDataLink.h"

#include <functional>
#include <string_view>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::banking {

// One bank: its name, its currency and the ledger account its cheques and deposits go to.
class TfrmBank : public shell::EntryForm {
public:
    TfrmBank(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps);

    store::Table& tblBank = EntryTable;
    ui::DBEdit editBankName{*this, "editBankName", EntryTable, "BankName"};
    ui::DBLookupComboBox cboCurrency;
    ui::Button btnCurrencies{*this, "btnCurrencies", "..."};
    ui::Edit editBankGLAccount{*this, "editBankGLAccount"};
    ui::Edit editBankGLAccountName{*this, "editBankGLAccountName"};
    ui::Button btnGLAccounts{*this, "btnGLAccounts", "..."};

    shell::TdmLookUps* LookUps = nullptr;
protected:
    std::string KeyViolationMessage() const override;

private:
    void ShowCaption();

    ledger::AccountBox accountNumber_;
    ledger::AccountBox accountName_;
    ui::DBEdit* const nameEdit_ = &editBankName;
    ui::FieldDataLink nameLink_{EntryTable, "BankName", [this] { ShowCaption(); }};
};

} // namespace corvane::banking
