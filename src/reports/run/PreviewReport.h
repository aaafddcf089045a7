#pragma once

#include <memory>
#include <string>

namespace corvane::ui {
class Application;
}

namespace corvane::reports {

class TrptBase;

// What a list's Print command does with its report: the printer check, then the preview shown at
// once and following the pages as the report lays them out; the person may read page 1, or close
// the preview to cancel, while the rest is made. The report lives until its last page is made;
// a report with no rows shows nothing, unless it prints when empty.
void PreviewReport(ui::Application& app, std::unique_ptr<TrptBase> report);

// The whole report into a file without a preview, for the command line: PDF, plain text, or an
// Excel workbook of its lines.
enum class ReportFileKind { Pdf, Text, Workbook };
// Returns the number of pages written.
int ReportToFile(TrptBase& report, ReportFileKind kind, const std::string& path);

} // namespace corvane::reports
