#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Control record of vendors.
const TableDef& VendCtl() {
    static const TableDef def{
        "VendCtl",
        {
            {"NextVendorNo", FieldType::Integer},
            {"NextVendorID", FieldType::Integer},
        },
        {},
    };
    return def;
}

} // namespace corvane::store::tables
