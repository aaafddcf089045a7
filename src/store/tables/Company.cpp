#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// One row per company database; the main form keeps this table open. An empty table marks a
// database whose wizard has not run.
const TableDef& Company() {
    static const TableDef def{
        "Company",
        {
            {"CompanyNo", FieldType::SmallInt, 0, Required},
            {"CompanyName", FieldType::String, 40, Required},
            {"FiscalYear", FieldType::SmallInt, 0, Required},
            {"DefaultPeriodYYYY", FieldType::SmallInt},
            {"DefaultPeriodPP", FieldType::SmallInt},
            {"WPeriodFromYYYY", FieldType::SmallInt},
            {"WPeriodFromPP", FieldType::SmallInt},
            {"WPeriodToYYYY", FieldType::SmallInt},
            {"WPeriodToPP", FieldType::SmallInt},
            {"EPeriodFromYYYY", FieldType::SmallInt},
            {"EPeriodFromPP", FieldType::SmallInt},
            {"EPeriodToYYYY", FieldType::SmallInt},
            {"EPeriodToPP", FieldType::SmallInt},
            {"DefaultCurrencyID", FieldType::Integer},
            {"Notes", FieldType::Memo},
            {"APInvPONumbers", FieldType::Boolean},
            {"APInvDescriptions", FieldType::Boolean},
            {"DfltSalesGLAccountID", FieldType::Integer},
            {"DfltCOGSGLAccountID", FieldType::Integer},
            {"DfltInventoryGLAccountID", FieldType::Integer},
            {"AddressLine1", FieldType::String, 50},
            {"AddressLine2", FieldType::String, 50},
            {"AddressLine3", FieldType::String, 35},
            {"Phone", FieldType::String, 20},
            {"TaxNo", FieldType::String, 35},
            {"ARInvoiceMessage", FieldType::Memo},
            {"ARInvoiceStyle", FieldType::SmallInt},
            {"ARInvoiceCopies", FieldType::SmallInt},
            {"ApplicationVersion", FieldType::String, 8},
            {"BackupOnExit", FieldType::SmallInt},
            {"EmailHost", FieldType::String, 40},
            {"EmailUserID", FieldType::String, 30},
            {"EmailPassword", FieldType::String, 20},
            {"EmailFromName", FieldType::String, 40},
            {"EmailFromAddress", FieldType::String, 40},
            {"EmailCCAddress", FieldType::String, 80},
            {"EmailBCCAddress", FieldType::String, 80},
            {"DfltTax1ID", FieldType::Integer},
            {"DfltTax2ID", FieldType::Integer},
        },
        {
            {"", {"CompanyNo"}, ixPrimary | ixUnique},
        },
    };
    return def;
}

} // namespace corvane::store::tables
