#include "reports/run/TrptBase.h"

#include "reports/page/ReportDocument.h"
#include "store/CompanyFile.h"
#include "store/Query.h"
#include "store/Table.h"

#include <optional>

namespace corvane::reports {

namespace {

// The company the report's rows come from; null for a report that reads no company.
store::Database* CompanyOf(store::DataSet* dataSet) {
    if (auto* table = dynamic_cast<store::Table*>(dataSet)) return &table->OwnerDatabase();
    if (auto* query = dynamic_cast<store::Query*>(dataSet)) return &query->OwnerDatabase();
    return nullptr;
}

} // namespace

void TrptBase::Produce(ReportDocument& document, const std::function<void()>& opened) {
    std::optional<store::ReadSnapshot> snapshot;
    if (store::Database* company = CompanyOf(QuickReport.DataSet)) snapshot.emplace(*company);
    Open();
    document.title = QuickReport.ReportTitle;
    if (opened) opened();
    QuickReport.Prepare(document);
}

void TrptBase::ApplyPaper(bool paperIsA4) {
    if (paperIsA4) QuickReport.Page.PaperSize = PaperSize::A4;
}

} // namespace corvane::reports
