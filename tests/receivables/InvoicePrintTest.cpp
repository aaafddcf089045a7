#include "InvoiceFixture.h"
#include "core/FormatSettings.h"
#include "receivables/invoices/print/BitmapImage.h"
#include "receivables/invoices/print/InvoiceCommands.h"
#include "receivables/invoices/print/InvoiceFile.h"
#include "receivables/invoices/print/InvoicePrintRules.h"
#include "receivables/invoices/print/TfrmARInvoicesPrint.h"
#include "receivables/invoices/print/TrptARInvoice.h"
#include "reports/page/ReportDocument.h"
#include "reports/preview/RecordingReportOutput.h"
#include "reports/render/TextRenderer.h"
#include "support/GoldenFile.h"

#include <filesystem>
#include <fstream>
#include <sstream>

using namespace corvane;
using namespace corvane::receivables;
using corvane::testing::InvoiceTest;

namespace {

TEST(InvoicePrintRules, TermsReadAsEntryGivesThemAndNoNetDaysIsPayableOnReceipt) {
    InvoiceTerms t;
    t.NetDays = 30;
    EXPECT_EQ(PrintedTerms(t), "Terms: Net 30");
    t.DiscPC = 2;
    t.DiscDays = 10;
    EXPECT_EQ(PrintedTerms(t), "Terms: 2% 10   Net 30");
    t.NetDays = 0;
    EXPECT_EQ(PrintedTerms(t), "Terms: 2% 10   Payable on Receipt");
    t.DiscPC.reset();
    t.NetDays.reset();
    EXPECT_EQ(PrintedTerms(t), "Terms: Payable on Receipt");
    t.COD = true;
    EXPECT_EQ(PrintedTerms(t), "Terms: C.O.D.");
    t.TermsText = "Half now, half on delivery";
    EXPECT_EQ(PrintedTerms(t), "Terms: Half now, half on delivery");
}

TEST(InvoicePrintRules, ATaxOfQuebecPrintsWithoutItsRate) {
    EXPECT_EQ(TaxDescriptionRate("GST", "Goods and Services Tax", 5), "GST @ 5%");
    EXPECT_EQ(TaxDescriptionRate("PST", "PST", 9.975), "PST @ 9.975%");
    EXPECT_EQ(TaxDescriptionRate("QST", "Quebec Sales Tax", 9.975), "QST");
    EXPECT_EQ(InvoiceTitle(true), "Credit Note");
    EXPECT_EQ(InvoiceTitle(false), "Invoice");
}

// The invoice company of the posting tests with a name, an address and a message, and a time
// invoice of a job's task beside the item invoices.
class InvoicePrint : public InvoiceTest {
protected:
    void SetUp() override {
        InvoiceTest::SetUp();
        saved_ = ProcessFormatSettings();
        ProcessFormatSettings() = FormatSettings{};
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Print Test Co"},
                              {"AddressLine1", "5 Press Road"},
                              {"Phone", "555-0199"},
                              {"FiscalYear", 2018},
                              {"DefaultPeriodYYYY", 2018},
                              {"DefaultPeriodPP", 3},
                              {"ARInvoiceMessage", "Thank you. Payment by bank transfer welcome."},
                              {"ARInvoiceCopies", 2},
                              {"EmailFromName", "Pat Printer"}});
        UpdateRow("Customer", "CustomerID = 1",
                  {{"AddressLine1", "1 Main St"},
                   {"City", "Springfield"},
                   {"StateProv", "IL"},
                   {"ZipCode", "62701"},
                   {"Contact", "Ann"},
                   {"EMail", "ann@local.example"},
                   {"ShipToName", "Local Ltd Warehouse"},
                   {"ShipToAddressLine1", "9 Dock Rd"},
                   {"ShipToCity", "Springfield"}});
        // Local: 2 x SVC at 20.00 (GST and PST) and 1 x WIDGET at 20.00 (GST).
        AddInvoice(1, Local,
                   {{2, Money::FromWhole(20), Service}, {1, Money::FromWhole(20), Widget}}, false);
        UpdateRow("ARInvDet", "(ARInvoiceID = 1) AND (Seq = 2)", {{"Notes", "Blue, boxed"}});
        // Abroad: a credit note of one widget.
        AddInvoice(2, Abroad, {{-1, Money::FromWhole(20), Widget}}, false);
        // A time invoice: 3.5 hours of drawings on the Harbour job at 80.00.
        InsertRow("Job", {{"JobID", 7}, {"JobName", "Harbour"}, {"CustomerID", Local}});
        UpdateRow("Task", "TaskID = 1", {{"JobID", 7}});
        InsertRow("ARInv", {{"ARInvoiceID", 3},
                            {"CustomerID", Local},
                            {"InvoiceNo", "1003"},
                            {"InvoiceDate", Date::FromYmd(2018, 3, 20)},
                            {"InvoiceAmount", Money::FromWhole(280)},
                            {"Owing", Money::FromWhole(280)},
                            {"GLPeriod", 3},
                            {"GLYear", 2018},
                            {"Printed", true},
                            {"Posted", false},
                            {"TimeInvoice", true},
                            {"NetDays", 15}});
        InsertRow("ARInvDet", {{"ARInvoiceID", 3},
                               {"Seq", 1},
                               {"Quantity", 3.5},
                               {"UnitPrice", Money::FromWhole(80)},
                               {"UnitPriceB4Disc", Money::FromWhole(80)},
                               {"JobID", 7},
                               {"TaskID", 1}});
        reports::ReportOutput::Install(&output);
    }
    void TearDown() override {
        reports::ReportOutput::Install(nullptr);
        ProcessFormatSettings() = saved_;
        InvoiceTest::TearDown();
    }
    void UpdateRow(const std::string& table, const std::string& where,
                   std::vector<std::pair<std::string, store::Value>> fields) {
        store::Table t(db_, table);
        t.Open();
        t.SetFilter(where);
        t.SetFiltered(true);
        t.First();
        ASSERT_FALSE(t.Eof()) << table << " " << where;
        t.Edit();
        for (auto& [name, value] : fields)
            t.FieldByName(name).SetValue(value);
        t.Post();
    }
    std::string Pages(reports::TrptBase& report, int* pages = nullptr) {
        report.QuickReport.PrintedAt = reports::ReportTimestamp{Date::FromYmd(2018, 4, 1), 8, 0, 0};
        report.Open();
        reports::ReportDocument document;
        report.QuickReport.Prepare(document);
        if (pages) *pages = document.PageCount();
        return reports::TextRenderer(reports::TextRenderer::PageBreak::PageMarker).Render(document);
    }
    static std::string LineWith(const std::string& text, const std::string& word) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            if (line.find(word) != std::string::npos) return line;
        return {};
    }
    bool Printed(int id) {
        return Count("SELECT COUNT(*) FROM ARInv WHERE Printed = 1 AND ARInvoiceID = " +
                     std::to_string(id)) == 1;
    }

    reports::RecordingReportOutput output;
    FormatSettings saved_;
};

