#pragma once

#include <string>
#include <vector>

namespace corvane::ledger {

// The kinds of account, stored in AccountType as 1 to 5.
enum AccountType { atAsset = 1, atLiability, atRevenue, atExpense, atEquity };

// "Asset" .. "Equity"; empty for a value that is no type.
std::string AccountTypeLabel(long long type);
// The five labels in the order of their values.
std::vector<std::string> AccountTypeLabels();

} // namespace corvane::ledger
