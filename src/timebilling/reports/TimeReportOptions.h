#pragma once

#include "core/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
class Query;
} // namespace corvane::store

namespace corvane::timebilling {

// What the time reports are narrowed by: work dates from and to (each optional), one customer,
// one employee.
struct TimeReportOptions {
    std::optional<Date> DateFrom, DateTo;
    std::optional<std::int64_t> CustomerID, EmployeeID;
};

// The conditions on the time sheets (alias T) the options make, each behind "WHERE " or, after
// an earlier one (or with afterEarlier), " AND "; empty when nothing narrows. The values go in
// as parameters.
std::string TimeConditions(const TimeReportOptions& options, const std::string& alias = "T",
                           bool afterEarlier = false);

// The heading lines: "<from> - <to>", "From: <date>" or "To: <date>" ("dd mmm yy"),
// "Employee: <name>", "Customer: <name>"; only those chosen.
std::vector<std::string> TimeHeadingLines(store::Database& db, const TimeReportOptions& options);

// Binds ":DateFrom", ":DateTo", ":CustomerID" and ":EmployeeID", for whichever the query names.
void BindTimeOptions(store::Query& query, const TimeReportOptions& options);

} // namespace corvane::timebilling
