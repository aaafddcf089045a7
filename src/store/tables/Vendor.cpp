#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Vendors.
const TableDef& Vendor() {
    static const TableDef def{
        "Vendor",
        {
            {"VendorID", FieldType::Integer},
            {"VendorNo", FieldType::String, 10, Required},
            {"VendorName", FieldType::String, 40, Required},
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
            {"Notes", FieldType::Memo},
            {"TaxNo", FieldType::String, 12},
            {"DefaultInvDescription", FieldType::String, 40},
            {"DiscPC", FieldType::Float},
            {"DiscDays", FieldType::SmallInt},
            {"NetDays", FieldType::SmallInt},
            {"DelayDays", FieldType::SmallInt},
            {"CurrencyID", FieldType::Integer, 0, Required},
            {"VendorTypeID", FieldType::Integer},
            {"Suspended", FieldType::Boolean},
        },
        {
            {"", {"VendorID"}, ixPrimary | ixUnique},
            {"VendorNo", {"VendorNo"}, ixUnique | ixNoCase},
            {"VendorName1", {"VendorName"}, ixNoCase},
            {"CurrencyID", {"CurrencyID"}, 0},
            {"VendorTypeID", {"VendorTypeID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
