#include "ledger/domain/PeriodRules.h"

#include "core/Exception.h"
#include "store/Table.h"

#include <charconv>

namespace corvane::ledger {

namespace {

Period ReadPeriod(store::Table& company, const std::string& prefix) {
    return {static_cast<int>(company.FieldByName(prefix + "YYYY").AsInteger()),
            static_cast<int>(company.FieldByName(prefix + "PP").AsInteger())};
}

} // namespace

CompanyPeriods CompanyPeriods::Read(store::Database& db) {
    store::Table company(db, "Company");
    company.ReadOnly = true;
    company.Open();
    CompanyPeriods periods;
    // A company whose wizard has not run has no row: nothing is defined, so nothing can be saved.
    if (company.IsEmpty()) return periods;
    company.First();
    periods.FiscalYear = static_cast<int>(company.FieldByName("FiscalYear").AsInteger());
    periods.Default = ReadPeriod(company, "DefaultPeriod");
    periods.WarnFrom = ReadPeriod(company, "WPeriodFrom");
    periods.WarnTo = ReadPeriod(company, "WPeriodTo");
    periods.ErrorFrom = ReadPeriod(company, "EPeriodFrom");
    periods.ErrorTo = ReadPeriod(company, "EPeriodTo");
    return periods;
}

Period DefaultPeriod(const CompanyPeriods& company, Date today) {
    // The halves fall back each by itself: a default period number with no year is that period
    // of this calendar year.
    Period period;
    period.Number = company.Default.Number > 0 ? company.Default.Number : today.Month();
    period.Year = company.Default.Year > 0 ? company.Default.Year : today.Year();
    return period;
}

PeriodVerdict JudgePeriod(const CompanyPeriods& company, Period period) {
    using Kind = PeriodVerdict::Kind;
    if (company.FiscalYear == 0)
        return {Kind::Refused, "Current fiscal year is not yet defined...\nSee \"Your Company\""};
    // Before the range test on purpose: a closed year is told as such, whatever the bounds say.
    if (period.Year < company.FiscalYear)
        return {Kind::Refused,
                "GL Period is prior to current fiscal year \nas defined by \"Your Company\""};
    int folded = period.Folded();
    // An upper bound of 0 is no bound; one with only its period half set folds under 100 and so
    // refuses every real period, which is what the user asked for, if not what was meant.
    int errorTo = company.ErrorTo.Folded();
    if (folded < company.ErrorFrom.Folded() || (errorTo >= 1 && folded > errorTo))
        return {Kind::Refused,
                "GL Period is not within allowed range \nas defined by \"Your Company\""};
    int warnTo = company.WarnTo.Folded();
    if (folded < company.WarnFrom.Folded() || (warnTo >= 1 && folded > warnTo))
        return {Kind::Warning,
                "GL Period is not within expected range \nas defined by \"Your Company\"."};
    return {};
}

int TwoDigitYear(std::string_view text, const std::string& message) {
    if (text.empty()) return 0;
    int value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) throw Exception(message);
    if (error != std::errc() || end != text.data() + text.size())
        throw Exception("'" + std::string(text) + "' is not a valid integer value");
    if (value < 0 || value > 99) throw Exception(message);
    return value >= 50 ? 1900 + value : 2000 + value;
}

} // namespace corvane::ledger
