#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Item balances per warehouse.
const TableDef& IBalance() {
    static const TableDef def{
        "IBalance",
        {
            {"ItemID", FieldType::Integer},
            {"WarehouseID", FieldType::Integer},
            {"QtyOnHand", FieldType::Float},
        },
        {
            {"", {"ItemID", "WarehouseID"}, ixPrimary | ixUnique},
            {"ItemID", {"ItemID"}, 0},
            {"WarehouseID", {"WarehouseID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
