#include "ledger/LedgerForms.h"

#include "ledger/company/TfrmCompany.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::ledger {

// The company form holds the fiscal year and the period bounds, so it comes with the periods.
void RegisterPeriodForms(shell::FormRegistry& registry) {
    registry.Register("frmCompany", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmCompany>(ctx.Db);
    });
}

} // namespace corvane::ledger
