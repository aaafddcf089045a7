#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Receipt lines.
const TableDef& IRecDet() {
    static const TableDef def{
        "IRecDet",
        {
            {"ReceiptID", FieldType::Integer, 0, Required},
            {"Seq", FieldType::Integer},
            {"ItemID", FieldType::Integer},
            {"QtyReceived", FieldType::Float},
            {"UnitCost", FieldType::Currency, 0, false, MoneyFormat},
        },
        {
            {"", {"ReceiptID", "Seq"}, ixPrimary | ixUnique},
            {"ItemID", {"ItemID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
