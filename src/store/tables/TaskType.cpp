#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Task types.
const TableDef& TaskType() {
    static const TableDef def{
        "TaskType",
        {
            {"TaskTypeID", FieldType::Integer},
            {"TypeName", FieldType::String, 40},
            {"Rate", FieldType::Currency, 0, false, MoneyFormat},
            {"SalesGLAccountID", FieldType::Integer},
            {"TaxCodes", FieldType::String, 3},
        },
        {
            {"", {"TaskTypeID"}, ixPrimary | ixUnique},
            {"TypeName1", {"TypeName"}, ixUnique | ixNoCase},
            {"SalesGLAccountID", {"SalesGLAccountID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
