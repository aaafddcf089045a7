#include "timebilling/domain/AutoCreatePeriod.h"

#include "timebilling/domain/TimeTexts.h"

namespace corvane::timebilling {

ledger::PeriodVerdict JudgeAutoCreatePeriod(const ledger::CompanyPeriods& company,
                                            std::optional<int> year, std::optional<int> period) {
    using Kind = ledger::PeriodVerdict::Kind;
    // The two empty fields are told between the ledger's own tests, where the user meets them:
    // the year is read before the fiscal year is compared, the period before the range.
    if (company.FiscalYear == 0) return ledger::JudgePeriod(company, {});
    if (!year) return {Kind::Refused, time_text::MustHaveValue("Year of Period")};
    if (*year < company.FiscalYear) return ledger::JudgePeriod(company, {*year, 1});
    if (!period) return {Kind::Refused, time_text::MustHaveValue("Period")};
    return ledger::JudgePeriod(company, {*year, *period});
}

} // namespace corvane::timebilling
