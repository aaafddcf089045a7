#pragma once

#include "core/Refusal.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::banking {

// A control account of a currency as its save checks it: its field, the name its required-field
// message gives it (empty when it may stay empty), and whether it is needed only when a rate is
// entered, as the gain or loss account is, since only then do amounts convert.
struct CurrencyAccount {
    std::string_view Field;
    std::string_view Required;
    bool OnlyWithRate = false;
};

// The six control accounts, in the order of the form and of the save checks.
std::span<const CurrencyAccount> CurrencyAccounts();

// The checks before a currency is written: its name, then each control account it must have, then
// every account given still on file (another user may have deleted one since it was chosen).
// "Currency Name must be unique" is the index's.
Verdict CheckCurrency(store::Database& db, store::DataSet& currency);

// Why the currency cannot be deleted: banks, vendors, then customers in it; empty when none is.
// Documents carry their currency through their vendor or customer, so these are all its uses.
std::string CurrencyInUse(store::Database& db, std::int64_t currencyId);

} // namespace corvane::banking
