#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Tasks of a job.
const TableDef& Task() {
    static const TableDef def{
        "Task",
        {
            {"TaskID", FieldType::Integer},
            {"JobID", FieldType::Integer},
            {"LineNo", FieldType::Integer},
            {"TaskName", FieldType::String, 100},
            {"TaskTypeID", FieldType::Integer},
            {"Notes", FieldType::Memo},
            {"DueDate", FieldType::Date, 0, false, DateFormat},
            {"Completed", FieldType::Boolean},
            {"EmployeeID", FieldType::Integer},
            {"EstimatedHours", FieldType::Float, 0, false, HoursFormat},
            {"RateOverride", FieldType::Currency, 0, false, MoneyFormat},
        },
        {
            {"", {"TaskID"}, ixPrimary | ixUnique},
            {"JobIDLineNo", {"JobID", "LineNo"}, 0},
            {"TaskTypeID", {"TaskTypeID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
