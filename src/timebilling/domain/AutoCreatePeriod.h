#pragma once

#include "ledger/domain/PeriodRules.h"

#include <optional>

namespace corvane::timebilling {

// The period of an AutoCreate run, judged before anything is read: the fiscal year, then the
// year, then whether it is before the fiscal year, then the period, then the allowed and the
// expected range. A form shows a refusal and asks about a warning; nothing is written either way.
ledger::PeriodVerdict JudgeAutoCreatePeriod(const ledger::CompanyPeriods& company,
                                            std::optional<int> year, std::optional<int> period);

} // namespace corvane::timebilling
