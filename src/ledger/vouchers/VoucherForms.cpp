#include "ledger/LedgerForms.h"

#include "ledger/vouchers/TfrmJV.h"
#include "ledger/vouchers/TfrmJVs.h"
#include "ledger/vouchers/TfrmJVsFilter.h"
#include "ledger/vouchers/TfrmJVsFind.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::ledger {

void RegisterVoucherForms(shell::FormRegistry& registry) {
    registry.Register("frmJVs", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmJVs>(ctx.Db);
    });
    registry.Register("frmJV", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmJV>(ctx.Db);
    });
    registry.Register("frmJVsFilter", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmJVsFilter>(
            static_cast<shell::ListForm&>(ctx.App.SingleForm<TfrmJVs>(ctx.Db)));
    });
    registry.Register("frmJVsFind", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmJVsFind>(
            static_cast<shell::ListForm&>(ctx.App.SingleForm<TfrmJVs>(ctx.Db)));
    });
}

} // namespace corvane::ledger
