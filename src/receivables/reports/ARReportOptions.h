#pragma once

#include "core/Date.h"
#include "receivables/domain/Aging.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
class Query;
} // namespace corvane::store

namespace corvane::reports {
class TQuickRep;
class TQRBand;
class TQRLabel;
} // namespace corvane::reports

namespace corvane::receivables {

// What the second step of the AR Reports wizard (or the command line) chose. Each report reads
// the options it offers and leaves the others alone.
struct ARReportOptions {
    Date AsOf = Date::Today();
    std::optional<Date> DateFrom, DateTo;
    std::optional<int> Year, Period;
    std::optional<std::int64_t> CurrencyID, SalesmanID, CustomerID;
    AgingThresholds Thresholds;
};

// The options as the heading lists them, each "     Currency: <name>"; only those chosen, and
// the salesman and thresholds only where the report offers them.
std::vector<std::string> OptionLines(store::Database& db, const ARReportOptions& options,
                                     bool salesman, bool thresholds);

// Binds the ":CurrencyID", ":SalesmanID", ":CustomerID", ":AsOfDate", ":DateFrom" and ":DateTo"
// of the query to the options, for whichever of them its text names.
void BindOptions(store::Query& query, const ARReportOptions& options);

// The title band of the receivables reports: the company, the title and the heading lines.
void AddARTitle(reports::TQuickRep& report, const std::string& companyName,
                const std::vector<std::string>& lines);

// Amounts on the receivables reports, negatives in brackets.
inline constexpr const char* kARAmountMask = "#,###,##0.00;(#,###,##0.00)";

// A bold column heading, right aligned over amounts.
reports::TQRLabel& ARHeading(reports::TQRBand& band, std::string caption, double left, double width,
                             bool right = false, double top = 0);

} // namespace corvane::receivables
