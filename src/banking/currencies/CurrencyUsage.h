#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace corvane::store {
class Database;
}

namespace corvane::banking {

// A table whose rows name a currency, and what the refusal to delete that currency says.
struct CurrencyUse {
    std::string_view Table;
    std::string_view Reason;
};

// Every table a currency is referred to from, by its CurrencyID, in the order a delete tests
// them.
std::span<const CurrencyUse> CurrencyUses();

// The reason of the first use found; empty when the currency is used nowhere.
std::string CurrencyInUse(store::Database& db, std::int64_t currencyId);

// "Delete '<name>'?" and "Unable to delete '<name>'...\n" + reason.
std::string CurrencyDeleteQuestion(std::string_view name);
std::string CurrencyDeleteRefusal(std::string_view name, std::string_view reason);

} // namespace corvane::banking
