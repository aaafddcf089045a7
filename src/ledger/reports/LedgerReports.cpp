#include "ledger/reports/LedgerReports.h"

#include "core/Exception.h"
#include "ledger/inquiry/TfrmGLBalances.h"
#include "ledger/reports/TrptGLAccounts.h"
#include "ledger/reports/TrptGLBalances.h"
#include "ledger/reports/TrptGLHistory.h"
#include "ledger/reports/TrptJV.h"
#include "ledger/reports/TrptJVs.h"
#include "reports/run/ReportRegistry.h"

#include <optional>

namespace corvane::ledger {

using reports::ReportRequest;

namespace {

std::optional<int> YearOption(const ReportRequest& request) {
    auto year = request.WholeOption("year");
    if (year && (*year < 1900 || *year > 9999))
        throw Exception("--year " + std::to_string(*year) + " is not a year.");
    return year ? std::optional<int>(static_cast<int>(*year)) : std::nullopt;
}

// A period needs its year: period 3 of every year is no report anyone asks for.
std::optional<int> PeriodOption(const ReportRequest& request, const std::optional<int>& year) {
    auto period = request.WholeOption("period");
    if (!period) return std::nullopt;
    if (!year) throw Exception("--period needs --year.");
    if (*period < 1 || *period > 13)
        throw Exception("--period " + std::to_string(*period) + " is not a period.");
    return static_cast<int>(*period);
}

std::int64_t VoucherOption(store::Database& db, const ReportRequest& request) {
    if (auto jvid = request.WholeOption("jvid")) return *jvid;
    auto number = request.WholeOption("number");
    auto year = YearOption(request);
    auto period = PeriodOption(request, year);
    if (!number || !period)
        throw Exception("JV needs --jvid, or --number with --year and --period.");
    auto jvid = TrptJV::FindVoucher(db, *year, *period, static_cast<int>(*number));
    if (!jvid)
        throw Exception("There is no JV " + std::to_string(*number) + " in period " +
                        std::to_string(*period) + "/" + std::to_string(*year) + ".");
    return *jvid;
}

} // namespace

void RegisterLedgerReports(reports::ReportRegistry& registry) {
    registry.Register("GLAccounts", "The chart of accounts",
                      [](store::Database& db, const ReportRequest&) {
                          return std::make_unique<TrptGLAccounts>(db);
                      });
    registry.Register("JVs", "Journal vouchers with their total (--year, --period)",
                      [](store::Database& db, const ReportRequest& request) {
                          auto report = std::make_unique<TrptJVs>(db);
                          report->Year = YearOption(request);
                          report->Period = PeriodOption(request, report->Year);
                          return report;
                      });
    registry.Register("JV",
                      "One journal voucher with its lines (--jvid, or --number --year "
                      "--period)",
                      [](store::Database& db, const ReportRequest& request) {
                          return std::make_unique<TrptJV>(db, VoucherOption(db, request));
                      });
    registry.Register("GLBalances", "GL totals by account and year (--year)",
                      [](store::Database& db, const ReportRequest& request) {
                          auto year = YearOption(request);
                          std::string where =
                              year ? "WHERE (GLYear = " + std::to_string(*year) + ")" : "WHERE 1=1";
                          return std::make_unique<TrptGLBalances>(
                              db, TfrmGLBalances::Statement(where), TotalsData::Auto);
                      });
    registry.Register("GLHistory", "GL history by period (--year, --period)",
                      [](store::Database& db, const ReportRequest& request) {
                          auto report = std::make_unique<TrptGLHistory>(db);
                          report->Year = YearOption(request);
                          report->Period = PeriodOption(request, report->Year);
                          return report;
                      });
}

} // namespace corvane::ledger
