#include "receivables/posting/InvoicePostingForms.h"

#include "receivables/posting/TfrmARInvoicesPost.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::receivables {

void RegisterInvoicePostingForms(shell::FormRegistry& registry) {
    registry.Register("frmARInvoicesPost", [](shell::FormContext& context) -> ui::Form& {
        return context.App.CreateForm<TfrmARInvoicesPost>(context.Db);
    });
}

} // namespace corvane::receivables
