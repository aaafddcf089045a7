#pragma once

#include "core/Money.h"
#include "ledger/posting/VoucherPosting.h"
#include "store/Value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::ledger {

// Reading the ledger's columns from a row of a store query: null stays apart from 0 for ids, an
// empty number reads as 0 and an empty text as "".
using QueryRow = std::vector<store::Value>;
std::optional<std::int64_t> OptionalInt(const QueryRow& row, std::size_t column);
std::int64_t IntAt(const QueryRow& row, std::size_t column);
Money MoneyAt(const QueryRow& row, std::size_t column);
std::string TextAt(const QueryRow& row, std::size_t column);
// GLAccountID and the three subaccount ids, from `first` on.
AccountKey ReadAccount(const QueryRow& row, std::size_t first);

} // namespace corvane::ledger
