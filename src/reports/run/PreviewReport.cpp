#include "reports/run/PreviewReport.h"

#include "core/Exception.h"
#include "reports/export/ReportWorkbook.h"
#include "reports/page/ReportDocument.h"
#include "reports/preview/PrinterCheck.h"
#include "reports/preview/TfrmPreview.h"
#include "reports/render/PdfWriter.h"
#include "reports/render/TextRenderer.h"
#include "reports/run/TrptBase.h"
#include "ui/Application.h"
#include "ui/WaitCursor.h"

#include <fstream>
#include <optional>

namespace corvane::reports {

void PreviewReport(ui::Application& app, std::unique_ptr<TrptBase> report) {
    RequirePrinter(app);
    auto document = std::make_shared<ReportDocument>();
    report->ApplyPaper(app.ReportsOnA4());
    std::optional<ui::WaitCursor> wait(std::in_place, app);
    TfrmPreview* preview = nullptr;
    report->Produce(*document, [&] {
        wait.reset();
        const bool landscape = report->QuickReport.Page.Orientation == Orientation::Landscape;
        preview = &ShowPreview(app, document, landscape);
    });
    // An empty report without PrintIfEmpty makes no page: nothing to look at.
    if (preview && document->PageCount() == 0 && !document->Cancelled()) preview->Close();
}

int ReportToFile(TrptBase& report, ReportFileKind kind, const std::string& path) {
    ReportDocument document;
    report.Produce(document);
    if (kind == ReportFileKind::Pdf) {
        WritePdf(document, path);
        return document.PageCount();
    }
    if (kind == ReportFileKind::Workbook) {
        WriteWorkbook(document, path);
        return document.PageCount();
    }
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) throw Exception("Could not create the text file " + path + ".");
    out << TextRenderer().Render(document);
    if (!out.flush()) throw Exception("Could not write the text file " + path + ".");
    return document.PageCount();
}

} // namespace corvane::reports
