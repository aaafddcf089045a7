#pragma once

#include "ledger/inquiry/PeriodColumns.h"
#include "reports/run/TrptBase.h"
#include "store/Query.h"

#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// The totals of the ledger as the totals list shows them, on landscape paper: each account with
// its subaccounts and year, the opening balance, the twelve periods as balances or movements
// after Data, and the year's change. The statement is the list's own, with its conditions and
// order.
class TrptGLBalances : public reports::TrptBase {
public:
    TrptGLBalances(store::Database& db, std::string statement, TotalsData data);

    store::Query qryGLAccnt;

    void Open() override;

private:
    void CalculateRow(store::DataSet& ds);

    TotalsData data_;
};

} // namespace corvane::ledger
