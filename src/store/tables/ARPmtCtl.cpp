#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Control record of AR payments.
const TableDef& ARPmtCtl() {
    static const TableDef def{
        "ARPmtCtl",
        {
            {"NextPaymentID", FieldType::Integer},
        },
        {},
    };
    return def;
}

} // namespace corvane::store::tables
