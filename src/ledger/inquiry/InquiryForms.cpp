#include "ledger/LedgerForms.h"

#include "ledger/inquiry/TfrmGLBalances.h"
#include "ledger/inquiry/TfrmGLHistory.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::ledger {

namespace {
// Each list is made once, with the registry it opens the other ledger forms through.
TfrmGLBalances& Totals(shell::FormRegistry& registry, shell::FormContext& ctx) {
    return ctx.App.SingleForm<TfrmGLBalances>(ctx.Db, &registry, ctx.Main);
}
TfrmGLHistory& History(shell::FormRegistry& registry, shell::FormContext& ctx) {
    return ctx.App.SingleForm<TfrmGLHistory>(ctx.Db, &registry, ctx.Main);
}
} // namespace

void RegisterInquiryForms(shell::FormRegistry& registry) {
    registry.Register("frmGLBalances", [&registry](shell::FormContext& ctx) -> ui::Form& {
        return Totals(registry, ctx);
    });
    registry.Register("frmGLHistory", [&registry](shell::FormContext& ctx) -> ui::Form& {
        return History(registry, ctx);
    });
}

} // namespace corvane::ledger
