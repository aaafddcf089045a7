#include "desktop/QtReportPrinter.h"

#include "core/Exception.h"
#include "desktop/ReportPagePainter.h"
#include "reports/page/ReportDocument.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStringList>

#include <algorithm>

namespace corvane::desktop {

namespace {

// The paper of a page: a standard size where the page has one (Letter, A4), turned as the page is.
QPageLayout LayoutOf(const reports::Page& page) {
    const bool landscape = page.width > page.height;
    const QSizeF portrait(std::min(page.width, page.height), std::max(page.width, page.height));
    const QPageSize size(portrait, QPageSize::Point, QString(), QPageSize::FuzzyMatch);
    return QPageLayout(size, landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                       QMarginsF());
}

} // namespace

std::string QtReportPrinter::DefaultPrinterName() {
    return QPrinterInfo::defaultPrinterName().toStdString();
}

bool QtReportPrinter::CanPrintToFile() {
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    return printer.outputFormat() == QPrinter::PdfFormat && printer.isValid();
}

bool QtReportPrinter::DefaultPaperIsA4() {
    const QPrinterInfo printer = QPrinterInfo::defaultPrinter();
    return !printer.isNull() && printer.defaultPageSize().id() == QPageSize::A4;
}

void QtReportPrinter::SelectPrinter(QPrinter& printer, int printerIndex) {
    const QStringList names = QPrinterInfo::availablePrinterNames();
    if (printerIndex >= 0 && printerIndex < names.size())
        printer.setPrinterName(names[printerIndex]);
}

int QtReportPrinter::PrinterIndex(const QPrinter& printer) {
    // The default printer is named as such, so that a job goes where the system sends it.
    if (printer.printerName() == QPrinterInfo::defaultPrinterName()) return -1;
    return static_cast<int>(QPrinterInfo::availablePrinterNames().indexOf(printer.printerName()));
}

bool QtReportPrinter::PrintDialog(reports::PrintRequest& request) {
    QPrinter printer;
    SelectPrinter(printer, request.printerIndex);
    printer.setCopyCount(request.copies);
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    dialog.setMinMax(request.minPage, request.maxPage);
    dialog.setFromTo(request.fromPage, request.toPage);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, request.rangeAllowed);
    dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
    if (dialog.exec() != QDialog::Accepted) return false;
    request.printerIndex = PrinterIndex(printer);
    if (request.rangeAllowed && printer.printRange() == QPrinter::PageRange) {
        request.fromPage = printer.fromPage();
        request.toPage = printer.toPage();
    } else {
        request.fromPage = request.minPage;
        request.toPage = request.maxPage;
    }
    request.copies = std::max(1, printer.copyCount());
    return true;
}

void QtReportPrinter::PrintPages(const reports::ReportDocument& document,
                                 const reports::PrintJob& job) {
    QPrinter printer(QPrinter::HighResolution);
    SelectPrinter(printer, job.printerIndex);
    printer.setDocName(QString::fromStdString(job.title));
    printer.setCopyCount(job.copies);
    // The page's origin is the paper's corner, as the engine laid it out.
    printer.setFullPage(true);
    QPainter painter;
    for (int number = job.firstPage; number <= job.lastPage; ++number) {
        const reports::Page& page = document.PageAt(number);
        printer.setPageLayout(LayoutOf(page));
        if (number == job.firstPage) {
            if (!painter.begin(&printer))
                throw Exception("The report could not be sent to the printer.");
        } else if (!printer.newPage()) {
            throw Exception("The printer stopped taking pages of the report.");
        }
        PaintReportPage(painter, page, document.PageCount(), printer.resolution() / 72.0);
    }
    if (painter.isActive()) painter.end();
}

std::optional<std::string> QtReportPrinter::SaveFileName(const std::string& title,
                                                         const std::string& defaultName,
                                                         const std::string& filter) {
    // The kinds offered: the filter's pairs of name and pattern ("Excel files (*.xlsx)|*.xlsx"),
    // or the kind of the default name.
    const QString suffix = QFileInfo(QString::fromStdString(defaultName)).suffix();
    QStringList names;
    QStringList suffixes;
    const QStringList parts = QString::fromStdString(filter).split('|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        names << parts[i].trimmed();
        suffixes << QFileInfo(parts[i + 1].trimmed()).suffix();
    }
    if (names.isEmpty() && !suffix.isEmpty()) {
        names << suffix.toUpper() + " files (*." + suffix + ")";
        suffixes << suffix;
    }
    QString chosen = names.isEmpty() ? QString() : names.front();
    for (qsizetype i = 0; i < suffixes.size(); ++i)
        if (suffixes[i].compare(suffix, Qt::CaseInsensitive) == 0) chosen = names[i];
    QString path = QFileDialog::getSaveFileName(
        QApplication::activeWindow(), QString::fromStdString(title),
        QDir::home().filePath(QString::fromStdString(defaultName)), names.join(";;"), &chosen);
    if (path.isEmpty()) return std::nullopt;
    // A name typed without its extension takes that of the kind chosen.
    const qsizetype kind = names.indexOf(chosen);
    if (QFileInfo(path).suffix().isEmpty()) {
        const QString wanted = kind >= 0 ? suffixes[kind] : suffix;
        if (!wanted.isEmpty()) path += "." + wanted;
    }
    return path.toStdString();
}

} // namespace corvane::desktop
