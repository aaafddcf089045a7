#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Customer types.
const TableDef& CusType() {
    static const TableDef def{
        "CusType",
        {
            {"CustomerTypeID", FieldType::Integer},
            {"TypeName", FieldType::String, 40, Required},
        },
        {
            {"", {"CustomerTypeID"}, ixPrimary | ixUnique},
            {"TypeName1", {"TypeName"}, ixUnique | ixNoCase},
        },
    };
    return def;
}

} // namespace corvane::store::tables
