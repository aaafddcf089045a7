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
            {"OpeningBal", FieldType::Currency},
            {"Amount1", FieldType::Currency},
            {"Amount2", FieldType::Currency},
            {"Amount3", FieldType::Currency},
            {"Amount4", FieldType::Currency},
            {"Amount5", FieldType::Currency},
            {"Amount6", FieldType::Currency},
            {"Amount7", FieldType::Currency},
            {"Amount8", FieldType::Currency},
            {"Amount9", FieldType::Currency},
            {"Amount10", FieldType::Currency},
            {"Amount11", FieldType::Currency},
            {"Amount12", FieldType::Currency},
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
