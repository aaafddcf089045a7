#pragma once

#include "core/Refusal.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::receivables {

// The checks of a Tax row before it is saved, in the order the user is told: name, code,
// description, rate (0 is a rate; only nothing is not), account, and the account still on file.
// A name taken twice is the unique index's to refuse ("Tax Name must be unique").
Verdict CheckTax(store::Database& db, store::DataSet& tax);

// Why the tax cannot be deleted: customers that name it first, then invoices; empty when
// nothing does. Items and task types name taxes by letter, so they are no reference to it.
std::string TaxInUse(store::Database& db, std::int64_t taxId);

// "Unable to delete tax '<name>'...\n<reason>".
std::string TaxDeleteRefusal(std::string_view name, std::string_view reason);

inline constexpr std::string_view TaxNameTakenMessage = "Tax Name must be unique";

} // namespace corvane::receivables