TEST_F(InvoicePrint, ClassicInvoiceWithAddressesLinesTaxesAndMessage) {
    TrptARInvoice report(db_, 1, TrptARInvoice::Classic);
    int pages = 0;
    const std::string text = Pages(report, &pages);
    EXPECT_EQ(pages, 1);
    // 2 x 20.00 = 40.00 and 1 x 20.00 = 20.00: subtotal 60.00; GST 5% of 60.00 = 3.00, PST 8% of
    // the 40.00 that carries it = 3.20; 66.20 in all.
    EXPECT_NE(LineWith(text, "40.00"), "");
    EXPECT_NE(LineWith(text, "Subtotal"), "");
    EXPECT_NE(LineWith(text, "60.00").find("Subtotal"), std::string::npos);
    EXPECT_NE(LineWith(text, "GST @ 5%").find("3.00"), std::string::npos);
    EXPECT_NE(LineWith(text, "PST @ 8%").find("3.20"), std::string::npos);
    EXPECT_NE(LineWith(text, "Invoice Amount").find("66.20"), std::string::npos);
    EXPECT_NE(LineWith(text, "Local Ltd Warehouse"), "");
    EXPECT_NE(LineWith(text, "Springfield, IL  62701"), "");
    EXPECT_NE(LineWith(text, "Thank you. Payment by bank transfer welcome."), "");
    EXPECT_NE(LineWith(text, "Quantity"), "");
    EXPECT_NE(LineWith(text, "Blue, boxed"), "");
    corvane::testing::CompareWithGolden("receivables", "invoice-classic.txt", text);
}

