// Reports and lists as workbooks, read back from the file's own XML.

#include "EngineTestTables.h"
#include "core/Exception.h"
#include "core/FormatSettings.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRSysData.h"
#include "reports/engine/TQuickRep.h"
#include "reports/export/ListExport.h"
#include "reports/export/ReportWorkbook.h"
#include "reports/export/SheetFormat.h"
#include "reports/page/ReportDocument.h"
#include "support/SheetXml.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace corvane::testing {
namespace {

using namespace corvane::reports;
namespace fs = std::filesystem;

class Workbook : public SalesReportTest {
protected:
    void SetUp() override {
        SalesReportTest::SetUp();
        saved_ = ProcessFormatSettings();
        ProcessFormatSettings() = FormatSettings{};
    }
    void TearDown() override {
        ProcessFormatSettings() = saved_;
        SalesReportTest::TearDown();
    }
    std::string File(const std::string& name) const { return folder_.Path() + "/" + name; }

    FormatSettings saved_;
    TempFolder folder_;
};

TEST(SheetFormatTest, PatternsBecomeTheSpreadsheetsFormats) {
    EXPECT_EQ(SheetNumberFormat("#,###,##0.00;#,###,##0.00CR"), "#,###,##0.00;#,###,##0.00\"CR\"");
    EXPECT_EQ(SheetNumberFormat("#,###,##0.00#;(#,###,##0.00#)"), "#,###,##0.00#;(#,###,##0.00#)");
    EXPECT_EQ(SheetNumberFormat("\xE2\x82\xAC #,##0.00"), "\"\xE2\x82\xAC \"#,##0.00");
    EXPECT_EQ(SheetNumberFormat("0.00 'units'"), "0.00 \"units\"");
    EXPECT_EQ(SheetNumberFormat("0.0E+00"), "0.0E+00");
    EXPECT_EQ(SheetNumberFormat(""), "");
    EXPECT_EQ(SheetDateFormat("dd mmm yy"), "dd mmm yy");
    EXPECT_EQ(SheetDateFormat("MMMM, YYYY"), "mmmm, yyyy");
    EXPECT_EQ(SheetDateFormat(""), "m/d/yyyy"); // the short date format
    ProcessFormatSettings().DateSeparator = '.';
    ProcessFormatSettings().ShortDateFormat = "dd/MM/yyyy";
    EXPECT_EQ(SheetDateFormat(""), "dd.mm.yyyy");
    ProcessFormatSettings() = FormatSettings{};
    EXPECT_EQ(SheetDateSerial(Date::FromYmd(1900, 3, 1)), 61);
    EXPECT_EQ(SheetDateSerial(Date::FromYmd(2017, 3, 1)), 42795);
}

// Regions as groups with their totals, sales as lines, a grand total; sixty lines run over two
// pages, whose titles and footers the sheet leaves out.
TEST_F(Workbook, AReportGivesARowForEachLineItPrintedWithNumbersAsNumbers) {
    AddSales(60, 30);
    store::Table sales(db_, "Sales");
    sales.SetIndexName("Region");
    sales.Open();
    const std::string mask = "#,##0.00;(#,##0.00)";

    TQuickRep report;
    report.ReportTitle = "Sales by region";
    report.DataSet = &sales;
    report.Band(BandKind::PageHeader, 20)
        .Add<TQRSysData>(SysDataKind::ReportTitle)
        .SetBounds(0, 0, 300, 14);
    TQRBand& heads = report.Band(BandKind::ColumnHeader, 16);
    heads.Add<TQRLabel>("Customer").SetBounds(0, 0, 150, 12);
    heads.Add<TQRLabel>("Date").SetBounds(160, 0, 70, 12);
    heads.Add<TQRLabel>("Qty").SetBounds(240, 0, 40, 12);
    auto& amountHead = heads.Add<TQRLabel>("Amount");
    amountHead.SetBounds(380, 0, 100, 12);
    amountHead.Alignment = Align::Right;
    TQRGroup& region = report.AddGroup("Region", 16);
    region.Add<TQRLabel>("Region").SetBounds(0, 0, 60, 12);
    region.Add<TQRDBText>(nullptr, "Region").SetBounds(60, 0, 60, 12);
    TQRBand& detail = report.Band(BandKind::Detail, 12);
    detail.Add<TQRDBText>(nullptr, "Customer").SetBounds(0, 0, 150, 12);
    auto& date = detail.Add<TQRDBText>(nullptr, "SaleDate");
    date.SetBounds(160, 0, 70, 12);
    date.Mask = "dd mmm yy";
    detail.Add<TQRDBText>(nullptr, "Qty").SetBounds(240, 0, 40, 12);
    auto& amount = detail.Add<TQRDBText>(nullptr, "Amount");
    amount.SetBounds(360, 0, 120, 12);
    amount.Alignment = Align::Right;
    amount.Mask = mask;
    TQRBand& regionFooter = region.FooterBand(16);
    regionFooter.Add<TQRLabel>("Region total").SetBounds(160, 0, 100, 12);
    auto& regionTotal = regionFooter.Add<TQRExpr>("SUM(Amount)");
    regionTotal.SetBounds(360, 0, 120, 12);
    regionTotal.Alignment = Align::Right;
    regionTotal.Mask = mask;
    regionTotal.ResetAfterPrint = true;
    TQRBand& footer = report.Band(BandKind::PageFooter, 16);
    footer.Add<TQRSysData>(SysDataKind::PageNumberOfTotal).SetBounds(0, 0, 100, 12);
    auto& grand = report.Band(BandKind::Summary, 16).Add<TQRExpr>("SUM(Amount)");
    grand.SetBounds(360, 0, 120, 12);
    grand.Alignment = Align::Right;
    grand.Mask = mask;
    report.Page.PaperSize = PaperSize::Letter;

    ReportDocument doc;
    report.Prepare(doc);
    ASSERT_GE(doc.PageCount(), 2);
    const std::string path = File("sales.xlsx");
    // Two groups of 30: a header, 30 lines and a footer each, then the grand total.
    EXPECT_EQ(WriteWorkbook(doc, path), 2 * 32 + 1);

    const auto cells = SheetCells(path);
    auto at = [&](const std::string& ref) {
        auto found = cells.find(ref);
        return found == cells.end() ? SheetXmlCell{false, "<none>", ""} : found->second;
    };
    // The header row: the column headings once, though every page printed them.
    EXPECT_EQ(at("A1").value, "Customer");
    EXPECT_EQ(at("B1").value, "Date");
    EXPECT_EQ(at("C1").value, "Qty");
    EXPECT_EQ(at("D1").value, "Amount");
    // The group header: its label joins the first column, its value stands in it.
    EXPECT_EQ(at("A2").value, "Region R0");
    // The first sale: text, a date, a whole number and an amount, each in its own kind.
    EXPECT_EQ(at("A3").value, "Customer 0");
    EXPECT_FALSE(at("A3").number);
    EXPECT_TRUE(at("B3").number);
    EXPECT_EQ(at("B3").value, "42795");
    EXPECT_EQ(at("B3").format, "dd mmm yy");
    EXPECT_TRUE(at("C3").number);
    EXPECT_EQ(at("C3").value, "1");
    EXPECT_TRUE(at("D3").number);
    EXPECT_EQ(at("D3").value, "0");
    EXPECT_EQ(at("D3").format, "#,##0.00;(#,##0.00)");
    EXPECT_EQ(at("D4").value, "1.01");
    EXPECT_EQ(at("D32").value, "29.29");
    // The group's footer under its lines: its label and its total, a number.
    EXPECT_EQ(at("B33").value, "Region total");
    EXPECT_TRUE(at("D33").number);
    EXPECT_EQ(at("D33").value, "439.35"); // 0 + 1.01 + ... + 29.29
    EXPECT_EQ(at("A34").value, "Region R1");
    EXPECT_EQ(at("A35").value, "Customer 30");
    // The grand total closes the sheet; nothing of the page footers is in it.
    EXPECT_TRUE(at("D66").number);
    EXPECT_EQ(at("D66").value, "1787.7");
    EXPECT_EQ(at("A67").value, "<none>");
    for (const auto& [ref, cell] : cells) {
        EXPECT_EQ(cell.value.find("Page "), std::string::npos) << ref;
        EXPECT_EQ(cell.value.find("Sales by region"), std::string::npos) << ref;
    }
    EXPECT_NE(ZipMember(path, "xl/workbook.xml").find("name=\"Sales by region\""),
              std::string::npos);
}

TEST_F(Workbook, AListGoesToAWorkbookOrToTextInItsColumns) {
    AddSales(3, 10, [](store::Table& t, int i) {
        if (i == 1) t.FieldByName("Customer").SetAsString("Caf\xC3\xA9 \"Le Coin\"");
        if (i == 2) t.FieldByName("SaleDate").Clear();
    });
    store::Table sales(db_, "Sales");
    sales.Open();
    sales.FieldByName("Amount").DisplayFormat = "#,##0.00";
    ListExport spec{"Sales",
                    {{"Customer name", "Customer"},
                     {"Date", "SaleDate"},
                     {"Amount", "Amount"},
                     {"Qty", "Qty"}}};

    const std::string xlsx = File("Sales.xlsx");
    EXPECT_EQ(ExportRows(sales, spec, xlsx), 3);
    const auto cells = SheetCells(xlsx);
    EXPECT_EQ(cells.at("A1").value, "Customer name");
    EXPECT_EQ(cells.at("D1").value, "Qty");
    EXPECT_EQ(cells.at("A3").value, "Caf\xC3\xA9 \"Le Coin\"");
    EXPECT_TRUE(cells.at("B2").number);
    EXPECT_EQ(cells.at("B2").value, "42795");
    EXPECT_EQ(cells.at("B2").format, "m/d/yyyy");
    EXPECT_EQ(cells.count("B4"), 0u); // no date: an empty cell
    EXPECT_TRUE(cells.at("C3").number);
    EXPECT_EQ(cells.at("C3").value, "1.01");
    EXPECT_EQ(cells.at("C3").format, "#,##0.00");
    EXPECT_TRUE(cells.at("D4").number);
    EXPECT_EQ(cells.at("D4").value, "3");

    const std::string txt = File("Sales.txt");
    spec.quoteText = true;
    EXPECT_EQ(ExportRows(sales, spec, txt), 3);
    std::ifstream in(txt, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    EXPECT_EQ(text.str(), "\"Customer name\"\t\"Date\"\t\"Amount\"\t\"Qty\"\r\n"
                          "\"Customer 0\"\t\"3/1/2017\"\t\"0.00\"\t\"1\"\r\n"
                          "\"Caf\xC3\xA9 \"\"Le Coin\"\"\"\t\"3/2/2017\"\t\"1.01\"\t\"2\"\r\n"
                          "\"Customer 2\"\t\t\"2.02\"\t\"3\"\r\n");

    // A column the list does not have is refused before any file is made.
    spec.columns.push_back({"Colour", "Colour"});
    EXPECT_THROW(ExportRows(sales, spec, File("bad.xlsx")), Exception);
    EXPECT_FALSE(fs::exists(File("bad.xlsx")));
}

TEST_F(Workbook, AFileThatCannotBeMadeIsNamedAndNothingIsLeft) {
    ReportDocument doc;
    doc.AddPage(Page{});
    const std::string path = File("no such folder/report.xlsx");
    try {
        WriteWorkbook(doc, path);
        FAIL() << "no error";
    } catch (const Exception& error) {
        EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
        EXPECT_NE(std::string(error.what()).find("No such file or directory"), std::string::npos)
            << error.what();
    }
    EXPECT_FALSE(fs::exists(File("no such folder")));
}

} // namespace
} // namespace corvane::testing
