#include "ledger/LedgerForms.h"

#include "ledger/posting/TfrmJVsPost.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::ledger {

void RegisterPostingForms(shell::FormRegistry& registry) {
    registry.Register("frmJVsPost", [](shell::FormContext& context) -> ui::Form& {
        return context.App.CreateForm<TfrmJVsPost>(context.Db);
    });
}

} // namespace corvane::ledger
