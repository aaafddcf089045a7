#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// AP invoices.
const TableDef& APInv() {
    static const TableDef def{
        "APInv",
        {
            {"APInvoiceID", FieldType::Integer, 0, Required},
            {"VendorID", FieldType::Integer, 0, Required},
            {"InvoiceNo", FieldType::String, 10, Required},
            {"Description", FieldType::String, 50},
            {"InvoiceDate", FieldType::Date, 0, Required, DateFormat},
            {"DueDate", FieldType::Date, 0, Required, DateFormat},
            {"DiscountDate", FieldType::Date, 0, false, DateFormat},
            {"InvoiceAmount", FieldType::Currency, 0, Required, MoneyFormat},
            {"PaidAmount", FieldType::Currency, 0, false, MoneyFormat},
            {"DiscountAmount", FieldType::Currency, 0, false, MoneyFormat},
            {"DiscPC", FieldType::Float},
            {"DiscountTaken", FieldType::Boolean},
            {"Owing", FieldType::Currency, 0, false, MoneyFormat},
            {"PurchaseOrderNo", FieldType::String, 10},
            {"GLPeriod", FieldType::SmallInt, 0, Required},
            {"GLYear", FieldType::SmallInt, 0, Required},
            {"Posted", FieldType::Boolean},
            {"CurrencyID", FieldType::Integer},
            {"ReceiptID", FieldType::Integer},
        },
        {
            {"", {"APInvoiceID"}, ixPrimary | ixUnique},
            {"VendorIDInvoiceNo", {"VendorID", "InvoiceNo"}, ixUnique},
            {"InvoiceNo", {"InvoiceNo"}, 0},
            {"VendorID", {"VendorID"}, 0},
            {"Posted", {"Posted"}, 0},
            {"InvoiceDateInvoiceNoDESC", {"InvoiceDate", "InvoiceNo"}, ixDescending},
            {"DueDate", {"DueDate"}, 0},
            {"Owing", {"Owing"}, 0},
            {"CurrencyID", {"CurrencyID"}, 0},
            {"ReceiptID", {"ReceiptID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
