#include "ledger/inquiry/PeriodColumns.h"

#include "ledger/accounts/AccountTypes.h"

namespace corvane::ledger {

bool ShowsNetChange(int accountType, TotalsData data) {
    if (data == TotalsData::NetChange) return true;
    // Revenue and expense start each year from nothing: their movements are what one reads.
    return data == TotalsData::Auto && (accountType == atRevenue || accountType == atExpense);
}

PeriodColumnValues PeriodColumnsOf(const YearAmounts& year, TotalsData data) {
    PeriodColumnValues values;
    bool net = ShowsNetChange(year.AccountType, data);
    Money running = year.OpeningBal;
    for (std::size_t n = 0; n < 12; ++n) {
        running += year.Amounts[n];
        values.Periods[n] = net ? year.Amounts[n] : running;
        values.Total += year.Amounts[n];
    }
    return values;
}

} // namespace corvane::ledger
