#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Control record of AP cheque identifiers.
const TableDef& APChqCtl() {
    static const TableDef def{
        "APChqCtl",
        {
            {"NextChequeID", FieldType::Integer},
        },
        {},
    };
    return def;
}

} // namespace corvane::store::tables
