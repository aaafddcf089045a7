#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Chart of accounts.
const TableDef& GLAccnt() {
    static const TableDef def{
        "GLAccnt",
        {
            {"GLAccountID", FieldType::Integer},
            {"GLAccount", FieldType::String, 10, Required},
            {"AccountName", FieldType::String, 50, Required},
            {"Notes", FieldType::Memo},
            {"AccountType", FieldType::SmallInt, 0, Required},
            {"RetainedEarnings", FieldType::Boolean},
            {"Suspended", FieldType::Boolean},
        },
        {
            {"", {"GLAccountID"}, ixPrimary | ixUnique},
            {"AccountName1", {"AccountName"}, ixUnique | ixNoCase},
            {"GLAccount", {"GLAccount"}, ixUnique},
            {"AccountType", {"AccountType"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
