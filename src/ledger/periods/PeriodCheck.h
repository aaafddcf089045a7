#pragma once

#include "ledger/domain/PeriodRules.h"

#include <string>
#include <string_view>

namespace corvane::ui {
class Application;
class Control;
} // namespace corvane::ui

namespace corvane::ledger {

// The one test every document form runs before it saves: raises the refusal's message (after
// focusing periodControl), asks the warning's question through the application and raises
// EAbort when the answer is not OK.
void CheckPeriod(ui::Application& app, const CompanyPeriods& company, Period period,
                 ui::Control* periodControl);

// The warning's question, OK or Cancel; on Cancel the user is left on the period (when given).
// True when the user answered OK.
bool ConfirmPeriodWarning(ui::Application& app, const std::string& message,
                          ui::Control* periodControl);

} // namespace corvane::ledger
