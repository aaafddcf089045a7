#pragma once

#include "reports/preview/ReportOutput.h"

#include <string>

class QPrinter;

namespace corvane::desktop {

// Reports to paper and to files on the desktop: Qt's print dialog, the system's printers and the
// file dialog for an export's name. Pages are drawn by the same routine as the preview's.
class QtReportPrinter : public reports::ReportOutput {
public:
    bool PrintDialog(reports::PrintRequest& request) override;
    void PrintPages(const reports::ReportDocument& document, const reports::PrintJob& job) override;
    std::optional<std::string> SaveFileName(const std::string& title,
                                            const std::string& defaultName,
                                            const std::string& filter = {}) override;

    // The system's default printer; empty when there is none.
    static std::string DefaultPrinterName();
    // Qt writes PDF files itself, with no driver of the system.
    static bool CanPrintToFile();
    static constexpr const char* FilePrinterName = "Print to File (PDF)";
    // The default printer's paper is A4.
    static bool DefaultPaperIsA4();

private:
    static void SelectPrinter(QPrinter& printer, int printerIndex);
    static int PrinterIndex(const QPrinter& printer);
};

} // namespace corvane::desktop
