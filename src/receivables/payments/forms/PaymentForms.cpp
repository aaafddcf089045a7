#include "receivables/payments/forms/PaymentForms.h"

#include "receivables/customers/CustomerPick.h"
#include "receivables/payments/forms/TfrmARPayment.h"
#include "receivables/payments/forms/TfrmARPaymentInv.h"
#include "receivables/payments/forms/TfrmARPayments.h"
#include "receivables/posting/TfrmARPaymentsPost.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::receivables {

namespace {

// The choosers the payment opens, each a modal form of the application.
void ConnectChoosers(TfrmARPayment& payment, shell::FormContext& ctx) {
    ui::Application& app = ctx.App;
    store::Database& db = ctx.Db;
    payment.ChooseInvoice = [&app, &db,
                             &payment](char firstChar,
                                       const std::string& filter) -> std::optional<std::int64_t> {
        auto& chooser = app.SingleForm<TfrmARPaymentInv>(db);
        shell::SearchStart start;
        start.Filter = filter;
        start.IndexName = "InvoiceNo";
        start.FirstChar = firstChar;
        chooser.Start(payment.grdLines, start);
        if (chooser.ShowModal() != ui::mrOK || chooser.SearchTable.IsEmpty()) return std::nullopt;
        return chooser.SelectedKey().front().Int();
    };
    payment.ChooseCustomer = [&db, &payment]() -> std::optional<std::int64_t> {
        CustomerPick pick;
        pick.IndexName = "CustomerNo";
        pick.AllowSuspended = false;
        const std::optional<store::Value> chosen = PickCustomer(payment.editCustomerNo, db, pick);
        if (!chosen) return std::nullopt;
        return chosen->Int();
    };
}

} // namespace

void RegisterPaymentForms(shell::FormRegistry& registry) {
    registry.Register("frmARPayments", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmARPayments>(ctx.Db);
    });
    registry.Register("frmARPayment", [](shell::FormContext& ctx) -> ui::Form& {
        auto& payment = ctx.App.SingleForm<TfrmARPayment>(ctx.Db);
        ConnectChoosers(payment, ctx);
        return payment;
    });
    registry.Register("frmARPaymentInv", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmARPaymentInv>(ctx.Db);
    });
    registry.Register("frmARPaymentsPost", [](shell::FormContext& context) -> ui::Form& {
        return context.App.CreateForm<TfrmARPaymentsPost>(context.Db);
    });
}

} // namespace corvane::receivables
