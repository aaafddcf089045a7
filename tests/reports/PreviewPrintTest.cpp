#include "reports/PreviewFixture.h"

#include "support/CompanyFixture.h"

#include <filesystem>
#include <fstream>

namespace corvane::testing {
namespace {

using Choice = reports::RecordingReportOutput::PrintChoice;

TEST_F(PreviewTest, DialogOffersAllPagesAndARangeOnlyFromTwoPagesOn) {
    auto& single = Preview(FinishedReport(1));
    printer.CancelPrint();
    Click(single, "btnPrint");
    auto& several = Preview(FinishedReport(4));
    printer.CancelPrint();
    Click(several, "btnPrint");

    ASSERT_EQ(printer.Requests().size(), 2u);
    const reports::PrintRequest& one = printer.Requests()[0];
    EXPECT_FALSE(one.rangeAllowed);
    EXPECT_EQ(one.minPage, 1);
    EXPECT_EQ(one.maxPage, 1);
    EXPECT_EQ(one.copies, 1);
    const reports::PrintRequest& four = printer.Requests()[1];
    EXPECT_TRUE(four.rangeAllowed);
    EXPECT_EQ(four.fromPage, 1);
    EXPECT_EQ(four.toPage, 4);
    EXPECT_EQ(four.maxPage, 4);
    // A cancelled dialog prints nothing.
    EXPECT_TRUE(printer.PrintedPages().empty());
}

TEST_F(PreviewTest, CopiesPrintOneWholeReportAtATime) {
    // Three copies of one page go through the loop as well: one pass per copy.
    auto& single = Preview(FinishedReport(1));
    printer.AnswerPrint(Choice{.copies = 3});
    Click(single, "btnPrint");
    EXPECT_EQ(printer.Calls(), (std::vector<std::string>{"PrintDialog pages 1-1 copies 1",
                                                         "PrintPages 1-1 copies 1 printer -1",
                                                         "PrintPages 1-1 copies 1 printer -1",
                                                         "PrintPages 1-1 copies 1 printer -1"}));

    printer.Clear();
    auto& three = Preview(FinishedReport(3));
    printer.AnswerPrint(Choice{.copies = 2, .printerIndex = 1});
    Click(three, "btnPrint");
    EXPECT_EQ(printer.PrintedPages(), (std::vector<int>{1, 2, 3, 1, 2, 3}));
    EXPECT_EQ(printer.Calls().back(), "PrintPages 1-3 copies 1 printer 1");
}

TEST_F(PreviewTest, ChosenRangeAndPrinterReachThePrinterAndTheReportsSettings) {
    auto& preview = Preview(FinishedReport(5));
    reports::TQRPrinterSettings settings;
    preview.PrinterSettings = &settings;
    printer.AnswerPrint(Choice{.fromPage = 2, .toPage = 3, .copies = 1, .printerIndex = 2});
    Click(preview, "btnPrint");
    EXPECT_EQ(printer.PrintedPages(), (std::vector<int>{2, 3}));
    EXPECT_EQ(settings.PrinterIndex, 2);
    EXPECT_EQ(settings.FirstPage, 2);
    EXPECT_EQ(settings.LastPage, 3);
    EXPECT_EQ(settings.Copies, 1);

    // A range past the end prints what there is.
    printer.Clear();
    printer.AnswerPrint(Choice{.fromPage = 4, .toPage = 9});
    Click(preview, "btnPrint");
    EXPECT_EQ(printer.PrintedPages(), (std::vector<int>{4, 5}));
}

TEST_F(PreviewTest, PdfGoesToTheFileTheSaveDialogNames) {
    TempFolder folder;
    const std::string path = folder.Path() + "/vendors.pdf";
    auto& preview = Preview(FinishedReport(2, "Vendors: A/B"));
    printer.AnswerSaveFile(path);
    Click(preview, "btnPDF");
    EXPECT_EQ(printer.Calls().back(), "SaveFileName Export to PDF|Vendors_ A_B.pdf");
    std::ifstream file(path, std::ios::binary);
    std::string head(5, '\0');
    file.read(head.data(), 5);
    EXPECT_EQ(head, "%PDF-");

    printer.AnswerSaveFile(std::nullopt);
    Click(preview, "btnPDF");
    const auto files = std::distance(std::filesystem::directory_iterator(folder.Path()), {});
    EXPECT_EQ(files, 1);
    EXPECT_EQ(printer.PendingAnswers(), 0u);
}

TEST_F(PreviewTest, ExcelGoesToTheWorkbookTheSaveDialogNames) {
    TempFolder folder;
    const std::string path = folder.Path() + "/vendors.xlsx";
    auto& preview = Preview(FinishedReport(2, "Vendors: A/B"));
    printer.AnswerSaveFile(path);
    Click(preview, "btnExcel");
    EXPECT_EQ(printer.Calls().back(),
              "SaveFileName Export to Excel|Vendors_ A_B.xlsx|Excel files (*.xlsx)|*.xlsx");
    std::ifstream file(path, std::ios::binary);
    std::string head(2, '\0');
    file.read(head.data(), 2);
    EXPECT_EQ(head, "PK"); // a workbook is a zip of its parts

    printer.AnswerSaveFile(std::nullopt);
    Click(preview, "btnExcel");
    const auto files = std::distance(std::filesystem::directory_iterator(folder.Path()), {});
    EXPECT_EQ(files, 1);
    EXPECT_EQ(printer.PendingAnswers(), 0u);
}

// The report goes as a PDF to the desktop's mail program, which the person sends from; a mail
// program that refuses says why and the preview stays.
TEST_F(PreviewTest, EmailHandsThePdfToTheMailProgram) {
    auto& preview = Preview(FinishedReport(2, "Vendors: A/B"));
    Click(preview, "btnEmail");
    ASSERT_EQ(desktop.Mails().size(), 1u);
    const auto& mail = desktop.Mails().back();
    EXPECT_EQ(mail.To, "");
    EXPECT_EQ(mail.Subject, "Vendors: A/B");
    EXPECT_EQ(std::filesystem::path(mail.File).filename(), "Vendors_ A_B.pdf");
    std::ifstream file(mail.File, std::ios::binary);
    std::string head(5, '\0');
    file.read(head.data(), 5);
    EXPECT_EQ(head, "%PDF-");
    std::filesystem::remove(mail.File);

    desktop.MailRefusal = "No mail program can be reached.";
    Click(preview, "btnEmail");
    EXPECT_EQ(dialogs.LastText(), "No mail program can be reached.");
    EXPECT_EQ(desktop.Mails().size(), 1u);
    EXPECT_TRUE(preview.Visible());
}

} // namespace
} // namespace corvane::testing
