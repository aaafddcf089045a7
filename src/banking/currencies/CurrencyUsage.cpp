#include "banking/currencies/CurrencyUsage.h"

#include "store/Query.h"

#include <array>

namespace corvane::banking {

namespace {

// Documents carry their currency through their vendor or customer, so these three are all a
// currency can be used by.
constexpr std::array kCurrencyUses{
    CurrencyUse{"Bank", "Bank(s) exist for this currency"},
    CurrencyUse{"Vendor", "Vendor(s) exist for this currency"},
    CurrencyUse{"Customer", "Customer(s) exist for this currency"},
};

// Whether any row of the table names the currency. The table comes from the list above, never
// from the user; the id is bound.
bool Used(store::Database& db, std::string_view table, std::int64_t currencyId) {
    store::Query query(db);
    query.SetSQL("SELECT TOP 1 CurrencyID FROM " + std::string(table) + " WHERE CurrencyID = :ID");
    query.ParamByName("ID").SetAsInteger(currencyId);
    query.Open();
    return !query.IsEmpty();
}

} // namespace

std::span<const CurrencyUse> CurrencyUses() {
    return kCurrencyUses;
}

std::string CurrencyInUse(store::Database& db, std::int64_t currencyId) {
    for (const CurrencyUse& use : kCurrencyUses)
        if (Used(db, use.Table, currencyId)) return std::string(use.Reason);
    return {};
}

std::string CurrencyDeleteQuestion(std::string_view name) {
    return "Delete '" + std::string(name) + "'?";
}

std::string CurrencyDeleteRefusal(std::string_view name, std::string_view reason) {
    return "Unable to delete '" + std::string(name) + "'...\n" + std::string(reason);
}

} // namespace corvane::banking
