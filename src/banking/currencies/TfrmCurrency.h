#pragma once

#include "ledger/accounts/AccountBox.h"
#include "shell/patterns/EntryForm.h"
#include "ui/DBEdit.h"
#include "ui/Edit.h"
#include "ui/FieldDataLink.h"
#include "ui/PageControl.h"

#include <array>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::banking {

// One currency: its name, its present rate, the six control accounts its postings use, and the
// rates of each period of this year and last year that financial statements convert at.
class TfrmCurrency : public shell::EntryForm {
public:
    TfrmCurrency(ui::Application& app, store::Database& db);
    ~TfrmCurrency() override;

    store::Table& tblCurrency = EntryTable;
    ui::DBEdit editCurrencyName{*this, "editCurrencyName", EntryTable, "CurrencyName"};
    ui::DBEdit editExchangeRate{*this, "editExchangeRate", EntryTable, "ExchangeRate"};
    ui::PageControl pgcCurrency{*this, "pgcCurrency"};
    ui::Page tabAccounts{pgcCurrency, "tabAccounts", "GL Accounts"};
    ui::Page tabThisYear{pgcCurrency, "tabThisYear", "This Year Exchange Rates"};
    ui::Page tabLastYear{pgcCurrency, "tabLastYear", "Last Year Exchange Rates"};

    // Each control account as its number and its name; typing into either opens the search.
    ui::Edit editAPGLAccount{*this, "editAPGLAccount"};
    ui::Edit editAPGLAccountName{*this, "editAPGLAccountName"};
    ui::Edit editGainLossExchangeGLAccnt{*this, "editGainLossExchangeGLAccnt"};
    ui::Edit editGainLossExchangeGLAccntName{*this, "editGainLossExchangeGLAccntName"};
    ui::Edit editARGLAccount{*this, "editARGLAccount"};
    ui::Edit editARGLAccountName{*this, "editARGLAccountName"};
    ui::Edit editAPDiscGLAccount{*this, "editAPDiscGLAccount"};
    ui::Edit editAPDiscGLAccountName{*this, "editAPDiscGLAccountName"};
    ui::Edit editARDiscGLAccount{*this, "editARDiscGLAccount"};
    ui::Edit editARDiscGLAccountName{*this, "editARDiscGLAccountName"};
    ui::Edit editDfltWriteOffGLAccount{*this, "editDfltWriteOffGLAccount"};
    ui::Edit editDfltWriteOffGLAccountName{*this, "editDfltWriteOffGLAccountName"};

    // The period rates, editExchangeRateTY1..12 and editExchangeRateLY1..12.
    static constexpr int Periods = 12;
    ui::DBEdit& RateThisYear(int period) { return *thisYear_.at(period - 1); }
    ui::DBEdit& RateLastYear(int period) { return *lastYear_.at(period - 1); }

    // Refreshed after a save, so that every currency list shows the row as saved.
    shell::TdmLookUps* LookUps = nullptr;

protected:
    std::string KeyViolationMessage() const override;

private:
    struct ControlAccount;
    static std::span<const ControlAccount> ControlAccounts();

    void BeforePostCurrency();
    void ShowCaption();

    std::array<std::unique_ptr<ui::DBEdit>, Periods> thisYear_;
    std::array<std::unique_ptr<ui::DBEdit>, Periods> lastYear_;
    std::vector<std::unique_ptr<ledger::AccountBox>> numberBoxes_;
    std::vector<std::unique_ptr<ledger::AccountBox>> nameBoxes_;
    ui::DBEdit* const nameEdit_ = &editCurrencyName;
    ui::FieldDataLink nameLink_{EntryTable, "CurrencyName", [this] { ShowCaption(); }};
};

} // namespace corvane::banking
