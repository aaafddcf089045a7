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

namespace corvane::reports {

void PreviewReport(ui::Application& app, std::unique_ptr<TrptBase> report) {
    RequirePrinter(app);
    auto document = std::make_shared<ReportDocument>();
    {
        ui::WaitCursor wait(app);
        report->ApplyPaper(app.ReportsOnA4());
        report->Open();
        document->title = report->QuickReport.ReportTitle;
    }
    const bool landscape = report->QuickReport.Page.Orientation == Orientation::Landscape;
    TfrmPreview& preview = ShowPreview(app, document, landscape);
    report->QuickReport.Prepare(*document);
    // An empty report without PrintIfEmpty makes no page: nothing to look at.
    if (document->PageCount() == 0 && !document->Cancelled()) preview.Close();
}

int ReportToFile(TrptBase& report, ReportFileKind kind, const std::string& path) {
    ReportDocument document;
    report.Open();
    document.title = report.QuickReport.ReportTitle;
    if (kind == ReportFileKind::Pdf) {
        report.QuickReport.Prepare(document);
        WritePdf(document, path);
        return document.PageCount();
    }
    if (kind == ReportFileKind::Workbook) {
        report.QuickReport.Prepare(document);
        WriteWorkbook(document, path);
        return document.PageCount();
    }
    report.QuickReport.Prepare(document);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) throw Exception("Could not create the text file " + path + ".");
    out << TextRenderer().Render(document);
    if (!out.flush()) throw Exception("Could not write the text file " + path + ".");
    return document.PageCount();
}

} // namespace corvane::reports
