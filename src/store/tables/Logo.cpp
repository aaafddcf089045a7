#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// One row at most: the logo for invoices.
const TableDef& Logo() {
    static const TableDef def{
        "Logo",
        {
            {"Logo", FieldType::Graphic},
        },
        {},
    };
    return def;
}

} // namespace corvane::store::tables
