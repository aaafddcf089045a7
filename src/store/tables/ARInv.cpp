#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// AR invoice headers.
const TableDef& ARInv() {
    static const TableDef def{
        "ARInv",
        {
            {"ARInvoiceID", FieldType::Integer, 0, Required},
            {"CustomerID", FieldType::Integer, 0, Required},
            {"InvoiceNo", FieldType::String, 10, Required},
            {"WarehouseID", FieldType::Integer},
            {"Description", FieldType::String, 60},
            {"InvoiceDate", FieldType::Date, 0, Required, DateFormat},
            {"InvoiceAmount", FieldType::Currency, 0, Required, MoneyFormat},
            {"PaidAmount", FieldType::Currency, 0, false, MoneyFormat},
            {"DiscTakenAmount", FieldType::Currency},
            {"WriteOffAmount", FieldType::Currency},
            {"Owing", FieldType::Currency, 0, false, MoneyFormat},
            {"DiscPC", FieldType::Float},
            {"DiscDays", FieldType::SmallInt},
            {"NetDays", FieldType::SmallInt},
            {"COD", FieldType::Boolean},
            {"Prepayment", FieldType::Boolean},
            {"TermsText", FieldType::String, 40},
            {"PurchaseOrderNo", FieldType::String, 10},
            {"GLPeriod", FieldType::SmallInt, 0, Required},
            {"GLYear", FieldType::SmallInt, 0, Required},
            {"Printed", FieldType::Boolean, 0, Required},
            {"Posted", FieldType::Boolean, 0, Required},
            {"Tax1ID", FieldType::Integer},
            {"Tax2ID", FieldType::Integer},
            {"Tax1Code", FieldType::String, 1},
            {"Tax2Code", FieldType::String, 1},
            {"Tax1Rate", FieldType::Float},
            {"Tax2Rate", FieldType::Float},
            {"TaxableAmount1", FieldType::Currency},
            {"TaxableAmount2", FieldType::Currency},
            {"TaxableAmount3", FieldType::Currency},
            {"TaxableAmtCode1", FieldType::String, 1},
            {"TaxableAmtCode2", FieldType::String, 1},
            {"TaxableAmtCode3", FieldType::String, 1},
            {"TimeInvoice", FieldType::Boolean},
            {"ExchangeRate", FieldType::Float},
            {"CurrencyID", FieldType::Integer},
            {"POSPmtAmount", FieldType::Currency, 0, false, MoneyFormat},
            {"POSPmtPaidBy", FieldType::SmallInt},
            {"POSPmtReference", FieldType::String, 8},
            {"POSPmtBankID", FieldType::Integer},
        },
        {
            {"", {"ARInvoiceID"}, ixPrimary | ixUnique},
            {"CustomerIDInvoiceNo", {"CustomerID", "InvoiceNo"}, 0},
            {"InvoiceNo", {"InvoiceNo"}, ixUnique},
            {"CustomerID", {"CustomerID"}, 0},
            {"GLYear", {"GLYear"}, 0},
            {"GLPeriod", {"GLPeriod"}, 0},
            {"Posted", {"Posted"}, 0},
            {"Printed", {"Printed"}, 0},
            {"InvoiceDateInvoiceNoDESC", {"InvoiceDate", "InvoiceNo"}, ixDescending},
            {"Owing", {"Owing"}, 0},
            {"CurrencyID", {"CurrencyID"}, 0},
            {"POSPmtBankID", {"POSPmtBankID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
