#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Time sheet entries.
const TableDef& TimeSht() {
    static const TableDef def{
        "TimeSht",
        {
            {"TimeSheetID", FieldType::AutoInc},
            {"CustomerID", FieldType::Integer},
            {"JobID", FieldType::Integer},
            {"TaskID", FieldType::Integer},
            {"EmployeeID", FieldType::Integer},
            {"WorkDate", FieldType::Date, 0, false, DateFormat},
            {"Hours", FieldType::Float, 0, false, HoursFormat},
            {"Notes", FieldType::Memo},
            {"InvoiceNo", FieldType::String, 10},
        },
        {
            {"", {"TimeSheetID"}, ixPrimary | ixUnique},
            {"WorkDateID", {"WorkDate", "TimeSheetID"}, 0},
            {"InvoiceNoWorkDate", {"InvoiceNo", "WorkDate"}, 0},
            {"EmployeeID", {"EmployeeID"}, 0},
            {"CustomerID", {"CustomerID"}, 0},
            {"JobID", {"JobID"}, 0},
            {"WorkDateIDDESC", {"WorkDate", "TimeSheetID"}, ixDescending},
            {"TaskID", {"TaskID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
