#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Control record of AR invoices.
const TableDef& ARInvCtl() {
    static const TableDef def{
        "ARInvCtl",
        {
            {"NextInvoiceID", FieldType::Integer},
            {"NextInvoiceNo", FieldType::Integer},
        },
        {},
    };
    return def;
}

} // namespace corvane::store::tables
