#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Totals of a statement line.
const TableDef& FStmtLTo() {
    static const TableDef def{
        "FStmtLTo",
        {
            {"StmtID", FieldType::Integer, 0, Required},
            {"Seq", FieldType::Integer, 0, Required},
            {"TotalLineSeq", FieldType::Integer, 0, Required},
            {"SeqEntered", FieldType::AutoInc},
        },
        {
            {"", {"StmtID", "Seq", "TotalLineSeq"}, ixPrimary | ixUnique},
            {"StmtIDTotalLineSeq", {"StmtID", "TotalLineSeq"}, 0},
            {"SeqEntered1", {"StmtID", "Seq", "SeqEntered"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
