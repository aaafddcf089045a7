#pragma once

#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// Proves that the ledger agrees with itself: every posted voucher balances, and each period
// amount of the totals equals the sum of the history of that account, subaccounts, year and
// period. Returns one line for each difference found; none when the ledger is sound.
std::vector<std::string> CheckLedger(store::Database& db);

} // namespace corvane::ledger
