#include "timebilling/TimeBillingForms.h"

#include "reports/run/PreviewReport.h"
#include "shell/main/FormRegistry.h"
#include "timebilling/forms/TfrmARInvoiceNew.h"
#include "timebilling/forms/TfrmEmployee.h"
#include "timebilling/forms/TfrmEmployees.h"
#include "timebilling/forms/TfrmJob.h"
#include "timebilling/forms/TfrmJobs.h"
#include "timebilling/forms/TfrmTaskType.h"
#include "timebilling/forms/TfrmTaskTypes.h"
#include "timebilling/forms/TfrmTimeCalculator.h"
#include "timebilling/forms/TfrmTimeReports.h"
#include "timebilling/forms/TfrmTimeSheet.h"
#include "timebilling/forms/TfrmTimeSheets.h"
#include "timebilling/reports/TrptJobs.h"
#include "timebilling/reports/TrptTimeSheets.h"
#include "ui/Application.h"

namespace corvane::timebilling {

namespace {

// Opens another registered form from a list of this module; the registry lives as long as the
// program.
std::function<ui::Form*(std::string_view)> Opener(shell::FormRegistry& registry,
                                                  const shell::FormContext& ctx) {
    return [&registry, ctx](std::string_view name) -> ui::Form* {
        const shell::FormFactory* factory = registry.Find(name);
        if (!factory) return nullptr;
        shell::FormContext context = ctx;
        return &(*factory)(context);
    };
}

template <class T> void RegisterSimple(shell::FormRegistry& registry, const char* name) {
    registry.Register(
        name, [](shell::FormContext& ctx) -> ui::Form& { return ctx.App.SingleForm<T>(ctx.Db); });
}

} // namespace

void RegisterTimeBillingForms(shell::FormRegistry& registry) {
    RegisterSimple<TfrmEmployees>(registry, "frmEmployees");
    RegisterSimple<TfrmEmployee>(registry, "frmEmployee");
    RegisterSimple<TfrmTaskTypes>(registry, "frmTaskTypes");
    RegisterSimple<TfrmTaskType>(registry, "frmTaskType");
    RegisterSimple<TfrmJob>(registry, "frmJob");
    RegisterSimple<TfrmTimeSheet>(registry, "frmTimeSheet");
    // The invoice list asks it before every new invoice.
    RegisterSimple<TfrmARInvoiceNew>(registry, "frmARInvoiceNew");
    registry.Register("frmJobs", [&registry](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<TfrmJobs>(ctx.Db);
        list.MakeRegisteredForm = Opener(registry, ctx);
        return list;
    });
    registry.Register("frmTimeSheets", [&registry](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<TfrmTimeSheets>(ctx.Db);
        list.MakeRegisteredForm = Opener(registry, ctx);
        return list;
    });
    registry.RegisterListPrinter("frmJobs", [](shell::ListForm& list) {
        auto& jobs = static_cast<TfrmJobs&>(list);
        reports::PreviewReport(list.App(),
                               std::make_unique<TrptJobs>(list.Db(), jobs.ReportOptions()));
    });
    registry.RegisterListPrinter("frmTimeSheets", [](shell::ListForm& list) {
        auto report = std::make_unique<TrptTimeSheets>(list.Db());
        report->FollowList(list);
        if (list.mnuOutstanding.Checked())
            report->QuickReport.ReportTitle = "Time Sheets (Outstanding)";
        reports::PreviewReport(list.App(), std::move(report));
    });
    registry.Register("frmTimeReports", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmTimeReports>(ctx.Db);
    });
    registry.Register("frmTimeCalculator", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmTimeCalculator>();
    });
}

} // namespace corvane::timebilling
