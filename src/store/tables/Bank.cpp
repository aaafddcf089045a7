#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Bank accounts.
const TableDef& Bank() {
    static const TableDef def{
        "Bank",
        {
            {"BankID", FieldType::Integer},
            {"BankName", FieldType::String, 40, Required},
            {"BankGLAccountID", FieldType::Integer},
            {"CurrencyID", FieldType::Integer, 0, Required},
        },
        {
            {"", {"BankID"}, ixPrimary | ixUnique},
            {"BankName1", {"BankName"}, ixUnique | ixNoCase},
            {"CurrencyID", {"CurrencyID"}, 0},
            {"BankGLAccountID", {"BankGLAccountID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
