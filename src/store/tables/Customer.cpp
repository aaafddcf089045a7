#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Customers.
const TableDef& Customer() {
    static const TableDef def{
        "Customer",
        {
            {"CustomerID", FieldType::Integer},
            {"CustomerNo", FieldType::String, 10, Required},
            {"CustomerName", FieldType::String, 40, Required},
            {"AddressLine1", FieldType::String, 35},
            {"AddressLine2", FieldType::String, 35},
            {"City", FieldType::String, 35},
            {"StateProv", FieldType::String, 20},
            {"ZipCode", FieldType::String, 10},
            {"Country", FieldType::String, 20},
            {"Contact", FieldType::String, 40},
            {"Phone", FieldType::String, 20},
            {"Fax", FieldType::String, 20},
            {"EMail", FieldType::String, 40},
            {"WebPage", FieldType::String, 30},
            {"Tax1ID", FieldType::Integer},
            {"Tax2ID", FieldType::Integer},
            {"Tax1ExemptionNo", FieldType::String, 13},
            {"Tax2ExemptionNo", FieldType::String, 13},
            {"TaxNo", FieldType::String, 12},
            {"CurrencyID", FieldType::Integer},
            {"CreditLimit", FieldType::Currency, 0, false, MoneyFormat},
            {"DiscPC", FieldType::Float},
            {"DiscDays", FieldType::SmallInt},
            {"NetDays", FieldType::SmallInt},
            {"COD", FieldType::Boolean},
            {"Prepayment", FieldType::Boolean},
            {"TermsText", FieldType::String, 40},
            {"Suspended", FieldType::Boolean},
            {"PrintStatement", FieldType::Boolean},
            {"AllowBackorders", FieldType::Boolean},
            {"SalesmanID", FieldType::Integer},
            {"CustomerTypeID", FieldType::Integer},
            {"CustomerMessage", FieldType::Memo},
            {"Notes", FieldType::Memo},
            {"ShipToName", FieldType::String, 40},
            {"ShipToAddressLine1", FieldType::String, 35},
            {"ShipToAddressLine2", FieldType::String, 35},
            {"ShipToCity", FieldType::String, 35},
            {"ShipToStateProv", FieldType::String, 20},
            {"ShipToZipCode", FieldType::String, 10},
            {"ShipToCountry", FieldType::String, 20},
        },
        {
            {"", {"CustomerID"}, ixPrimary | ixUnique},
            {"CustomerNo", {"CustomerNo"}, ixUnique | ixNoCase},
            {"CustomerName1", {"CustomerName"}, ixNoCase},
            {"CustomerTypeID", {"CustomerTypeID"}, 0},
            {"SalesmanID", {"SalesmanID"}, 0},
            {"CurrencyID", {"CurrencyID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
