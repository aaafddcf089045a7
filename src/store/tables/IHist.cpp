#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Inventory history.
const TableDef& IHist() {
    static const TableDef def{
        "IHist",
        {
            {"IHistID", FieldType::AutoInc},
            {"ItemID", FieldType::Integer},
            {"WarehouseID", FieldType::Integer},
            {"GLYear", FieldType::SmallInt},
            {"GLPeriod", FieldType::SmallInt},
            {"TransType", FieldType::SmallInt},
            {"TransDate", FieldType::Date, 0, false, DateFormat},
            {"Quantity", FieldType::Float},
            {"UnitCost", FieldType::Currency, 0, false, PriceFormat},
            {"TransDescription", FieldType::String, 50},
            {"ReceiptID", FieldType::Integer},
            {"AdjustmentID", FieldType::Integer},
            {"ARInvoiceID", FieldType::Integer},
        },
        {
            {"", {"IHistID"}, ixPrimary | ixUnique},
            {"ItemIDPeriodDate", {"ItemID", "GLYear", "GLPeriod", "TransDate"}, 0},
            {"ItemIDWhseIDPeriodDate",
             {"ItemID", "WarehouseID", "GLYear", "GLPeriod", "TransDate"},
             0},
            {"PeriodDateDESC", {"GLYear", "GLPeriod", "TransDate", "IHistID"}, ixDescending},
            {"GLPeriod", {"GLPeriod"}, 0},
            {"GLYear", {"GLYear"}, 0},
            {"ItemID", {"ItemID"}, 0},
            {"WarehouseID", {"WarehouseID"}, 0},
            {"TransType", {"TransType"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
