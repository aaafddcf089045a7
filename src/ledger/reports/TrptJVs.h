#pragma once

#include "reports/run/TrptBase.h"
#include "store/Table.h"

#include <optional>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// The vouchers with their period, number, date, description, source and amount, and the total of
// the amounts. By period and number unless the caller gives the cursor the order and filter of the
// list before Open; Year, and Period within it, narrow to one year or one period.
class TrptJVs : public reports::TrptBase {
public:
    explicit TrptJVs(store::Database& db);

    store::Table tblJV;
    std::optional<int> Year;
    std::optional<int> Period; // only with Year

    void Open() override;
};

} // namespace corvane::ledger
