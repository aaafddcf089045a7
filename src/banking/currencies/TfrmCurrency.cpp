#include "banking/currencies/TfrmCurrency.h"

#include "core/Exception.h"
#include "core/Text.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Layout.h"

#include <array>

namespace corvane::banking {

// A control account of the currency: its field, the label beside its boxes, the name its
// required-field message gives it (empty when it may stay empty), and its two boxes.
struct TfrmCurrency::ControlAccount {
    std::string_view Field;
    std::string_view Caption;
    std::string_view Required;
    // The gain or loss account is needed only where amounts convert, that is when a rate is
    // entered.
    bool OnlyWithRate;
    ui::Edit TfrmCurrency::*Number;
    ui::Edit TfrmCurrency::*Name;
};

namespace {

using CurrencyForm = TfrmCurrency;

bool Blank(const store::Field& field) {
    return field.IsNull() || TrimBlanks(field.AsString()).empty();
}

// No account is id 0: a 0 left by an import counts as none.
bool NoAccount(const store::Field& field) {
    return field.IsNull() || field.AsInteger() == 0;
}

std::string RateField(std::string_view year, int period) {
    return "ExchangeRate" + std::string(year) + std::to_string(period);
}

// Two columns of six periods.
ui::LayoutItem RateLayout(std::array<std::unique_ptr<ui::DBEdit>, CurrencyForm::Periods>& edits) {
    using namespace ui;
    auto row = [&edits](int period) {
        return FormRow{"Period " + std::to_string(period) + ":", *edits[period - 1]};
    };
    return Row{
        Column{row(1), row(2), row(3), row(4), row(5), row(6)},
        Column{row(7), row(8), row(9), row(10), row(11), row(12)},
        Stretch{},
    };
}

} // namespace

std::span<const TfrmCurrency::ControlAccount> TfrmCurrency::ControlAccounts() {
    // In the order of the form and of the save checks.
    static const std::array<ControlAccount, 6> accounts{{
        {"APGLAccountID", "Accounts Payable:", "AP Account", false, &CurrencyForm::editAPGLAccount,
         &CurrencyForm::editAPGLAccountName},
        {"GainLossExchangeGLAccntID", "Gain/Loss on Exchange:", "Gain/Loss Exchange Account", true,
         &CurrencyForm::editGainLossExchangeGLAccnt,
         &CurrencyForm::editGainLossExchangeGLAccntName},
        {"ARGLAccountID", "Accounts Receivable:", "AR Account", false,
         &CurrencyForm::editARGLAccount, &CurrencyForm::editARGLAccountName},
        {"APDiscGLAccountID", "AP Discounts:", "AP Discounts GL Account", false,
         &CurrencyForm::editAPDiscGLAccount, &CurrencyForm::editAPDiscGLAccountName},
        {"ARDiscGLAccountID", "AR Discounts:", "AR Discounts GL Account", false,
         &CurrencyForm::editARDiscGLAccount, &CurrencyForm::editARDiscGLAccountName},
        {"DfltWriteOffGLAccountID", "Default AR Write-offs:", "", false,
         &CurrencyForm::editDfltWriteOffGLAccount, &CurrencyForm::editDfltWriteOffGLAccountName},
    }};
    return accounts;
}

TfrmCurrency::TfrmCurrency(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmCurrency", db, "Currency", "tblCurrency") {
    using namespace ui;
    // A new currency's id follows the highest, drawn by the save itself.
    EntryTable.SetDrawnKey("CurrencyID");
    EntryTable.FieldByName("CurrencyName").DisplayLabel = "Currency Name";
    EntryTable.FieldByName("ExchangeRate").DisplayLabel = "Exchange Rate";
    for (const ControlAccount& account : ControlAccounts()) {
        if (!account.Required.empty())
            EntryTable.FieldByName(std::string(account.Field)).DisplayLabel =
                std::string(account.Required);
        numberBoxes_.push_back(std::make_unique<ledger::AccountBox>(
            this->*account.Number, EntryTable, std::string(account.Field), db));
        nameBoxes_.push_back(std::make_unique<ledger::AccountBox>(this->*account.Name, EntryTable,
                                                                  std::string(account.Field), db,
                                                                  ledger::AccountBoxShows::Name));
    }
    for (int period = 1; period <= Periods; ++period) {
        thisYear_[period - 1] =
            std::make_unique<DBEdit>(*this, "editExchangeRateTY" + std::to_string(period),
                                     EntryTable, RateField("TY", period));
        lastYear_[period - 1] =
            std::make_unique<DBEdit>(*this, "editExchangeRateLY" + std::to_string(period),
                                     EntryTable, RateField("LY", period));
    }

    auto accountRow = [this](std::size_t i) {
        const ControlAccount& account = ControlAccounts()[i];
        return FormRow{std::string(account.Caption),
                       Row{this->*account.Number, this->*account.Name}};
    };
    tabAccounts.SetLayout(Column{accountRow(0), accountRow(1), accountRow(2), accountRow(3),
                                 accountRow(4), accountRow(5), Stretch{}});
    tabThisYear.SetLayout(RateLayout(thisYear_));
    tabLastYear.SetLayout(RateLayout(lastYear_));
    SetLayout(Column{
        FormRow{"Currency Name:", editCurrencyName},
        FormRow{"Exchange Rate:", editExchangeRate},
        pgcCurrency,
        ButtonRow{btnOK, btnCancel},
    });

    EntryTable.BeforePost = [this](store::DataSet&) { BeforePostCurrency(); };
    EntryTable.AfterPost = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::Currency);
    };
    OnShow = [this] {
        pgcCurrency.SetActivePage(tabAccounts);
        ShowCaption();
    };
}

TfrmCurrency::~TfrmCurrency() = default;

void TfrmCurrency::FocusOnAccounts(ui::Control& control) {
    pgcCurrency.SetActivePage(tabAccounts);
    if (control.CanFocus()) control.SetFocus();
}

void TfrmCurrency::BeforePostCurrency() {
    if (Blank(EntryTable.FieldByName("CurrencyName"))) {
        if (editCurrencyName.CanFocus()) editCurrencyName.SetFocus();
        throw Exception("Field 'Currency Name' must have a value");
    }
    // A null rate is no rate: the home currency needs no gain or loss account.
    const bool rateEntered = EntryTable.FieldByName("ExchangeRate").AsFloat() != 0.0;
    for (const ControlAccount& account : ControlAccounts()) {
        if (account.Required.empty() || (account.OnlyWithRate && !rateEntered)) continue;
        if (!NoAccount(EntryTable.FieldByName(std::string(account.Field)))) continue;
        FocusOnAccounts(this->*account.Number);
        throw Exception("Field '" + std::string(account.Required) + "' must have a value" +
                        (account.OnlyWithRate ? " if rate is entered" : ""));
    }
    // An account chosen here may have been deleted by another user since.
    for (std::size_t i = 0; i < numberBoxes_.size(); ++i) {
        try {
            numberBoxes_[i]->CheckStillExists();
        } catch (const Exception&) {
            FocusOnAccounts(this->*ControlAccounts()[i].Number);
            throw;
        }
    }
}

void TfrmCurrency::ShowCaption() {
    if (!EntryTable.Active()) return;
    if (EntryTable.State() == store::DataSetState::Insert)
        Caption = "New Currency";
    else
        Caption = EntryTable.FieldByName("CurrencyName").AsString();
}

std::string TfrmCurrency::KeyViolationMessage() const {
    if (Visible() && nameEdit_->CanFocus()) nameEdit_->SetFocus();
    return "Currency Name must be unique";
}

} // namespace corvane::banking
