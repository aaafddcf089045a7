#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// AR payments.
const TableDef& ARPmt() {
    static const TableDef def{
        "ARPmt",
        {
            {"PaymentID", FieldType::Integer},
            {"ChequeNo", FieldType::String, 8},
            {"CustomerID", FieldType::Integer},
            {"BankID", FieldType::Integer, 0, Required},
            {"GLYear", FieldType::SmallInt},
            {"GLPeriod", FieldType::SmallInt},
            {"PaymentDate", FieldType::Date, 0, Required, DateFormat},
            {"ChequeAmount", FieldType::Currency, 0, false, MoneyFormat},
            {"Posted", FieldType::Boolean},
            {"Reconciled", FieldType::Boolean},
            {"PaidBy", FieldType::SmallInt},
        },
        {
            {"", {"PaymentID"}, ixPrimary | ixUnique},
            {"ChequeNo", {"ChequeNo"}, 0},
            {"CustomerIDChequeNo", {"CustomerID", "ChequeNo"}, 0},
            {"BankID", {"BankID"}, 0},
            {"CustomerID", {"CustomerID"}, 0},
            {"Posted", {"Posted"}, 0},
            {"Reconciled", {"Reconciled"}, 0},
            {"PaymentDateChequeNoDESC", {"PaymentDate", "ChequeNo"}, ixDescending},
            {"GLYear", {"GLYear"}, 0},
            {"GLPeriod", {"GLPeriod"}, 0},
            {"PaidBy", {"PaidBy"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
