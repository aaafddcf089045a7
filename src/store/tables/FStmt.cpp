#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Financial statement definitions.
const TableDef& FStmt() {
    static const TableDef def{
        "FStmt",
        {
            {"StmtID", FieldType::Integer, 0, Required},
            {"StmtTitle", FieldType::String, 40, Required},
            {"ColumnFormat", FieldType::String, 40, Required},
            {"Notes", FieldType::Memo},
        },
        {
            {"", {"StmtID"}, ixPrimary | ixUnique},
            {"StmtTitle1", {"StmtTitle"}, ixNoCase},
        },
    };
    return def;
}

} // namespace corvane::store::tables
