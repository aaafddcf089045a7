#pragma once

#include <cstdint>

namespace corvane::store {
class Database;
}

namespace corvane::testing {

// What a generated company holds. The same shape and seed always give the same company, so a
// failure found once can be found again.
struct LedgerCompanyShape {
    std::uint32_t Seed = 20171;
    int Vouchers = 3000;
    int FirstYear = 2017;
    int Years = 2;
    int Accounts = 30;
};

// A chart of accounts with subaccounts of all three levels and balanced "GL" vouchers spread over
// every period of the years, written through the store's cursors as unposted vouchers. Amounts
// use all four decimals; about one voucher in eight reverses itself, some lines carry
// subaccounts, some only a lower level with the upper ones empty. Returns the vouchers written.
int WriteUnpostedLedger(store::Database& db, const LedgerCompanyShape& shape);

// The same, then carried into the ledger by the posting run. Returns the vouchers posted.
std::int64_t WritePostedLedger(store::Database& db, const LedgerCompanyShape& shape);

} // namespace corvane::testing
