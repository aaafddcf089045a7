#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Inventory adjustments.
const TableDef& IAdjust() {
    static const TableDef def{
        "IAdjust",
        {
            {"AdjustmentID", FieldType::Integer, 0, Required},
            {"GLYear", FieldType::SmallInt, 0, Required},
            {"GLPeriod", FieldType::SmallInt, 0, Required},
            {"AdjDate", FieldType::Date, 0, Required, DateFormat},
            {"AdjDescription", FieldType::String, 50, Required},
            {"WarehouseID", FieldType::Integer, 0, Required},
            {"Posted", FieldType::Boolean},
            {"FromWarehouseID", FieldType::Integer},
        },
        {
            {"", {"AdjustmentID"}, ixPrimary | ixUnique},
            {"PeriodDateDESC", {"GLYear", "GLPeriod", "AdjDate", "AdjustmentID"}, ixDescending},
            {"WarehouseID", {"WarehouseID"}, 0},
            {"Posted", {"Posted"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
