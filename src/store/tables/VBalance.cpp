#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Vendor balances by currency.
const TableDef& VBalance() {
    static const TableDef def{
        "VBalance",
        {
            {"VendorID", FieldType::Integer},
            {"Balance", FieldType::Currency},
        },
        {
            {"", {"VendorID"}, ixPrimary | ixUnique},
        },
    };
    return def;
}

} // namespace corvane::store::tables
