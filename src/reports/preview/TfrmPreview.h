#pragma once

#include "reports/engine/PageSettings.h"
#include "reports/page/ReportDocument.h"
#include "reports/preview/ReportPageView.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/SpinEdit.h"

#include <functional>
#include <memory>

namespace corvane::reports {

// The preview of one report run: its pages one at a time, at a zoom, with printing and export
// from the pages already made. It is modeless and several may be open at once; it shows page 1
// as soon as it is there and follows the page count while the report is still being produced.
// It frees itself when closed.
class TfrmPreview : public ui::Form {
public:
    TfrmPreview(ui::Application& app, std::shared_ptr<ReportDocument> document,
                bool landscape = false);
    ~TfrmPreview() override;

    ui::Button btnFirst{*this, "btnFirst", "&First"};
    ui::Button btnPrevious{*this, "btnPrevious", "&Previous"};
    ui::Button btnNext{*this, "btnNext", "&Next"};
    ui::Button btnLast{*this, "btnLast", "&Last"};
    ui::Label panelPageNumber{*this, "panelPageNumber"};
    ui::SpinEdit SpinEdit1{*this, "SpinEdit1"};
    ui::Button btnPrint{*this, "btnPrint", "P&rint..."};
    ui::Button btnPDF{*this, "btnPDF", "P&DF..."};
    ui::Button btnExcel{*this, "btnExcel", "E&xcel..."};
    ui::Button btnEmail{*this, "btnEmail", "E&mail..."};
    ui::Button btnClose{*this, "btnClose", "&Close"};
    ReportPageView pageView{*this, "pageView"};

    // The report's printer settings, when the caller has them: the print dialog's choice is kept
    // there as well, for a report that prints again from them.
    TQRPrinterSettings* PrinterSettings = nullptr;

    ReportDocument& Document() const { return *document_; }
    int PageNumber() const { return pageView.PageNumber; }
    // Moves to page number, kept within the pages there are.
    void ShowPage(int number);

private:
    void PlaceWindow(bool landscape);
    void PageAvailable(int number);
    void ShowPageState();
    void PrintClick();
    void PdfClick();
    void ExcelClick();
    void EmailClick();
    void FormCloseQuery(bool& canClose);

    std::shared_ptr<ReportDocument> document_;
    // The document's page handler from before the preview came, which runs after the preview's.
    std::function<void(int)> previousHandler_;
};

// Makes the preview of document and shows it; the caller may produce the pages afterwards, and
// the preview follows them as they come.
TfrmPreview& ShowPreview(ui::Application& app, std::shared_ptr<ReportDocument> document,
                         bool landscape = false);

} // namespace corvane::reports
