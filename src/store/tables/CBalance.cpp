#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Customer balances by currency.
const TableDef& CBalance() {
    static const TableDef def{
        "CBalance",
        {
            {"CustomerID", FieldType::Integer},
            {"Balance", FieldType::Currency},
        },
        {
            {"", {"CustomerID"}, ixPrimary | ixUnique},
        },
    };
    return def;
}

} // namespace corvane::store::tables
