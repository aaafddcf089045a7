#include "ledger/LedgerForms.h"

#include "ledger/vouchers/TfrmJV.h"
#include "ledger/vouchers/TfrmJVs.h"
#include "ledger/vouchers/TfrmJVsFilter.h"
#include "ledger/vouchers/TfrmJVsFind.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::ledger {

namespace {
// The voucher list, made once, with the registry it opens the other ledger forms through.
TfrmJVs& VoucherList(shell::FormRegistry& registry, shell::FormContext& ctx) {
    return ctx.App.SingleForm<TfrmJVs>(ctx.Db, &registry, ctx.Main);
}
} // namespace

void RegisterVoucherForms(shell::FormRegistry& registry) {
    registry.Register("frmJVs", [&registry](shell::FormContext& ctx) -> ui::Form& {
        return VoucherList(registry, ctx);
    });
    registry.Register("frmJV", [&registry](shell::FormContext& ctx) -> ui::Form& {
        TfrmJV& form = ctx.App.SingleForm<TfrmJV>(ctx.Db);
        if (!form.OpenRegisteredForm)
            form.OpenRegisteredForm = [&registry, &app = ctx.App, &db = ctx.Db,
                                       main = ctx.Main](const std::string& name) {
                if (const shell::FormFactory* factory = registry.Find(name)) {
                    shell::FormContext inner{app, db, main};
                    (*factory)(inner).Show();
                }
            };
        return form;
    });
    registry.Register("frmJVsFilter", [&registry](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmJVsFilter>(
            static_cast<shell::ListForm&>(VoucherList(registry, ctx)));
    });
    registry.Register("frmJVsFind", [&registry](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmJVsFind>(
            static_cast<shell::ListForm&>(VoucherList(registry, ctx)));
    });
}

} // namespace corvane::ledger
