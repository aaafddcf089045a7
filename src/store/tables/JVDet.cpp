#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Journal voucher lines.
const TableDef& JVDet() {
    static const TableDef def{
        "JVDet",
        {
            {"JVID", FieldType::Integer, 0, Required},
            {"Seq", FieldType::Integer},
            {"GLAccountID", FieldType::Integer},
            {"SubAccount1ID", FieldType::Integer},
            {"SubAccount2ID", FieldType::Integer},
            {"SubAccount3ID", FieldType::Integer},
            {"GLAmount", FieldType::Currency, 0, false, LedgerFormat},
        },
        {
            {"", {"JVID", "Seq"}, ixPrimary | ixUnique},
            {"GLAccountID", {"GLAccountID"}, 0},
            {"SubAccount1ID", {"SubAccount1ID"}, 0},
            {"SubAccount2ID", {"SubAccount2ID"}, 0},
            {"SubAccount3ID", {"SubAccount3ID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
