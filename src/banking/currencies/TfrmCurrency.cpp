#include "banking/currencies/TfrmCurrency.h"

#include "banking/domain/CurrencyRecord.h"
#include "banking/usage/RefusalFocus.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Layout.h"

#include <array>

namespace corvane::banking {

// A control account of the currency on the form: its field, the label beside its boxes and its
// two boxes, in the order of CurrencyAccounts().
struct TfrmCurrency::ControlAccount {
    std::string_view Field;
    std::string_view Caption;
    ui::Edit TfrmCurrency::*Number;
    ui::Edit TfrmCurrency::*Name;
};

namespace {

using CurrencyForm = TfrmCurrency;

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
        {"APGLAccountID", "Accounts Payable:", &CurrencyForm::editAPGLAccount,
         &CurrencyForm::editAPGLAccountName},
        {"GainLossExchangeGLAccntID",
         "Gain/Loss on Exchange:", &CurrencyForm::editGainLossExchangeGLAccnt,
         &CurrencyForm::editGainLossExchangeGLAccntName},
        {"ARGLAccountID", "Accounts Receivable:", &CurrencyForm::editARGLAccount,
         &CurrencyForm::editARGLAccountName},
        {"APDiscGLAccountID", "AP Discounts:", &CurrencyForm::editAPDiscGLAccount,
         &CurrencyForm::editAPDiscGLAccountName},
        {"ARDiscGLAccountID", "AR Discounts:", &CurrencyForm::editARDiscGLAccount,
         &CurrencyForm::editARDiscGLAccountName},
        {"DfltWriteOffGLAccountID", "Default AR Write-offs:",
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
    for (const CurrencyAccount& checked : CurrencyAccounts())
        if (!checked.Required.empty())
            EntryTable.FieldByName(std::string(checked.Field)).DisplayLabel =
                std::string(checked.Required);
    for (const ControlAccount& account : ControlAccounts()) {
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

void TfrmCurrency::BeforePostCurrency() {
    std::vector<FieldControl> controls{{"CurrencyName", &editCurrencyName}};
    for (const ControlAccount& account : ControlAccounts())
        controls.push_back({account.Field, &(this->*account.Number),
                            [this] { pgcCurrency.SetActivePage(tabAccounts); }});
    RaiseRefusal(CheckCurrency(EntryTable.OwnerDatabase(), EntryTable), controls);
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
