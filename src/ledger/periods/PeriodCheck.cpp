#include "ledger/periods/PeriodCheck.h"

#include "core/Exception.h"
#include "ui/Application.h"
#include "ui/Control.h"
#include "ui/Dialogs.h"

namespace corvane::ledger {

namespace {

// The refusals leave the user on the period, to correct it there.
[[noreturn]] void Refuse(ui::Control* periodControl, const std::string& text) {
    if (periodControl && periodControl->CanFocus()) periodControl->SetFocus();
    throw Exception(text);
}

} // namespace

void CheckPeriod(ui::Application& app, const CompanyPeriods& company, Period period,
                 ui::Control* periodControl) {
    const PeriodVerdict verdict = JudgePeriod(company, period);
    if (verdict.Verdict == PeriodVerdict::Kind::Refused) Refuse(periodControl, verdict.Message);
    if (verdict.Verdict == PeriodVerdict::Kind::Warning &&
        !ConfirmPeriodWarning(app, verdict.Message, periodControl))
        Abort();
}

bool ConfirmPeriodWarning(ui::Application& app, const std::string& message,
                          ui::Control* periodControl) {
    if (app.PassWarning(message)) return true;
    if (periodControl && periodControl->CanFocus()) periodControl->SetFocus();
    return false;
}

} // namespace corvane::ledger
