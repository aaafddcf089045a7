#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// One row per account, subaccounts and fiscal year: opening balance and twelve period amounts.
const TableDef& GLActual() {
    static const TableDef def{
        "GLActual",
        {
            {"GLAccountID", FieldType::Integer, 0, Required},
            {"SubAccount1ID", FieldType::Integer},
            {"SubAccount2ID", FieldType::Integer},
            {"SubAccount3ID", FieldType::Integer},
            {"GLYear", FieldType::SmallInt, 0, Required},
            {"ActualBudget", FieldType::String, 1, Required},
            {"OpeningBal", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount1", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount2", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount3", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount4", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount5", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount6", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount7", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount8", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount9", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount10", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount11", FieldType::Currency, 0, false, LedgerFormat},
            {"Amount12", FieldType::Currency, 0, false, LedgerFormat},
        },
        {
            {"",
             {"GLAccountID", "SubAccount1ID", "SubAccount2ID", "SubAccount3ID", "GLYear"},
             ixPrimary | ixUnique},
            {"GLAccountID", {"GLAccountID"}, 0},
            {"SubAccount1ID", {"SubAccount1ID"}, 0},
            {"SubAccount2ID", {"SubAccount2ID"}, 0},
            {"SubAccount3ID", {"SubAccount3ID"}, 0},
            {"GLAccountIDYear", {"GLAccountID", "GLYear"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