TEST_F(InvoicePrint, ProfessionalCreditNoteShipsToTheSameAddress) {
    TrptARInvoice report(db_, 2, TrptARInvoice::Professional);
    const std::string text = Pages(report);
    // One widget back at 20.00: -20.00 and GST -1.00; the customer abroad pays no PST.
    EXPECT_NE(LineWith(text, "Credit Note"), "");
    EXPECT_EQ(LineWith(text, "Invoice Amount").find("(21.00)") == std::string::npos, false);
    EXPECT_NE(LineWith(text, "Same"), "");
    corvane::testing::CompareWithGolden("receivables", "invoice-professional.txt", text);
}

TEST_F(InvoicePrint, ATimeInvoicePrintsJobAndTaskWithHoursAndRate) {
    TrptARInvoice report(db_, 3, TrptARInvoice::Classic);
    const std::string text = Pages(report);
    // 3.5 hours at 80.00 = 280.00.
    EXPECT_NE(LineWith(text, "Hours/Qty"), "");
    EXPECT_NE(LineWith(text, "Rate/Unit Price"), "");
    EXPECT_NE(LineWith(text, "Harbour - Drawings").find("280.00"), std::string::npos);
    EXPECT_NE(LineWith(text, "Terms: Net 15"), "");
    corvane::testing::CompareWithGolden("receivables", "invoice-time.txt", text);
}

TEST_F(InvoicePrint, PrintAllUnprintedPrintsEachInvoiceOnItsOwnPagesAndMarksThemWhenTold) {
    desktop.Printer = "Office Laser";
    auto& form = app.CreateForm<TfrmARInvoicesPrint>(db_, std::nullopt);
    EXPECT_EQ(form.Caption, "Print AR Invoices");
    EXPECT_EQ(form.lblCount.Caption, "2 invoice(s) to be printed");
    output.AnswerPrint({0, 0, 2, -1});
    dialogs.Answer("Did invoice(s) print OK?", ui::mbNo);
    form.btnPrint.Click();
    // Two invoices of one page each, twice over: the copies of the setup come to the dialog.
    EXPECT_EQ(output.Requests().back().copies, 2);
    EXPECT_EQ(output.PrintedPages(), (std::vector<int>{1, 2, 1, 2}));
    EXPECT_EQ(form.lblCount.Caption, "2 invoice(s) to be updated");
    EXPECT_FALSE(Printed(1));
    EXPECT_FALSE(Printed(2));

    output.AnswerPrint({0, 0, 1, -1});
    dialogs.Answer("Did invoice(s) print OK?", ui::mbYes);
    form.btnPrint.Click();
    EXPECT_TRUE(Printed(1));
    EXPECT_TRUE(Printed(2));
    EXPECT_EQ(form.ModalResult(), ui::mrOK);
}

TEST_F(InvoicePrint, AReprintMarksNothingAndAnOpenInvoiceFormRefuses) {
    desktop.Printer = "Office Laser";
    auto& reprint = app.CreateForm<TfrmARInvoicesPrint>(db_, 3);
    reprint.Show();
    EXPECT_EQ(reprint.Caption, "Reprint AR Invoice 1003");
    EXPECT_TRUE(reprint.Reprint());
    output.AnswerPrint({0, 0, 1, -1});
    reprint.btnPrint.Click();
    EXPECT_EQ(dialogs.PendingAnswers(), 0u);
    EXPECT_EQ(output.PrintedPages(), (std::vector<int>{1}));
    reprint.Close();

    auto& print = app.CreateForm<TfrmARInvoicesPrint>(db_, 1);
    EXPECT_EQ(print.Caption, "Print AR Invoice 1001");
    EXPECT_EQ(print.lblCount.Caption, "1 invoice(s) to be printed");
    auto& entry = app.CreateForm<ui::Form>("frmARInvoice");
    entry.Show();
    EXPECT_THROW(
        {
            try {
                print.Print();
            } catch (const Exception& e) {
                EXPECT_STREQ(e.what(),
                             "A conflicting program is running...\nPlease close 'AR Invoice' form");
                throw;
            }
        },
        Exception);
    EXPECT_FALSE(Printed(1));
}

