#pragma once

namespace corvane::store {
class DataSet;
class Table;
} // namespace corvane::store

namespace corvane::ledger {

// The cursors a history line's shown fields are looked up in.
struct HistoryLookups {
    store::Table& Accounts;
    store::Table& Sub1;
    store::Table& Sub2;
    store::Table& Sub3;
};

// Fills what a history line shows beside its stored fields, for the list and its report alike:
// "Periodppyyyy" ("04/2017"), "SourceType" ("AP Pmt"), "AccountNo" and "AccountNameLabel" with
// the subaccount levels.
void CalculateHistoryLine(store::DataSet& line, const HistoryLookups& lookups);

// Whether the line's account is of the type (1 asset ... 5 equity); 0 takes every line. The type
// lives on the account, not on the line, so it is looked up for each line.
bool HistoryLineHasType(store::DataSet& line, store::Table& accounts, int accountType);

} // namespace corvane::ledger
