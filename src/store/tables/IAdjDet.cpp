#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Adjustment lines.
const TableDef& IAdjDet() {
    static const TableDef def{
        "IAdjDet",
        {
            {"AdjustmentID", FieldType::Integer, 0, Required},
            {"Seq", FieldType::Integer},
            {"ItemID", FieldType::Integer},
            {"Quantity", FieldType::Float},
        },
        {
            {"", {"AdjustmentID", "Seq"}, ixPrimary | ixUnique},
            {"ItemID", {"ItemID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
