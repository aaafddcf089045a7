#pragma once

#include "reports/run/TrptBase.h"
#include "store/Query.h"
#include "store/Table.h"

#include <cstdint>
#include <optional>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// One voucher: its number, period, date, description and source, then its lines with the account
// and subaccounts, the debits and the credits in columns of their own, and the totals of both.
// Titled "JV:  " and the number once it is open.
class TrptJV : public reports::TrptBase {
public:
    TrptJV(store::Database& db, std::int64_t jvid);

    store::Table tblJV;
    store::Query qryJVDet;

    void Open() override;

    // The voucher of that period with that number, if there is one.
    static std::optional<std::int64_t> FindVoucher(store::Database& db, int year, int period,
                                                   int number);

private:
    std::int64_t jvid_;
};

} // namespace corvane::ledger
