#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Control record of jobs.
const TableDef& JobCtl() {
    static const TableDef def{
        "JobCtl",
        {
            {"NextJobID", FieldType::Integer},
            {"NextTaskID", FieldType::Integer},
        },
        {},
    };
    return def;
}

} // namespace corvane::store::tables
