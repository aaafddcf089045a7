// Names as customers and suppliers type them, in Polish, Danish, Greek, Russian and German, with
// amounts in the euro format of a continental desk, printed through the engine to PDF and read
// back as a reader would: by copying the text and by looking at the page.

#include "EngineTestTables.h"
#include "PdfTools.h"
#include "core/FormatSettings.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRSysData.h"
#include "reports/engine/TQuickRep.h"
#include "reports/page/FontMetrics.h"
#include "reports/page/ReportDocument.h"
#include "reports/render/PdfWriter.h"
#include "reports/render/TextRenderer.h"
#include "support/GoldenFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace corvane::testing {
namespace {

using namespace corvane::reports;
namespace fs = std::filesystem;

struct Customer {
    const char* name;
    const char* region;
    std::int64_t cents;
    const char* printed;
};

const Customer kCustomers[] = {
    {"\xC5\x81\xC3\xB3\x64\xC5\xBA", "PL", 98765, "\xE2\x82\xAC 987,65"}, // Łódź
    {"\xC3\x98rsted", "DK", -4200, "-\xE2\x82\xAC 42,00"},                // Ørsted
    {"\xCE\x91\xCE\xB8\xCE\xAE\xCE\xBD\xCE\xB1", "GR", 1000000, "\xE2\x82\xAC 10.000,00"}, // Αθήνα
    {"\xD0\x9C\xD0\xBE\xD1\x81\xD0\xBA\xD0\xB2\xD0\xB0", "RU", 5, "\xE2\x82\xAC 0,05"}, // Москва
    {"Z\xC3\xBCrich", "CH", 123456, "\xE2\x82\xAC 1.234,56"},                           // Zürich
};

class UnicodePdf : public SalesReportTest {
protected:
    void SetUp() override {
        SalesReportTest::SetUp();
        saved_ = ProcessFormatSettings();
        ProcessFormatSettings().DecimalSeparator = ',';
        ProcessFormatSettings().ThousandSeparator = '.';
    }
    void TearDown() override {
        ProcessFormatSettings() = saved_;
        SalesReportTest::TearDown();
    }
    FormatSettings saved_;
};

// The darkest pixel's darkness (0 white, 255 black) in a rectangle of a binary grey PGM.
int Ink(const std::string& pgm, int left, int top, int right, int bottom) {
    std::istringstream in(pgm);
    std::string magic;
    int width = 0, height = 0, depth = 0;
    in >> magic >> width >> height >> depth;
    in.get();
    const auto start = static_cast<std::size_t>(in.tellg());
    int darkest = 0;
    for (int y = std::max(top, 0); y < std::min(bottom, height); ++y)
        for (int x = std::max(left, 0); x < std::min(right, width); ++x)
            darkest =
                std::max(darkest, 255 - static_cast<unsigned char>(
                                            pgm[start + static_cast<std::size_t>(y) * width + x]));
    return magic == "P5" ? darkest : -1;
}

TEST_F(UnicodePdf, NamesInEveryScriptReadBackUnchanged) {
    AddSales(5, 1000, [](store::Table& t, int i) {
        t.FieldByName("Customer").SetAsString(kCustomers[i].name);
        t.FieldByName("Region").SetAsString(kCustomers[i].region);
        t.FieldByName("Amount").SetAsMoney(Money::FromCents(kCustomers[i].cents));
    });
    store::Table sales(db_, "Sales");
    sales.Open();

    TQuickRep report;
    report.ReportTitle = "Kunden \xE2\x80\x93 \xCE\xA0\xCE\xB5\xCE\xBB\xCE\xAC\xCF\x84\xCE\xB5\xCF"
                         "\x82"; // "Kunden – Πελάτες"
    report.DataSet = &sales;
    report.PrintedAt = ReportTimestamp{Date::FromYmd(2026, 11, 24), 9, 30, 0};
    TQRBand& title = report.Band(BandKind::Title, 30);
    auto& caption = title.Add<TQRSysData>(SysDataKind::ReportTitle);
    caption.SetBounds(0, 0, 540, 20);
    caption.Font.size = 14;
    caption.Font.bold = true;
    TQRBand& heads = report.Band(BandKind::ColumnHeader, 18);
    heads.Add<TQRLabel>("Kunde / \xD0\x9A\xD0\xBB\xD0\xB8\xD0\xB5\xD0\xBD\xD1\x82")
        .SetBounds(0, 0, 200, 12); // "Kunde / Клиент"
    heads.Add<TQRLabel>("Land").SetBounds(220, 0, 60, 12);
    auto& amountHead = heads.Add<TQRLabel>("Betrag");
    amountHead.SetBounds(400, 0, 140, 12);
    amountHead.Alignment = Align::Right;
    TQRBand& detail = report.Band(BandKind::Detail, 16);
    detail.Add<TQRDBText>(nullptr, "Customer").SetBounds(0, 0, 200, 12);
    detail.Add<TQRDBText>(nullptr, "Region").SetBounds(220, 0, 60, 12);
    auto& amount = detail.Add<TQRDBText>(nullptr, "Amount");
    amount.SetBounds(400, 0, 140, 12);
    amount.Alignment = Align::Right;
    amount.Mask = "\xE2\x82\xAC #,##0.00";

    ReportDocument doc;
    report.Prepare(doc);
    ASSERT_EQ(doc.PageCount(), 1);
    CompareWithGolden("reports", "unicode-names.txt", TextRenderer().Render(doc));

    TempFolder folder;
    const std::string pdf = folder.Path() + "/names.pdf";
    WritePdf(doc, pdf);
    // CORVANE_GOLDEN_PDF=FILE keeps a copy to look at.
    if (const char* keep = std::getenv("CORVANE_GOLDEN_PDF"))
        fs::copy_file(pdf, keep, fs::copy_options::overwrite_existing);

    const std::string text = PdfPageText(pdf, 1);
    EXPECT_NE(text.find(doc.title), std::string::npos) << text;
    EXPECT_NE(text.find("Kunde / \xD0\x9A\xD0\xBB\xD0\xB8\xD0\xB5\xD0\xBD\xD1\x82"),
              std::string::npos)
        << text;
    EXPECT_EQ(text.find('?'), std::string::npos) << text;
    std::istringstream lines(text);
    std::string line;
    int found = 0;
    while (std::getline(lines, line)) {
        for (const Customer& customer : kCustomers) {
            if (line.find(customer.name) == std::string::npos) continue;
            ++found;
            // The name, its country and its amount stay together on their line, in order.
            const auto name = line.find(customer.name);
            const auto region = line.find(customer.region, name);
            const auto printed = line.find(customer.printed, region);
            EXPECT_NE(region, std::string::npos) << line;
            EXPECT_NE(printed, std::string::npos) << customer.printed << " in " << line;
        }
    }
    EXPECT_EQ(found, 5) << text;

    // The page as a reader sees it: each name's box holds ink.
    const ToolOutput render =
        RunTool("pdftoppm -r 72 -gray " + Quoted(pdf) + " " + Quoted(folder.Path() + "/page"));
    ASSERT_EQ(render.status, 0) << render.text;
    std::ifstream in(folder.Path() + "/page-1.pgm", std::ios::binary);
    std::stringstream pgm;
    pgm << in.rdbuf();
    const Page& page = doc.PageAt(1);
    for (const Customer& customer : kCustomers) {
        const TextOp* op = FindText(page, customer.name);
        ASSERT_NE(op, nullptr) << customer.name;
        const int left = static_cast<int>(op->x), right = static_cast<int>(op->x + 30);
        const int top = static_cast<int>(op->baseline - 9), bottom = static_cast<int>(op->baseline);
        EXPECT_GT(Ink(pgm.str(), left, top, right, bottom), 128) << customer.name;
        // Nothing was drawn past the end the engine measured.
        const int end = static_cast<int>(op->x + TextWidth(op->font, op->text)) + 2;
        EXPECT_EQ(Ink(pgm.str(), end, top, 220, bottom), 0) << customer.name;
    }
}

} // namespace
} // namespace corvane::testing
