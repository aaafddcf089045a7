#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Control record of AP invoice identifiers.
const TableDef& APInvCtl() {
    static const TableDef def{
        "APInvCtl",
        {
            {"NextInvoiceID", FieldType::Integer},
        },
        {},
    };
    return def;
}

} // namespace corvane::store::tables
