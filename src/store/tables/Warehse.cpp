#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Warehouses.
const TableDef& Warehse() {
    static const TableDef def{
        "Warehse",
        {
            {"WarehouseID", FieldType::Integer},
            {"WarehouseName", FieldType::String, 20},
        },
        {
            {"", {"WarehouseID"}, ixPrimary | ixUnique},
            {"WarehouseName1", {"WarehouseName"}, ixUnique | ixNoCase},
        },
    };
    return def;
}

} // namespace corvane::store::tables
