#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Control record of customers.
const TableDef& CustCtl() {
    static const TableDef def{
        "CustCtl",
        {
            {"NextCustomerNo", FieldType::Integer},
            {"NextCustomerID", FieldType::Integer},
        },
        {},
    };
    return def;
}

} // namespace corvane::store::tables
