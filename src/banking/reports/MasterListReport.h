#pragma once

#include "reports/run/TrptBase.h"
#include "store/Table.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace corvane::shell {
class ListForm;
}

namespace corvane::banking {

// A column of a master list's report: the field, its heading and width in points; amounts are
// right aligned under their mask.
struct ListColumn {
    std::string_view Field;
    std::string_view Heading;
    double Width;
    std::string_view Mask = {};
};

// The report of a master list (taxes, customers, items, banks, ...): the company and the title,
// one line a row with the columns given, and the count at the end. It prints in the order and
// under the filter of the list it is printed from (FollowList), else in the index given.
class MasterListReport : public reports::TrptBase {
public:
    MasterListReport(store::Database& db, std::string_view tableName, std::string title,
                     std::string indexName, std::initializer_list<ListColumn> columns);

    // The report's one cursor, named "tbl" + the table.
    store::Table Rows;

    // Prints what the list shows: its order, its filter and whether the filter is on.
    void FollowList(const shell::ListForm& list);
    void Open() override;
};

// The banks by name with their currency and ledger account.
class TrptBanks : public MasterListReport {
public:
    explicit TrptBanks(store::Database& db);
};

} // namespace corvane::banking
