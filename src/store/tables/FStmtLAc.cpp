#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Accounts of a statement line.
const TableDef& FStmtLAc() {
    static const TableDef def{
        "FStmtLAc",
        {
            {"StmtID", FieldType::Integer, 0, Required},
            {"Seq", FieldType::Integer, 0, Required},
            {"AccountFrom", FieldType::String, 10, Required},
            {"AccountTo", FieldType::String, 10},
            {"SubAccount1ID", FieldType::Integer},
            {"SubAccount2ID", FieldType::Integer},
            {"SubAccount3ID", FieldType::Integer},
        },
        {
            {"", {"StmtID", "Seq", "AccountFrom"}, ixPrimary | ixUnique},
        },
    };
    return def;
}

} // namespace corvane::store::tables
