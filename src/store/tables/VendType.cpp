#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Vendor types.
const TableDef& VendType() {
    static const TableDef def{
        "VendType",
        {
            {"VendorTypeID", FieldType::Integer},
            {"TypeName", FieldType::String, 40},
        },
        {
            {"", {"VendorTypeID"}, ixPrimary | ixUnique},
            {"TypeName1", {"TypeName"}, ixUnique | ixNoCase},
        },
    };
    return def;
}

} // namespace corvane::store::tables
