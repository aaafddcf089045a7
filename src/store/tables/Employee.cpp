#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Employees.
const TableDef& Employee() {
    static const TableDef def{
        "Employee",
        {
            {"EmployeeID", FieldType::Integer},
            {"EmployeeName", FieldType::String, 30},
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
            {"", {"EmployeeID"}, ixPrimary | ixUnique},
            {"EmployeeName1", {"EmployeeName"}, ixUnique | ixNoCase},
        },
    };
    return def;
}

} // namespace corvane::store::tables
