#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Jobs.
const TableDef& Job() {
    static const TableDef def{
        "Job",
        {
            {"JobID", FieldType::Integer},
            {"JobName", FieldType::String, 80},
            {"Notes", FieldType::Memo},
            {"CustomerID", FieldType::Integer},
            {"RequestedBy", FieldType::String, 20},
            {"RequestedOn", FieldType::Date, 0, false, DateFormat},
            {"DueDate", FieldType::Date, 0, false, DateFormat},
            {"DueDateEntered", FieldType::String, 1},
            {"Priority", FieldType::SmallInt},
            {"Authorized", FieldType::Boolean},
            {"Completed", FieldType::Boolean},
            {"ProjectLeaderID", FieldType::Integer},
            {"EstimatedPrice", FieldType::Currency, 0, false, MoneyFormat},
            {"MaximumPrice", FieldType::Currency, 0, false, MoneyFormat},
            {"FixedPrice", FieldType::Currency, 0, false, MoneyFormat},
        },
        {
            {"", {"JobID"}, ixPrimary | ixUnique},
            {"PriorityDueDate", {"Priority", "DueDateEntered", "DueDate"}, 0},
            {"CustomerID", {"CustomerID"}, 0},
            {"ProjectLeaderID", {"ProjectLeaderID"}, 0},
            {"DueDatePriority", {"DueDateEntered", "DueDate", "Priority"}, 0},
            {"JobName1", {"JobName"}, ixNoCase},
            {"Priority", {"Priority"}, 0},
            {"Completed", {"Completed"}, 0},
            {"Authorized", {"Authorized"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