TEST_F(InvoicePrint, ExportWritesTheInvoiceAsLines) {
    corvane::testing::TempFolder folder;
    const std::string path = folder.Path() + "/ARInvoice.txt";
    WriteInvoiceFile(db_, 1, path);
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    const std::string file = text.str();
    for (const char* expected :
         {"Sold to\tLocal Ltd\r\n", "Ship to\tLocal Ltd Warehouse\r\n", "Invoice no.\t1001\r\n",
          "Quantity\tItem no.\tDescription\tUnit Price\tTax\tAmount\r\n",
          "2\tSVC\tSVC item\t20.00\tGP\t40.00\r\n", "\t\t\tSubtotal\t\t60.00\r\n",
          "\t\t\tGST @ 5%\t\t3.00\r\n", "\t\t\tInvoice Amount\t\t66.20\r\n"})
        EXPECT_NE(file.find(expected), std::string::npos) << expected << "\n" << file;
    // The credit note has no ship-to address: "Same".
    EXPECT_EQ(InvoiceFileRows(db_, 2)[1], (std::vector<std::string>{"Ship to", "Same"}));
}

TEST_F(InvoicePrint, EmailHandsThePdfToTheMailProgramAndAsksToDeleteIt) {
    corvane::testing::TempFolder folder;
    const std::string pdf = folder.Path() + "/Invoice 1001.pdf";
    output.AnswerSaveFile(pdf);
    dialogs.Answer("Send email?\n\nSubject: Invoice 1001\nTo: ann@local.example", ui::mbYes);
    dialogs.Answer("Delete PDF file?", ui::mbNo);
    EmailSelectedInvoice(app, db_, 1);
    ASSERT_EQ(desktop.Mails().size(), 1u);
    EXPECT_EQ(desktop.Mails()[0].To, "ann@local.example");
    EXPECT_EQ(desktop.Mails()[0].Subject, "Invoice 1001");
    EXPECT_EQ(desktop.Mails()[0].Body,
              "Hi Ann,\n\nPlease see attachment.\n\nThank you,\nPat Printer");
    EXPECT_EQ(desktop.Mails()[0].File, pdf);
    EXPECT_TRUE(std::filesystem::exists(pdf));

    // A refusal of the mail program is told with the settings to check; Yes deletes the file.
    desktop.MailRefusal = "no mail program";
    output.AnswerSaveFile(pdf);
    dialogs.Answer(ui::mbYes);
    dialogs.Answer("Delete PDF file?", ui::mbYes);
    EmailSelectedInvoice(app, db_, 1);
    EXPECT_NE(
        dialogs.Shown()[dialogs.Shown().size() - 2].Text.find("Email could not be sent...\n\n"),
        std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(pdf));

    // A customer without an address is refused before any file is made.
    EXPECT_THROW(EmailSelectedInvoice(app, db_, 2), Exception);
    EXPECT_EQ(output.PendingSaveAnswers(), 0u);
}

} // namespace

namespace {

// A bitmap as a file holds it: 2 x 2 pixels of 24 bits, rows bottom up and padded to 4 bytes.
std::string TinyBitmap() {
    auto u32 = [](std::uint32_t v) {
        return std::string{static_cast<char>(v & 0xFF), static_cast<char>((v >> 8) & 0xFF),
                           static_cast<char>((v >> 16) & 0xFF), static_cast<char>(v >> 24)};
    };
    auto u16 = [](std::uint16_t v) {
        return std::string{static_cast<char>(v & 0xFF), static_cast<char>(v >> 8)};
    };
    const std::string pixels = std::string("\x00\x00\xFF\x00\xFF\x00", 6) + std::string(2, '\0') +
                               std::string("\xFF\x00\x00\xFF\xFF\xFF", 6) + std::string(2, '\0');
    return "BM" + u32(54 + 16) + u32(0) + u32(54) + u32(40) + u32(2) + u32(2) + u16(1) + u16(24) +
           u32(0) + u32(16) + u32(2835) + u32(2835) + u32(0) + u32(0) + pixels;
}

TEST(BitmapImage, ABitmapOf24BitsComesOutTopDownInRgb) {
    auto image = DecodeBitmap(TinyBitmap());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->Width, 2);
    EXPECT_EQ(image->Height, 2);
    // The file's first row is the picture's bottom row: blue, white on top; red, green below.
    EXPECT_EQ(image->Rgb, (std::vector<std::uint8_t>{0, 0, 255, 255, 255, 255, 255, 0, 0, 0, 255,
                                                     0}));
    // Not a bitmap, cut short, or compressed: nothing, and the logo is left out.
    EXPECT_FALSE(DecodeBitmap("GIF89a"));
    EXPECT_FALSE(DecodeBitmap(TinyBitmap().substr(0, 60)));
    std::string compressed = TinyBitmap();
    compressed[30] = 1;
    EXPECT_FALSE(DecodeBitmap(compressed));
}

} // namespace
