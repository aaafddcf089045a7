#include "receivables/invoices/forms/InvoiceForms.h"

#include "core/Exception.h"
#include "receivables/invoices/forms/TfrmARInvoice.h"
#include "receivables/invoices/forms/TfrmARInvoicePOSPmt.h"
#include "receivables/invoices/forms/TfrmARInvoices.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::receivables {

void RegisterInvoiceForms(shell::FormRegistry& registry) {
    registry.Register("frmARInvoices", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmARInvoices>(ctx.Db);
    });
    registry.Register("frmARInvoice", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmARInvoice>(ctx.Db);
    });
    registry.Register("frmARInvoicePOSPmt", [](shell::FormContext& ctx) -> ui::Form& {
        auto* invoice = dynamic_cast<TfrmARInvoice*>(ctx.App.FindForm("frmARInvoice"));
        if (!invoice) throw Exception("The invoice is not open");
        return ctx.App.CreateForm<TfrmARInvoicePOSPmt>(ctx.Db, *invoice);
    });
}

} // namespace corvane::receivables
