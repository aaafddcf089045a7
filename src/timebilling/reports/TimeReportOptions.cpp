#include "timebilling/reports/TimeReportOptions.h"

#include "core/DateEntry.h"
#include "store/Query.h"

namespace corvane::timebilling {

namespace {

std::string Heading(Date date) {
    return FormatDate("dd mmm yy", date);
}

std::string NameOf(store::Database& db, const char* sql, std::int64_t id) {
    store::Query q(db, sql);
    q.ParamByName("ID").SetAsInteger(id);
    q.Open();
    return q.IsEmpty() ? std::string() : q.Fields().front()->AsString();
}

} // namespace

std::string TimeConditions(const TimeReportOptions& o, const std::string& alias,
                           bool afterEarlier) {
    std::vector<std::string> terms;
    const std::string date = alias + ".WorkDate";
    if (o.DateFrom && o.DateTo)
        terms.push_back("(" + date + " BETWEEN :DateFrom AND :DateTo)");
    else if (o.DateFrom)
        terms.push_back("(" + date + " >= :DateFrom)");
    else if (o.DateTo)
        terms.push_back("(" + date + " <= :DateTo)");
    // Qualified: the customer's and the employee's own tables are joined with the same names.
    if (o.EmployeeID) terms.push_back("(" + alias + ".EmployeeID = :EmployeeID)");
    if (o.CustomerID) terms.push_back("(" + alias + ".CustomerID = :CustomerID)");
    std::string text;
    for (const std::string& term : terms)
        text += (text.empty() && !afterEarlier ? " WHERE " : " AND ") + term;
    return text;
}

std::vector<std::string> TimeHeadingLines(store::Database& db, const TimeReportOptions& o) {
    std::vector<std::string> lines;
    if (o.DateFrom && o.DateTo)
        lines.push_back(Heading(*o.DateFrom) + " - " + Heading(*o.DateTo));
    else if (o.DateFrom)
        lines.push_back("From: " + Heading(*o.DateFrom));
    else if (o.DateTo)
        lines.push_back("To: " + Heading(*o.DateTo));
    if (o.EmployeeID)
        lines.push_back(
            "Employee: " +
            NameOf(db, "SELECT EmployeeName FROM Employee WHERE EmployeeID = :ID", *o.EmployeeID));
    if (o.CustomerID)
        lines.push_back(
            "Customer: " +
            NameOf(db, "SELECT CustomerName FROM Customer WHERE CustomerID = :ID", *o.CustomerID));
    return lines;
}

void BindTimeOptions(store::Query& query, const TimeReportOptions& o) {
    if (store::Param* p = query.FindParam("DateFrom"); p && o.DateFrom) p->SetAsDate(*o.DateFrom);
    if (store::Param* p = query.FindParam("DateTo"); p && o.DateTo) p->SetAsDate(*o.DateTo);
    if (store::Param* p = query.FindParam("CustomerID"); p && o.CustomerID)
        p->SetAsInteger(*o.CustomerID);
    if (store::Param* p = query.FindParam("EmployeeID"); p && o.EmployeeID)
        p->SetAsInteger(*o.EmployeeID);
}

} // namespace corvane::timebilling
