#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Posted transaction lines.
const TableDef& GLHist() {
    static const TableDef def{
        "GLHist",
        {
            {"GLHistID", FieldType::AutoInc},
            {"GLAccountID", FieldType::Integer, 0, Required},
            {"SubAccount1ID", FieldType::Integer},
            {"SubAccount2ID", FieldType::Integer},
            {"SubAccount3ID", FieldType::Integer},
            {"GLYear", FieldType::SmallInt, 0, Required},
            {"GLPeriod", FieldType::SmallInt, 0, Required},
            {"Source", FieldType::String, 2, Required},
            {"TransType", FieldType::String, 3},
            {"JVNumber", FieldType::Integer, 0, Required},
            {"TransDate", FieldType::Date, 0, Required, DateFormat},
            {"Amount", FieldType::Currency, 0, Required, LedgerFormat},
            {"TransDescription", FieldType::String, 60},
            {"VendorID", FieldType::Integer},
            {"APInvoiceID", FieldType::Integer},
            {"ChequeID", FieldType::Integer},
            {"CustomerID", FieldType::Integer},
            {"ARInvoiceID", FieldType::Integer},
            {"PaymentID", FieldType::Integer},
            {"AdjustmentID", FieldType::Integer},
            {"JVID", FieldType::Integer},
            {"Reconciled", FieldType::Boolean},
            {"Reconciling", FieldType::Boolean},
        },
        {
            {"", {"GLHistID"}, ixPrimary | ixUnique},
            {"GLAccountIDPeriodDateJV",
             {"GLAccountID", "SubAccount1ID", "SubAccount2ID", "SubAccount3ID", "GLYear",
              "GLPeriod", "TransDate", "JVNumber"},
             0},
            {"PeriodDateJVDESC",
             {"GLYear", "GLPeriod", "TransDate", "JVNumber", "GLHistID"},
             ixDescending},
            {"GLAccntIDPeriodDateJVDESC",
             {"GLAccountID", "GLYear", "GLPeriod", "TransDate", "JVNumber", "GLHistID"},
             ixDescending},
            {"GLPeriod", {"GLPeriod"}, 0},
            {"GLYear", {"GLYear"}, 0},
            {"GLAccountID", {"GLAccountID"}, 0},
            {"SubAccount1ID", {"SubAccount1ID"}, 0},
            {"SubAccount2ID", {"SubAccount2ID"}, 0},
            {"SubAccount3ID", {"SubAccount3ID"}, 0},
            {"JVID", {"JVID"}, 0},
            {"Source", {"Source"}, 0},
            {"TransType", {"TransType"}, 0},
            {"TransDate", {"TransDate"}, 0},
            {"Reconciled", {"Reconciled"}, 0},
            {"Reconciling", {"Reconciling"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
