#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Rows exist only when security is active. Each boolean field is one access right, named by the
// right's key. Password holds a salted hash of what the user typed (at most 30 characters), never
// the text itself.
const TableDef& Users() {
    static const TableDef def{
        "Users",
        {
            {"UserName", FieldType::String, 30},   {"Password", FieldType::String, 128},
            {"Security", FieldType::Boolean},      {"YourCompany", FieldType::Boolean},
            {"Banks", FieldType::Boolean},         {"BankBook", FieldType::Boolean},
            {"BankRec", FieldType::Boolean},       {"Currencies", FieldType::Boolean},
            {"PackRepair", FieldType::Boolean},    {"Import", FieldType::Boolean},
            {"Purge", FieldType::Boolean},         {"Vendors", FieldType::Boolean},
            {"APInvoices", FieldType::Boolean},    {"APCheques", FieldType::Boolean},
            {"VendorTypes", FieldType::Boolean},   {"APReports", FieldType::Boolean},
            {"Customers", FieldType::Boolean},     {"ARInvoices", FieldType::Boolean},
            {"ARPayments", FieldType::Boolean},    {"Salesmen", FieldType::Boolean},
            {"CustomerTypes", FieldType::Boolean}, {"Items", FieldType::Boolean},
            {"Taxes", FieldType::Boolean},         {"ARReports", FieldType::Boolean},
            {"GLAccounts", FieldType::Boolean},    {"JVs", FieldType::Boolean},
            {"GLBudget", FieldType::Boolean},      {"GLBalances", FieldType::Boolean},
            {"GLHistory", FieldType::Boolean},     {"GLReports", FieldType::Boolean},
            {"Jobs", FieldType::Boolean},          {"TimeSheets", FieldType::Boolean},
            {"Employees", FieldType::Boolean},     {"TaskTypes", FieldType::Boolean},
            {"TimeReports", FieldType::Boolean},   {"ItemTypes", FieldType::Boolean},
            {"ItemSubtypes", FieldType::Boolean},  {"Warehouses", FieldType::Boolean},
            {"InvReceipts", FieldType::Boolean},   {"InvAdjustments", FieldType::Boolean},
            {"InvTotals", FieldType::Boolean},     {"InvHistory", FieldType::Boolean},
            {"InvReports", FieldType::Boolean},    {"SalesHistory", FieldType::Boolean},
            {"SalesReports", FieldType::Boolean},  {"SalesCharts", FieldType::Boolean},
        },
        {
            {"", {"UserName"}, ixPrimary | ixUnique},
        },
    };
    return def;
}

} // namespace corvane::store::tables
