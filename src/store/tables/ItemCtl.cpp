#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Control record of inventory.
const TableDef& ItemCtl() {
    static const TableDef def{
        "ItemCtl",
        {
            {"NextItemNo", FieldType::Integer},
            {"NextItemID", FieldType::Integer},
            {"NextInvAdjustmentID", FieldType::Integer},
            {"NextInvReceiptID", FieldType::Integer},
            {"NextInvReceiptNo", FieldType::Integer},
        },
        {},
    };
    return def;
}

} // namespace corvane::store::tables
