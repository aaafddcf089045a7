#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// AP payments.
const TableDef& APCheq() {
    static const TableDef def{
        "APCheq",
        {
            {"ChequeID", FieldType::Integer},
            {"ChequeNo", FieldType::String, 8},
            {"VendorID", FieldType::Integer},
            {"BankID", FieldType::Integer, 0, Required},
            {"GLYear", FieldType::SmallInt},
            {"GLPeriod", FieldType::SmallInt},
            {"ChequeDate", FieldType::Date, 0, false, DateFormat},
            {"ChequeAmount", FieldType::Currency, 0, false, MoneyFormat},
            {"Reconciled", FieldType::Boolean},
            {"Posted", FieldType::Boolean},
            {"Void", FieldType::Boolean},
            {"PaidBy", FieldType::SmallInt},
        },
        {
            {"", {"ChequeID"}, ixPrimary | ixUnique},
            {"ChequeNo", {"ChequeNo"}, 0},
            {"VendorIDChequeNo", {"VendorID", "ChequeNo"}, 0},
            {"BankID", {"BankID"}, 0},
            {"VendorID", {"VendorID"}, 0},
            {"Posted", {"Posted"}, 0},
            {"Reconciled", {"Reconciled"}, 0},
            {"ChequeDateChequeNoDESC", {"ChequeDate", "ChequeNo"}, ixDescending},
            {"GLYear", {"GLYear"}, 0},
            {"GLPeriod", {"GLPeriod"}, 0},
            {"PaidBy", {"PaidBy"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
