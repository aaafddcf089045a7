#include "receivables/ReceivablesForms.h"

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

} // namespace

void RegisterReceivablesForms(shell::FormRegistry& registry) {
    registry.Register("frmTaxes", [](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<TfrmTaxes>(ctx.Db);
        list.LookUps = LookUpsOf(ctx);
        return list;
    });
    registry.Register("frmTax", [](shell::FormContext& ctx) -> ui::Form& {
        auto& entry = ctx.App.SingleForm<TfrmTax>(ctx.Db);
        entry.LookUps = LookUpsOf(ctx);
        return entry;
    });
    RegisterListReport<TrptTaxes>(registry, "frmTaxes");
}

void RegisterReceivablesReports(reports::ReportRegistry& registry) {
    registry.Register("Taxes", "The sales taxes", [](store::Database& db, const auto&) {
        return std::unique_ptr<reports::TrptBase>(std::make_unique<TrptTaxes>(db));
    });
}

} // namespace corvane::receivables
