#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Customer contacts.
const TableDef& CContact() {
    static const TableDef def{
        "CContact",
        {
            {"CustomerID", FieldType::Integer, 0, Required},
            {"ContactID", FieldType::AutoInc},
            {"LastName", FieldType::String, 30},
            {"FirstName", FieldType::String, 30},
            {"JobTitle", FieldType::String, 40},
            {"BusinessPhone", FieldType::String, 20},
            {"BusinessPhoneExt", FieldType::String, 10},
            {"BusinessPhone2", FieldType::String, 20},
            {"BusinessPhone2Ext", FieldType::String, 10},
            {"HomePhone", FieldType::String, 20},
            {"Fax", FieldType::String, 20},
            {"Cellular", FieldType::String, 20},
            {"Pager", FieldType::String, 20},
            {"EMail", FieldType::String, 40},
            {"Notes", FieldType::Memo},
        },
        {
            {"", {"CustomerID", "ContactID"}, ixPrimary | ixUnique},
            {"FullName", {"LastName", "FirstName"}, ixNoCase},
            {"CustomerIDFullName", {"CustomerID", "LastName", "FirstName"}, ixNoCase},
        },
    };
    return def;
}

} // namespace corvane::store::tables
