#pragma once

namespace corvane::store {
class DataSet;
class Table;
} // namespace corvane::store

namespace corvane::ledger {

// A report printed from a list shows what the list shows: the list's order, its filter text and
// whether the filter is on, given to the report's cursor before it opens.
void FollowList(const store::Table& list, store::Table& report);

// The filter alone, for a report over a query whose order is in its statement.
void FollowFilter(const store::DataSet& list, store::DataSet& report);

} // namespace corvane::ledger
