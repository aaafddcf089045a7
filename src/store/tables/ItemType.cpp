#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Item types.
const TableDef& ItemType() {
    static const TableDef def{
        "ItemType",
        {
            {"ItemTypeID", FieldType::Integer},
            {"TypeName", FieldType::String, 40, Required},
            {"Inventory", FieldType::Boolean},
            {"CostingMethod", FieldType::SmallInt},
        },
        {
            {"", {"ItemTypeID"}, ixPrimary | ixUnique},
            {"TypeName1", {"TypeName"}, ixUnique | ixNoCase},
        },
    };
    return def;
}

} // namespace corvane::store::tables
