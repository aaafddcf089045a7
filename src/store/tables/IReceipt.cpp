#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Inventory receipts.
const TableDef& IReceipt() {
    static const TableDef def{
        "IReceipt",
        {
            {"ReceiptID", FieldType::Integer, 0, Required},
            {"ReceiptNo", FieldType::String, 10, Required},
            {"GLYear", FieldType::SmallInt, 0, Required},
            {"GLPeriod", FieldType::SmallInt, 0, Required},
            {"ReceiptDate", FieldType::Date, 0, Required, DateFormat},
            {"PurchaseOrderNo", FieldType::String, 10},
            {"VendorID", FieldType::Integer},
            {"WarehouseID", FieldType::Integer, 0, Required},
            {"Posted", FieldType::Boolean},
        },
        {
            {"", {"ReceiptID"}, ixPrimary | ixUnique},
            {"PurchaseOrderNo", {"PurchaseOrderNo"}, 0},
            {"ReceiptNo", {"ReceiptNo"}, 0},
            {"VendorID", {"VendorID"}, 0},
            {"WarehouseID", {"WarehouseID"}, 0},
            {"Posted", {"Posted"}, 0},
            {"ReceiptDateReceiptNoDESC", {"ReceiptDate", "ReceiptNo"}, ixDescending},
        },
    };
    return def;
}

} // namespace corvane::store::tables
