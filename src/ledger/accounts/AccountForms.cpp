#include "ledger/LedgerForms.h"

#include "ledger/accounts/TfrmGLAccount.h"
#include "ledger/accounts/TfrmGLAccountSub.h"
#include "ledger/accounts/TfrmGLAccounts.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::ledger {

void RegisterAccountForms(shell::FormRegistry& registry) {
    // The registry lives as long as the program: the list reaches the history and totals forms
    // through it, whichever part of the program registered them.
    registry.Register("frmGLAccounts", [&registry](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<TfrmGLAccounts>(ctx.Db);
        list.MakeRegisteredForm = [&registry, ctx](std::string_view name) -> ui::Form* {
            const shell::FormFactory* factory = registry.Find(name);
            if (!factory) return nullptr;
            shell::FormContext context = ctx;
            return &(*factory)(context);
        };
        return list;
    });
    registry.Register("frmGLAccount", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmGLAccount>(ctx.Db);
    });
    registry.Register("frmGLAccountSub", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmGLAccountSub>(ctx.Db);
    });
}

} // namespace corvane::ledger
