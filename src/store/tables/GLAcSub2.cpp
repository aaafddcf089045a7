#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Subaccounts of level 2.
const TableDef& GLAcSub2() {
    static const TableDef def{
        "GLAcSub2",
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
