#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Journal voucher headers.
const TableDef& JV() {
    static const TableDef def{
        "JV",
        {
            {"JVID", FieldType::Integer, 0, Required},
            {"GLYear", FieldType::SmallInt, 0, Required},
            {"GLPeriod", FieldType::SmallInt, 0, Required},
            {"JVNumber", FieldType::Integer, 0, Required},
            {"Source", FieldType::String, 2, Required},
            {"TransType", FieldType::String, 3},
            {"TransDate", FieldType::Date, 0, Required, DateFormat},
            {"TransDescription", FieldType::String, 60, Required},
            {"VendorID", FieldType::Integer},
            {"APInvoiceID", FieldType::Integer},
            {"ChequeID", FieldType::Integer},
            {"CustomerID", FieldType::Integer},
            {"ARInvoiceID", FieldType::Integer},
            {"PaymentID", FieldType::Integer},
            {"AdjustmentID", FieldType::Integer},
            {"JVAmount", FieldType::Currency, 0, false, MoneyFormat},
            {"Posted", FieldType::Boolean},
            {"AutoReverse", FieldType::Boolean},
        },
        {
            {"", {"JVID"}, ixPrimary | ixUnique},
            {"Source", {"Source"}, 0},
            {"TransType", {"TransType"}, 0},
            {"JVNumber", {"JVNumber"}, 0},
            {"Posted", {"Posted"}, 0},
            {"PeriodJVNumber", {"GLYear", "GLPeriod", "JVNumber"}, ixUnique},
            {"PeriodJVNumberDESC", {"GLYear", "GLPeriod", "JVNumber"}, ixDescending},
            {"PeriodDateJVNumber", {"GLYear", "GLPeriod", "TransDate", "JVNumber"}, 0},
            {"PeriodDateJVNumberDESC",
             {"GLYear", "GLPeriod", "TransDate", "JVNumber"},
             ixDescending},
            {"Description_PeriodJVNumberDESC",
             {"TransDescription", "GLYear", "GLPeriod", "JVNumber"},
             ixNoCase | ixDescending,
             {"GLYear", "GLPeriod", "JVNumber"}},
        },
    };
    return def;
}

} // namespace corvane::store::tables
