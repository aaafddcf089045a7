#pragma once

#include "core/Money.h"

#include <array>
#include <optional>
#include <string>

namespace corvane::store {
class DataSet;
}

namespace corvane::ledger {

// What the period columns of the totals show.
enum class TotalsData {
    Auto,      // net change for revenue and expense accounts, balance for the others
    Balance,   // the running balance at the end of each period
    NetChange, // the movement of each period
};

// One year of an account's totals as stored: the opening balance and the net of each period.
struct YearAmounts {
    int AccountType = 0;
    Money OpeningBal;
    std::array<Money, 12> Amounts{};
};

struct PeriodColumnValues {
    std::array<Money, 12> Periods{};
    Money Total; // the year's change: the twelve amounts, never the opening balance
};

// The twelve columns of a row under the chosen data.
PeriodColumnValues PeriodColumnsOf(const YearAmounts& year, TotalsData data);

// True when the row shows movements rather than balances.
bool ShowsNetChange(int accountType, TotalsData data);

// "Period1" .. "Period12": the calculated period columns of a totals row.
std::string PeriodField(int n);

// Fills what a row of the totals query shows, for the list and its report alike: the account
// labels, Period1..Period12 under the chosen data and AmountTot. An account without totals keeps
// its amounts empty.
void CalculateTotalsRow(store::DataSet& row, TotalsData data);

} // namespace corvane::ledger
