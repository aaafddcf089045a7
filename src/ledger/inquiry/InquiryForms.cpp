#include "ledger/LedgerForms.h"

#include "ledger/inquiry/TfrmGLBalances.h"
#include "ledger/inquiry/TfrmGLHistory.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::ledger {

void RegisterInquiryForms(shell::FormRegistry& registry) {
    registry.Register("frmGLBalances", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmGLBalances>(ctx.Db);
    });
    registry.Register("frmGLHistory", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmGLHistory>(ctx.Db);
    });
}

} // namespace corvane::ledger
