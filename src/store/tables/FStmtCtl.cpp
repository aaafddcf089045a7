#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Control record of financial statements.
const TableDef& FStmtCtl() {
    static const TableDef def{
        "FStmtCtl",
        {
            {"NextStmtID", FieldType::Integer},
        },
        {},
    };
    return def;
}

} // namespace corvane::store::tables
