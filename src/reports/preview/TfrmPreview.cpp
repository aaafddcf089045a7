#include "reports/preview/TfrmPreview.h"

#include "reports/export/ReportWorkbook.h"
#include "reports/preview/ReportOutput.h"
#include "reports/render/PdfWriter.h"
#include "ui/Application.h"
#include "ui/Host.h"
#include "ui/Layout.h"
#include "ui/WaitCursor.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>

namespace corvane::reports {

namespace {

constexpr int MinZoom = 20;
constexpr int MaxZoom = 200;
constexpr int ZoomStep = 10;
constexpr int StartZoom = 100;

// The report's title as a file name, without the characters file systems refuse.
std::string ReportFileName(const std::string& title, const std::string& extension) {
    std::string name;
    for (char ch : title)
        name += std::string_view("\\/:*?\"<>|").find(ch) == std::string_view::npos &&
                        static_cast<unsigned char>(ch) >= 0x20
                    ? ch
                    : '_';
    return (name.empty() ? std::string("Report") : name) + extension;
}

// Several previews may be open, and form names are unique: the second is "frmPreview_1".
std::string PreviewName(const ui::Application& app) {
    std::string name = "frmPreview";
    for (int n = 1; app.FindForm(name); ++n)
        name = "frmPreview_" + std::to_string(n);
    return name;
}

} // namespace

TfrmPreview::TfrmPreview(ui::Application& app, std::shared_ptr<ReportDocument> document,
                         bool landscape)
    : Form(app, PreviewName(app)), document_(std::move(document)) {
    using namespace ui;
    Caption = App().Title + " Reports";
    pageView.Document = document_;
    btnClose.Cancel = true;

    SpinEdit1.MinValue = MinZoom;
    SpinEdit1.MaxValue = MaxZoom;
    SpinEdit1.Increment = ZoomStep;
    SpinEdit1.SetValue(StartZoom);
    pageView.Zoom = StartZoom;
    SpinEdit1.OnChange = [this] {
        // A box cleared while the person types a new value keeps the zoom it had.
        if (!SpinEdit1.Text().empty()) pageView.Zoom = SpinEdit1.Value();
    };

    btnFirst.OnClick = [this] { ShowPage(1); };
    btnPrevious.OnClick = [this] { ShowPage(PageNumber() - 1); };
    btnNext.OnClick = [this] { ShowPage(PageNumber() + 1); };
    btnLast.OnClick = [this] { ShowPage(Document().PageCount()); };
    btnPrint.OnClick = [this] { PrintClick(); };
    btnPDF.OnClick = [this] { PdfClick(); };
    btnExcel.OnClick = [this] { ExcelClick(); };
    btnEmail.OnClick = [this] { EmailClick(); };
    btnClose.OnClick = [this] { Close(); };

    // The layout's outer row lets the page take all the room the window has.
    SetLayout(Row{Column{Row{btnFirst, btnPrevious, btnNext, btnLast, panelPageNumber, SpinEdit1,
                             Stretch{}, btnPrint, btnPDF, btnExcel, btnEmail, btnClose},
                         pageView}});
    // The page takes the keys first, so that they scroll it rather than change the zoom.
    SetTabOrder({&pageView, &btnFirst, &btnPrevious, &btnNext, &btnLast, &SpinEdit1, &btnPrint,
                 &btnPDF, &btnExcel, &btnEmail, &btnClose});
    PlaceWindow(landscape);

    OnCloseQuery = [this](bool& canClose) { FormCloseQuery(canClose); };
    OnClose = [](CloseAction& action) { action = CloseAction::Free; };

    previousHandler_ = document_->OnPageAvailable;
    document_->OnPageAvailable = [this](int number) {
        PageAvailable(number);
        if (previousHandler_) previousHandler_(number);
    };
    if (document_->PageCount() > 0) ShowPage(1);
    ShowPageState();
}

TfrmPreview::~TfrmPreview() {
    document_->OnPageAvailable = previousHandler_;
}

void TfrmPreview::PlaceWindow(bool landscape) {
    double width = landscape ? 1150 : 900;
    double height = landscape ? 900 : 1250;
    if (App().ScaleFactor > 1) {
        width *= App().ScaleFactor;
        height *= App().ScaleFactor;
    }
    const ui::ScreenRect area = App().GetHost().WorkArea();
    ClientWidth = std::min(static_cast<int>(std::lround(width)), area.Width);
    ClientHeight = std::min(static_cast<int>(std::lround(height)), area.Height);
    CentreOn(area);
}

void TfrmPreview::ShowPage(int number) {
    const int count = Document().PageCount();
    pageView.PageNumber = count == 0 ? 0 : std::clamp(number, 1, count);
    ShowPageState();
}

void TfrmPreview::PageAvailable(int number) {
    if (number == 1) {
        // The zoom is set again when the first page comes: the view measures the page only now.
        pageView.Zoom = SpinEdit1.Value();
        ShowPage(1);
    } else {
        ShowPageState();
    }
    pageView.Refresh();
}

void TfrmPreview::ShowPageState() {
    const int count = Document().PageCount();
    const int page = PageNumber();
    panelPageNumber.Caption = count == 0
                                  ? std::string()
                                  : "Page " + std::to_string(page) + " of " + std::to_string(count);
    btnFirst.Enabled = btnPrevious.Enabled = page > 1;
    btnNext.Enabled = btnLast.Enabled = page < count;
    // A report still being made exports what it has so far only when asked again later.
    btnPrint.Enabled = btnPDF.Enabled = btnExcel.Enabled = btnEmail.Enabled = count > 0;
}

void TfrmPreview::PrintClick() {
    const int count = Document().PageCount();
    if (count == 0) return;
    PrintRequest request;
    request.minPage = request.fromPage = 1;
    request.maxPage = request.toPage = count;
    request.copies = 1;
    request.rangeAllowed = count >= 2;
    ReportOutput& output = ReportOutput::Current();
    if (!output.PrintDialog(request)) return;

    PrintJob job;
    job.printerIndex = request.printerIndex;
    job.firstPage = request.rangeAllowed ? std::clamp(request.fromPage, 1, count) : 1;
    job.lastPage = request.rangeAllowed ? std::clamp(request.toPage, job.firstPage, count) : count;
    job.title = Document().title;
    if (PrinterSettings) {
        PrinterSettings->PrinterIndex = job.printerIndex;
        PrinterSettings->FirstPage = job.firstPage;
        PrinterSettings->LastPage = job.lastPage;
        PrinterSettings->Copies = 1;
    }
    if (request.copies >= 2) {
        // The printer would stack its copies page by page; one pass per copy keeps each copy of
        // a report of several pages together.
        job.copies = 1;
        for (int copy = 0; copy < request.copies; ++copy) {
            output.PrintPages(Document(), job);
            App().ProcessMessages();
        }
    } else {
        job.copies = 1;
        output.PrintPages(Document(), job);
    }
}

void TfrmPreview::PdfClick() {
    if (Document().PageCount() == 0) return;
    std::optional<std::string> path = ReportOutput::Current().SaveFileName(
        "Export to PDF", ReportFileName(Document().title, ".pdf"));
    if (!path) return;
    ui::WaitCursor wait(App());
    WritePdf(Document(), *path);
}

void TfrmPreview::ExcelClick() {
    if (Document().PageCount() == 0) return;
    std::optional<std::string> path = ReportOutput::Current().SaveFileName(
        "Export to Excel", ReportFileName(Document().title, ".xlsx"),
        "Excel files (*.xlsx)|*.xlsx");
    if (!path) return;
    ui::WaitCursor wait(App());
    WriteWorkbook(Document(), *path);
}

void TfrmPreview::EmailClick() {
    if (Document().PageCount() == 0) return;
    // The file goes with the message, so it stays after the preview closes: the mail program
    // reads it when the person sends.
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "corvane-mail";
    std::filesystem::create_directories(folder);
    const std::string path = (folder / ReportFileName(Document().title, ".pdf")).string();
    {
        ui::WaitCursor wait(App());
        WritePdf(Document(), path);
    }
    App().Desktop().MailFile("", Document().title, "", path);
}

void TfrmPreview::FormCloseQuery(bool& canClose) {
    if (!Document().Producing()) return;
    // The engine stops at its next band; until it has, the pages it is making belong here.
    const bool alreadyAsked = Document().CancelRequested();
    Document().RequestCancel();
    App().ShowMessage(!alreadyAsked && Document().CancelRequested()
                          ? "Report generation has been cancelled."
                          : "Preview cannot be closed while report is being generated.");
    canClose = false;
}

TfrmPreview& ShowPreview(ui::Application& app, std::shared_ptr<ReportDocument> document,
                         bool landscape) {
    auto& preview = app.CreateForm<TfrmPreview>(std::move(document), landscape);
    preview.Show();
    return preview;
}

} // namespace corvane::reports
