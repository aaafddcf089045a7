#include "receivables/ReceivablesForms.h"

#include "receivables/customers/TfrmCContact.h"
#include "receivables/customers/TfrmCustomer.h"
#include "receivables/customers/TfrmCustomerSearch.h"
#include "receivables/customers/TfrmCustomers.h"
#include "receivables/masters/TfrmCusType.h"
#include "receivables/masters/TfrmCusTypes.h"
#include "receivables/masters/TfrmSalesman.h"
#include "receivables/masters/TfrmSalesmen.h"
#include "receivables/reports/TrptCustomers.h"
#include "receivables/reports/TrptTaxes.h"
#include "receivables/taxes/TfrmTax.h"
#include "receivables/taxes/TfrmTaxes.h"
#include "reports/run/PreviewReport.h"
#include "reports/run/ReportRegistry.h"
#include "shell/main/FormRegistry.h"
#include "shell/main/TfrmCorvane.h"
#include "ui/Application.h"

namespace corvane::receivables {

namespace {

shell::TdmLookUps* LookUpsOf(const shell::FormContext& ctx) {
    return ctx.Main ? &ctx.Main->dmLookUps : nullptr;
}

// A list's report shows the list's rows in its order.
template <class Report>
void RegisterListReport(shell::FormRegistry& registry, std::string listName) {
    registry.RegisterListPrinter(std::move(listName), [](shell::ListForm& list) {
        auto report = std::make_unique<Report>(list.Db());
        report->FollowList(list);
        reports::PreviewReport(list.App(), std::move(report));
    });
}

// A registered list form opened from a look-up button, after the user's right to it is checked.
std::function<void(std::string_view, std::string_view)> ListOpener(shell::FormRegistry& registry,
                                                                   shell::FormContext ctx) {
    return [&registry, ctx](std::string_view form, std::string_view right) {
        if (ctx.Main && !ctx.Main->CheckUserAccess(std::string(right))) return;
        const shell::FormFactory* factory = registry.Find(form);
        if (!factory) return;
        shell::FormContext context = ctx;
        (*factory)(context).Show();
    };
}

// A small master's list and entry forms, which refresh the shared look-up cursors.
template <class List, class Entry>
void RegisterMaster(shell::FormRegistry& registry, std::string listName, std::string entryName) {
    registry.Register(std::move(listName), [](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<List>(ctx.Db);
        list.LookUps = LookUpsOf(ctx);
        return list;
    });
    registry.Register(std::move(entryName), [](shell::FormContext& ctx) -> ui::Form& {
        auto& entry = ctx.App.SingleForm<Entry>(ctx.Db);
        entry.LookUps = LookUpsOf(ctx);
        return entry;
    });
}

// Forms made on their own (tests, scripts) still need look-up cursors: one set for them.
shell::TdmLookUps& LookUpsFor(const shell::FormContext& ctx) {
    static shell::TdmLookUps standalone;
    return ctx.Main ? ctx.Main->dmLookUps : standalone;
}

} // namespace

void RegisterReceivablesForms(shell::FormRegistry& registry) {
    RegisterMaster<TfrmTaxes, TfrmTax>(registry, "frmTaxes", "frmTax");
    RegisterMaster<TfrmCusTypes, TfrmCusType>(registry, "frmCusTypes", "frmCusType");
    RegisterMaster<TfrmSalesmen, TfrmSalesman>(registry, "frmSalesmen", "frmSalesman");
    registry.Register("frmCustomers", [&registry](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<TfrmCustomers>(ctx.Db, LookUpsFor(ctx));
        list.OpenListForm = ListOpener(registry, ctx);
        list.MapService = ctx.Main ? ctx.Main->Settings().ReadString("General", "MapService",
                                                                     "https://www.google.com")
                                   : "https://www.google.com";
        return list;
    });
    registry.Register("frmCustomer", [&registry](shell::FormContext& ctx) -> ui::Form& {
        auto& entry = ctx.App.SingleForm<TfrmCustomer>(ctx.Db, LookUpsFor(ctx));
        entry.OpenListForm = ListOpener(registry, ctx);
        return entry;
    });
    registry.Register("frmCContact", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmCContact>(ctx.Db);
    });
    registry.Register("frmCustomerSearch", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmCustomerSearch>(ctx.Db);
    });
    RegisterListReport<TrptTaxes>(registry, "frmTaxes");
    RegisterListReport<TrptCustomers>(registry, "frmCustomers");
    RegisterListReport<TrptCusTypes>(registry, "frmCusTypes");
    RegisterListReport<TrptSalesmen>(registry, "frmSalesmen");
}

void RegisterReceivablesReports(reports::ReportRegistry& registry) {
    registry.Register("Taxes", "The sales taxes", [](store::Database& db, const auto&) {
        return std::unique_ptr<reports::TrptBase>(std::make_unique<TrptTaxes>(db));
    });
    registry.Register("Customers", "The customers", [](store::Database& db, const auto&) {
        return std::unique_ptr<reports::TrptBase>(std::make_unique<TrptCustomers>(db));
    });
    registry.Register("CusTypes", "The customer types", [](store::Database& db, const auto&) {
        return std::unique_ptr<reports::TrptBase>(std::make_unique<TrptCusTypes>(db));
    });
    registry.Register("Salesmen", "The salesmen", [](store::Database& db, const auto&) {
        return std::unique_ptr<reports::TrptBase>(std::make_unique<TrptSalesmen>(db));
    });
}

} // namespace corvane::receivables
