#include "ledger/inquiry/PeriodColumns.h"

#include "ledger/accounts/AccountTypes.h"
#include "ledger/inquiry/AccountLabel.h"
#include "store/DataSet.h"

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

std::string PeriodField(int n) {
    return "Period" + std::to_string(n);
}

void CalculateTotalsRow(store::DataSet& row, TotalsData data) {
    SetJoinedAccountLabels(row);
    // An account with no totals joins to nothing: its amounts stay empty.
    if (row.FieldByName("GLYear").IsNull()) return;
    YearAmounts year;
    year.AccountType = static_cast<int>(row.FieldByName("AccountType").AsInteger());
    year.OpeningBal = row.FieldByName("OpeningBal").AsMoney();
    for (int n = 1; n <= 12; ++n)
        year.Amounts[static_cast<std::size_t>(n - 1)] =
            row.FieldByName("Amount" + std::to_string(n)).AsMoney();
    PeriodColumnValues values = PeriodColumnsOf(year, data);
    for (int n = 1; n <= 12; ++n)
        row.FieldByName(PeriodField(n)).SetAsMoney(values.Periods[static_cast<std::size_t>(n - 1)]);
    row.FieldByName("AmountTot").SetAsMoney(values.Total);
}

} // namespace corvane::ledger
