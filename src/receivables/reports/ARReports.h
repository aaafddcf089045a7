#pragma once

#include "receivables/reports/ARReportOptions.h"

#include <memory>

namespace corvane::reports {
class ReportRegistry;
class TrptBase;
} // namespace corvane::reports

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// The aged receivables, the summary, the history and both statements by name, for the command
// line, with the wizard's options as --asof, --from, --to, --year, --period, --currency,
// --salesman (its id), --customer (its number), --min-owing and --min-days.
// The reports of the AR Reports wizard, in the order of its list.
enum class ARReportKind { Aged, AgedSummary, History, StatementsHistory, StatementsUnpaid };
inline constexpr const char* kARReportNames[] = {"Aged Receivables", "Aged Receivables Summary",
                                                 "AR History", "AR Statements - Account History",
                                                 "AR Statements - Unpaid Invoices"};

// Which options the report offers.
struct ARReportChoices {
    bool AsOf, DateFrom, PeriodYearDateTo, Salesman, Thresholds;
};
ARReportChoices ChoicesOf(ARReportKind kind);

std::unique_ptr<reports::TrptBase> MakeARReport(ARReportKind kind, store::Database& db,
                                                ARReportOptions options);

void RegisterARReports(reports::ReportRegistry& registry);

} // namespace corvane::receivables
