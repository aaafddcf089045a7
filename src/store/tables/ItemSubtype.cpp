#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Item subtypes.
const TableDef& ItemSubtype() {
    static const TableDef def{
        "ItemSubtype",
        {
            {"ItemSubtypeID", FieldType::Integer},
            {"SubtypeName", FieldType::String, 40},
            {"ItemTypeID", FieldType::Integer},
        },
        {
            {"", {"ItemSubtypeID"}, ixPrimary | ixUnique},
            {"SubtypeName1", {"SubtypeName"}, ixUnique | ixNoCase},
            {"ItemTypeID", {"ItemTypeID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
