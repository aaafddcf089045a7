#pragma once

#include <ostream>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// Writes the posted history as a plain-text journal that hledger reads: one transaction per
// voucher and period, dated by the voucher's date, one posting per history row with the
// account as "number name" and the exact amount to four decimals. Returns the transactions
// written.
int ExportLedger(store::Database& db, std::ostream& out);

} // namespace corvane::ledger
