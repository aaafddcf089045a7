#include "reports/system/SystemReports.h"

#include "reports/run/PreviewReport.h"
#include "reports/run/ReportRegistry.h"
#include "reports/system/TrptUsers.h"
#include "shell/main/FormRegistry.h"
#include "shell/patterns/ListForm.h"

#include <stdexcept>

namespace corvane::reports {

namespace {

// A report of the whole table has nothing to choose: an option given is a mistake of the caller.
void RefuseOptions(const std::string& report, const ReportRequest& request) {
    if (!request.Options.empty())
        throw std::invalid_argument("The " + report + " report takes no options; it was given --" +
                                    request.Options.begin()->first + ".");
}

} // namespace

void RegisterSystemReports(ReportRegistry& registry) {
    registry.Register("Users", "The users of the company and who may change security",
                      [](store::Database& db, const ReportRequest& request) {
                          RefuseOptions("Users", request);
                          return std::unique_ptr<TrptBase>(std::make_unique<TrptUsers>(db));
                      });
}

void RegisterSystemListPrinters(shell::FormRegistry& registry) {
    registry.RegisterListPrinter("frmUsers", [](shell::ListForm& list) {
        auto report = std::make_unique<TrptUsers>(list.Db());
        // The report shows what the list shows, in the same order.
        report->tblUsers.SetIndexName(list.MainTable.IndexName());
        report->tblUsers.SetFilter(list.MainTable.Filter());
        report->tblUsers.SetFiltered(list.MainTable.Filtered());
        PreviewReport(list.App(), std::move(report));
    });
}

} // namespace corvane::reports
