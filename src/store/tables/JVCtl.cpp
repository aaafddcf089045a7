#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Control record of journal vouchers.
const TableDef& JVCtl() {
    static const TableDef def{
        "JVCtl",
        {
            {"NextJVID", FieldType::Integer},
            {"NextJVNumber", FieldType::Integer},
        },
        {},
    };
    return def;
}

} // namespace corvane::store::tables
