#include "ledger/reports/ListView.h"

#include "store/Table.h"

namespace corvane::ledger {

void FollowList(const store::Table& list, store::Table& report) {
    report.SetIndexName(list.IndexName());
    FollowFilter(list, report);
}

void FollowFilter(const store::DataSet& list, store::DataSet& report) {
    report.SetFilter(list.Filter());
    report.SetFiltered(list.Filtered());
}

} // namespace corvane::ledger
