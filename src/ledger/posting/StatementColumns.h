#pragma once

#include "core/Money.h"
#include "ledger/posting/VoucherPosting.h"

#include <cstdint>
#include <optional>

namespace corvane::store {
class Statement;
}

namespace corvane::ledger {

// Reading the ledger's columns from a row of a prepared statement: null stays apart from 0 for
// ids, and an empty amount reads as 0.
std::optional<std::int64_t> OptionalInt(const store::Statement& s, int column);
Money MoneyAt(const store::Statement& s, int column);
// GLAccountID and the three subaccount ids, from `first` on.
AccountKey ReadAccount(const store::Statement& s, int first);

} // namespace corvane::ledger
