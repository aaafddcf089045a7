#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Lines of a statement.
const TableDef& FStmtLin() {
    static const TableDef def{
        "FStmtLin",
        {
            {"StmtID", FieldType::Integer, 0, Required},
            {"Seq", FieldType::Integer},
            {"LineNo", FieldType::Integer},
            {"LineHeading", FieldType::String, 40},
            {"LineType", FieldType::String, 14, Required},
        },
        {
            {"", {"StmtID", "Seq"}, ixPrimary | ixUnique},
            {"StmtIDLineNo", {"StmtID", "LineNo"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
