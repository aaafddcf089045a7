#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Subaccounts of level 1.
const TableDef& GLAcSub1() {
    static const TableDef def{
        "GLAcSub1",
        {
            {"SubAccountID", FieldType::Integer},
            {"SubAccount", FieldType::String, 5, Required},
            {"SubAccountName", FieldType::String, 12, Required},
            {"Suspended", FieldType::Boolean},
        },
        {
            {"", {"SubAccountID"}, ixPrimary | ixUnique},
            {"SubAccountName1", {"SubAccountName"}, ixUnique | ixNoCase},
            {"SubAccount", {"SubAccount"}, ixUnique},
        },
    };
    return def;
}

} // namespace corvane::store::tables
