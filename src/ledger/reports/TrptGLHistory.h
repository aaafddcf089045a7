#pragma once

#include "reports/run/TrptBase.h"
#include "store/Table.h"

#include <cstdint>
#include <optional>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// The posted voucher lines, newest period first, grouped by period with the total of each period
// and of the whole. The caller gives the cursor the order and filter of the history list before
// Open; AccountType (0 for all) is tested line by line, as the list does, since the type lives on
// the account. Account narrows to one account's lines, Year and Period to one year or period.
class TrptGLHistory : public reports::TrptBase {
public:
    static constexpr const char* kAllIndex = "PeriodDateJVDESC";
    static constexpr const char* kAccountIndex = "GLAccntIDPeriodDateJVDESC";

    explicit TrptGLHistory(store::Database& db);

    store::Table tblGLHist;
    // The accounts and subaccounts behind the labels and the type test.
    store::Table tblGLAccnt, tblGLAcSub1, tblGLAcSub2, tblGLAcSub3;
    int AccountType = 0;
    std::optional<std::int64_t> Account;
    std::optional<int> Year;
    std::optional<int> Period; // only with Year

    void Open() override;

private:
    void CalculateRow(store::DataSet& ds);
    bool TypeMatches(store::DataSet& ds);
};

} // namespace corvane::ledger
