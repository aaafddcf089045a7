#include "banking/domain/CurrencyRecord.h"

#include "banking/domain/RecordChecks.h"
#include "banking/domain/RowUse.h"
#include "store/DataSet.h"

#include <array>

namespace corvane::banking {

namespace {

constexpr std::array kCurrencyAccounts{
    CurrencyAccount{"APGLAccountID", "AP Account"},
    CurrencyAccount{"GainLossExchangeGLAccntID", "Gain/Loss Exchange Account", true},
    CurrencyAccount{"ARGLAccountID", "AR Account"},
    CurrencyAccount{"APDiscGLAccountID", "AP Discounts GL Account"},
    CurrencyAccount{"ARDiscGLAccountID", "AR Discounts GL Account"},
    CurrencyAccount{"DfltWriteOffGLAccountID", ""},
};

constexpr std::array kCurrencyUses{
    RowUse{"Bank", "CurrencyID", "Bank(s) exist for this currency"},
    RowUse{"Vendor", "CurrencyID", "Vendor(s) exist for this currency"},
    RowUse{"Customer", "CurrencyID", "Customer(s) exist for this currency"},
};

} // namespace

std::span<const CurrencyAccount> CurrencyAccounts() {
    return kCurrencyAccounts;
}

Verdict CheckCurrency(store::Database& db, store::DataSet& currency) {
    if (IsBlank(currency.FieldByName("CurrencyName")))
        return MissingValue("CurrencyName", "Currency Name");
    // A null rate is no rate: the home currency needs no gain or loss account.
    const bool rateEntered = currency.FieldByName("ExchangeRate").AsFloat() != 0.0;
    for (const CurrencyAccount& account : kCurrencyAccounts) {
        if (account.Required.empty() || (account.OnlyWithRate && !rateEntered)) continue;
        if (!NoId(currency.FieldByName(std::string(account.Field)))) continue;
        Refusal missing = MissingValue(account.Field, account.Required);
        if (account.OnlyWithRate) missing.Message += " if rate is entered";
        return missing;
    }
    for (const CurrencyAccount& account : kCurrencyAccounts) {
        const store::Field& field = currency.FieldByName(std::string(account.Field));
        if (!NoId(field) && !RowExists(db, "GLAccnt", "GLAccountID", field.AsInteger()))
            return Refusal{std::string(account.Field), "GL Account no longer exists"};
    }
    return std::nullopt;
}

std::string CurrencyInUse(store::Database& db, std::int64_t currencyId) {
    return FirstUse(db, kCurrencyUses, currencyId);
}

} // namespace corvane::banking
