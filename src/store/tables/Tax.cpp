#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Sales taxes.
const TableDef& Tax() {
    static const TableDef def{
        "Tax",
        {
            {"TaxID", FieldType::Integer},
            {"TaxName", FieldType::String, 20, Required},
            {"Rate", FieldType::Float, 0, Required},
            {"TaxCode", FieldType::String, 1, Required},
            {"TaxDescription", FieldType::String, 20, Required},
            {"TaxGLAccountID", FieldType::Integer, 0, Required},
        },
        {
            {"", {"TaxID"}, ixPrimary | ixUnique},
            {"TaxName1", {"TaxName"}, ixUnique | ixNoCase},
            {"TaxGLAccountID", {"TaxGLAccountID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
