#include "EngineTestTables.h"
#include "core/DisplayFormat.h"
#include "core/Exception.h"
#include "reports/engine/ExpressionError.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRMemo.h"
#include "reports/engine/TQRSysData.h"
#include "reports/engine/TQuickRep.h"
#include "reports/page/FontMetrics.h"
#include "reports/page/ReportDocument.h"

#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

using namespace corvane::reports;

// Letter paper with half-inch margins: the body runs from 36 to 756 points, less the bands.
constexpr double kTop = 36;
constexpr double kBandHeight = 12;
constexpr double kFooterTop = 792 - 36 - 24;

class EngineLayout : public SalesReportTest {
protected:
    void SetUp() override {
        SalesReportTest::SetUp();
        sales_.SetIndexName("Region");
        report_.DataSet = &sales_;
        report_.ReportTitle = "Sales";
        report_.PrintedAt = ReportTimestamp{Date::FromYmd(2017, 4, 1), 9, 30, 0};
    }

    // A list of sales: page header, title, one line a sale, a page footer with the page number.
    void ListReport() {
        report_.Band(BandKind::PageHeader, 24).Add<TQRLabel>("Sales list");
        report_.Band(BandKind::Title, 24).Add<TQRSysData>(SysDataKind::ReportTitle, "Report: ");
        TQRBand& detail = report_.Band(BandKind::Detail, kBandHeight);
        detail.Add<TQRDBText>(nullptr, "Customer").SetBounds(0, 0, 150, kBandHeight);
        auto& amount = detail.Add<TQRDBText>(nullptr, "Amount");
        amount.SetBounds(200, 0, 80, kBandHeight);
        amount.Alignment = Align::Right;
        amount.Mask = "#,##0.00";
        report_.Band(BandKind::PageFooter, 24).Add<TQRSysData>(SysDataKind::PageNumber, "Page ");
    }

    static Money AmountOfSale(int i) { return Money::FromCents(i * 101); }

    store::Table sales_{db_, "Sales"};
    TQuickRep report_;
    ReportDocument doc_;
};

TEST_F(EngineLayout, PageBreaksKeepHeaderAndFooterOnEveryPage) {
    AddSales(150);
    ListReport();
    report_.Prepare(doc_);

    // Page 1 holds the title under the header; later pages start right under the header.
    const int firstPage = static_cast<int>((kFooterTop - kTop - 48) / kBandHeight);
    const int otherPages = static_cast<int>((kFooterTop - kTop - 24) / kBandHeight);
    ASSERT_EQ(doc_.PageCount(), 3);
    EXPECT_EQ(CountTexts(doc_.PageAt(1), "Customer "), firstPage);
    EXPECT_EQ(CountTexts(doc_.PageAt(2), "Customer "), otherPages);
    EXPECT_EQ(CountTexts(doc_.PageAt(3), "Customer "), 150 - firstPage - otherPages);
    EXPECT_TRUE(FindText(doc_.PageAt(1), "Report: Sales"));
    EXPECT_FALSE(FindText(doc_.PageAt(2), "Report: Sales"));

    int expected = 0;
    for (int n = 1; n <= 3; ++n) {
        const Page& page = doc_.PageAt(n);
        EXPECT_DOUBLE_EQ(page.width, 612);
        EXPECT_DOUBLE_EQ(page.height, 792);
        const TextOp* header = FindText(page, "Sales list");
        ASSERT_TRUE(header) << "page " << n;
        EXPECT_DOUBLE_EQ(header->box.top, kTop);
        const TextOp* footer = FindText(page, "Page " + std::to_string(n));
        ASSERT_TRUE(footer) << "page " << n;
        EXPECT_DOUBLE_EQ(footer->box.top, kFooterTop);
        // The rows come in order, each under the last, none into the footer.
        double lastTop = 0;
        for (const TextOp* text : Texts(page)) {
            if (!text->text.starts_with("Customer ")) continue;
            EXPECT_EQ(text->text, "Customer " + std::to_string(expected++));
            EXPECT_GT(text->box.top, lastTop);
            EXPECT_LE(text->box.Bottom(), kFooterTop);
            lastTop = text->box.top;
        }
    }
    EXPECT_EQ(expected, 150);
    // Amounts go through the mask and sit against the right edge of their box.
    const TextOp* amount = FindText(doc_.PageAt(2), "101.00"); // sale 100
    ASSERT_TRUE(amount);
    EXPECT_LT(amount->x, 36 + 280 - 30);
    EXPECT_GT(amount->x, 36 + 200);
}

TEST_F(EngineLayout, FirstPageHeaderAndLastPageFooterCanBeLeftOff) {
    AddSales(100);
    ListReport();
    report_.Options.FirstPageHeader = false;
    report_.Options.LastPageFooter = false;
    report_.Prepare(doc_);

    ASSERT_EQ(doc_.PageCount(), 2);
    EXPECT_FALSE(FindText(doc_.PageAt(1), "Sales list"));
    EXPECT_TRUE(FindText(doc_.PageAt(1), "Page 1"));
    EXPECT_TRUE(FindText(doc_.PageAt(2), "Sales list"));
    EXPECT_FALSE(FindText(doc_.PageAt(2), "Page 2"));
    // Without the header the title takes the top of page 1, and the rows follow it.
    EXPECT_DOUBLE_EQ(FindText(doc_.PageAt(1), "Report: Sales")->box.top, kTop);
    EXPECT_DOUBLE_EQ(FindText(doc_.PageAt(1), "Customer 0")->box.top, kTop + 24);
}

TEST_F(EngineLayout, AnEmptyDatasetPrintsNothingUnlessPrintIfEmpty) {
    ListReport();
    report_.Band(BandKind::Summary, 12).Add<TQRLabel>("End of list");
    report_.Prepare(doc_);
    EXPECT_EQ(doc_.PageCount(), 0);
    EXPECT_FALSE(doc_.Producing());

    report_.PrintIfEmpty = true;
    report_.Prepare(doc_);
    ASSERT_EQ(doc_.PageCount(), 1);
    EXPECT_TRUE(FindText(doc_.PageAt(1), "Report: Sales"));
    EXPECT_TRUE(FindText(doc_.PageAt(1), "End of list"));
    EXPECT_EQ(CountTexts(doc_.PageAt(1), "Customer "), 0);
}

TEST_F(EngineLayout, BeforePrintRefusesBandsAndKeepsARunningTotal) {
    AddSales(30);
    ListReport();
    Money running;
    std::vector<bool> printed;
    TQRBand& detail = *report_.FindBand(BandKind::Detail);
    detail.BeforePrint = [&](TQRBand&, bool& print) {
        print = sales_.FieldByName("Qty").AsInteger() != 3;
        if (print) running += sales_.FieldByName("Amount").AsMoney();
    };
    detail.AfterPrint = [&](TQRBand&, bool wasPrinted) { printed.push_back(wasPrinted); };
    TQRBand& summary = report_.Band(BandKind::Summary, 12);
    auto& total = summary.Add<TQRExpr>("SUM(Amount)");
    total.Mask = "#,##0.00";
    auto& count = summary.Add<TQRExpr>("COUNT");
    count.SetBounds(100, 0, 50, 12);
    auto& caption = summary.Add<TQRLabel>();
    caption.SetBounds(200, 0, 100, 12);
    summary.BeforePrint = [&](TQRBand&, bool&) { caption.Caption = "Kept " + running.ToString(); };
    report_.Prepare(doc_);

    Money expected;
    int expectedCount = 0;
    for (int i = 0; i < 30; ++i) {
        if (i % 5 + 1 == 3) continue;
        expected += AmountOfSale(i);
        ++expectedCount;
    }
    ASSERT_EQ(printed.size(), 30u);
    EXPECT_FALSE(printed[2]);
    EXPECT_TRUE(printed[3]);
    EXPECT_EQ(running, expected);
    const Page& page = doc_.PageAt(1);
    EXPECT_FALSE(FindText(page, "Customer 2"));
    EXPECT_TRUE(FindText(page, "Customer 3"));
    // The report's own total counts only the rows that printed, as the handler's does.
    EXPECT_TRUE(FindText(page, FormatMoney("#,##0.00", expected)));
    EXPECT_TRUE(FindText(page, std::to_string(expectedCount)));
    EXPECT_TRUE(FindText(page, "Kept " + expected.ToString()));
}

TEST_F(EngineLayout, MemoWrapsAndGoesOnOverTheNextPage) {
    std::string notes;
    for (int w = 0; w < 300; ++w)
        notes += (w ? " word" : "word") + std::to_string(w);
    AddSales(50, 100, [&](store::Table& t, int i) {
        if (i == 40) t.FieldByName("Notes").SetAsString(notes);
    });
    ListReport();
    auto& memo = report_.FindBand(BandKind::Detail)->Add<TQRMemo>();
    memo.DataField = "Notes";
    memo.SetBounds(300, 0, 180, kBandHeight);
    report_.Prepare(doc_);

    // Every word comes back in order, the lines never wider than the memo nor below the body.
    std::string joined;
    int pagesWithWords = 0;
    for (int n = 1; n <= doc_.PageCount(); ++n) {
        bool any = false;
        for (const TextOp* text : Texts(doc_.PageAt(n))) {
            if (!text->text.starts_with("word")) continue;
            any = true;
            EXPECT_LE(text->box.Bottom(), kFooterTop + 0.01);
            EXPECT_DOUBLE_EQ(text->box.width, 180);
            joined += (joined.empty() ? "" : " ") + text->text;
        }
        pagesWithWords += any;
    }
    EXPECT_EQ(joined, notes);
    EXPECT_GE(pagesWithWords, 2);
    // The memo went on at the top of the next page, and the next sale came after its last line.
    const Page& second = doc_.PageAt(2);
    const TextOp* firstOnSecond = nullptr;
    const TextOp* lastWord = nullptr;
    for (const TextOp* text : Texts(second)) {
        if (text->text.starts_with("word")) {
            if (!firstOnSecond) firstOnSecond = text;
            lastWord = text;
        }
    }
    ASSERT_TRUE(firstOnSecond);
    EXPECT_DOUBLE_EQ(firstOnSecond->box.top, kTop + 24);
    const TextOp* next = FindText(second, "Customer 41");
    ASSERT_TRUE(next);
    EXPECT_GE(next->box.top, lastWord->box.Bottom() - 0.01);
    EXPECT_FALSE(FindText(second, "Customer 40")); // its other fields stayed on page 1
}

TEST_F(EngineLayout, PaperSizeAndOrientationSetThePage) {
    AddSales(200);
    ListReport();
    report_.Page.PaperSize = PaperSize::A4;
    report_.Prepare(doc_);
    const Page& a4 = doc_.PageAt(1);
    EXPECT_NEAR(a4.width, 595.28, 0.01);
    EXPECT_NEAR(a4.height, 841.89, 0.01);
    EXPECT_NEAR(FindText(a4, "Page 1")->box.top, 841.89 - 36 - 24, 0.01);
    const int a4Rows = CountTexts(doc_.PageAt(2), "Customer ");

    report_.Page.PaperSize = PaperSize::Letter;
    report_.Prepare(doc_);
    const int letterRows = CountTexts(doc_.PageAt(2), "Customer ");
    EXPECT_EQ(a4Rows, static_cast<int>((841.89 - 36 - 36 - 48) / kBandHeight));
    EXPECT_EQ(letterRows, static_cast<int>((792.0 - 36 - 36 - 48) / kBandHeight));

    report_.Page.Orientation = Orientation::Landscape;
    report_.Prepare(doc_);
    EXPECT_DOUBLE_EQ(doc_.PageAt(1).width, 792);
    EXPECT_DOUBLE_EQ(doc_.PageAt(1).height, 612);
}

TEST_F(EngineLayout, PagesArriveOneByOneWhileRowsAreStillBeingRead) {
    AddSales(200);
    ListReport();
    std::vector<int> numbers;
    std::vector<std::string> customerAtArrival;
    doc_.OnPageAvailable = [&](int number) {
        numbers.push_back(number);
        customerAtArrival.push_back(sales_.FieldByName("Customer").AsString());
    };
    report_.Prepare(doc_);
    ASSERT_EQ(numbers.size(), static_cast<std::size_t>(doc_.PageCount()));
    for (std::size_t i = 0; i < numbers.size(); ++i)
        EXPECT_EQ(numbers[i], static_cast<int>(i + 1));
    // Page 1 was handed over when the cursor stood on the row that opened page 2.
    const int firstPage = CountTexts(doc_.PageAt(1), "Customer ");
    EXPECT_EQ(customerAtArrival[0], "Customer " + std::to_string(firstPage));
    EXPECT_FALSE(doc_.Producing());
    EXPECT_FALSE(doc_.Cancelled());
}

TEST_F(EngineLayout, CancelStopsProductionAtTheNextBand) {
    AddSales(500);
    ListReport();
    doc_.OnPageAvailable = [&](int number) {
        if (number == 2) doc_.RequestCancel();
    };
    report_.Prepare(doc_);
    EXPECT_EQ(doc_.PageCount(), 2);
    EXPECT_TRUE(doc_.Cancelled());
    EXPECT_FALSE(doc_.Producing());
}

TEST_F(EngineLayout, GroupsCloseWithTheirTotalsAndOpenTheNext) {
    AddSales(25, 10); // R0: sales 0-9, R1: 10-19, R2: 20-24
    ListReport();
    TQRGroup& region = report_.AddGroup("Region", 12);
    region.Add<TQRDBText>(nullptr, "Region");
    TQRBand& footer = region.FooterBand(12);
    auto& total = footer.Add<TQRExpr>("'Total ' + Region");
    total.SetBounds(0, 0, 100, 12);
    auto& sum = footer.Add<TQRExpr>("SUM(Amount)");
    sum.SetBounds(200, 0, 80, 12);
    sum.ResetAfterPrint = true;
    auto& count = footer.Add<TQRExpr>("COUNT");
    count.SetBounds(300, 0, 40, 12);
    count.ResetAfterPrint = true;
    auto& grand = report_.Band(BandKind::Summary, 12).Add<TQRExpr>("SUM(Amount)");
    grand.SetBounds(200, 0, 80, 12);
    report_.Prepare(doc_);

    ASSERT_EQ(doc_.PageCount(), 1);
    std::vector<std::string> sequence;
    for (const std::string& text : TextStrings(doc_.PageAt(1)))
        if (!text.starts_with("Customer ") && !text.starts_with("Page") && text != "Sales list" &&
            !text.starts_with("Report") && text.find('.') == std::string::npos &&
            text.find(',') == std::string::npos)
            sequence.push_back(text);
    auto range = [](int from, int to) {
        Money m;
        for (int i = from; i < to; ++i)
            m += AmountOfSale(i);
        return FormatMoney("#,##0.00", m);
    };
    const Page& page = doc_.PageAt(1);
    EXPECT_TRUE(FindText(page, range(0, 10)));
    EXPECT_TRUE(FindText(page, range(10, 20)));
    EXPECT_TRUE(FindText(page, range(20, 25)));
    EXPECT_TRUE(FindText(page, range(0, 25)));
    // Each group's footer comes after its last row and before the next header; the counts reset.
    const std::vector<std::string> expected{"R0", "Total R0", "10",       "R1", "Total R1",
                                            "10", "R2",       "Total R2", "5"};
    EXPECT_EQ(sequence, expected);
    const auto lastOfR0 = FindText(page, "Customer 9");
    const auto headerR1 = FindText(page, "R1");
    const auto footerR0 = FindText(page, range(0, 10));
    EXPECT_LT(lastOfR0->box.top, footerR0->box.top);
    EXPECT_LT(footerR0->box.top, headerR1->box.top);
}

TEST_F(EngineLayout, ForceNewPageStartsEachGroupOnItsOwnPage) {
    AddSales(25, 10);
    ListReport();
    report_.AddGroup("Region", 12).ForceNewPage = true;
    report_.Prepare(doc_);
    ASSERT_EQ(doc_.PageCount(), 3);
    EXPECT_TRUE(FindText(doc_.PageAt(1), "Customer 0"));
    EXPECT_TRUE(FindText(doc_.PageAt(2), "Customer 10"));
    EXPECT_FALSE(FindText(doc_.PageAt(2), "Customer 9"));
    EXPECT_TRUE(FindText(doc_.PageAt(3), "Customer 20"));
}

TEST_F(EngineLayout, PageFooterTotalsCoverTheirOwnPage) {
    AddSales(150);
    ListReport();
    auto& pageTotal = report_.FindBand(BandKind::PageFooter)->Add<TQRExpr>("SUM(Amount)");
    pageTotal.SetBounds(200, 0, 80, 12);
    pageTotal.Mask = "#,##0.00";
    pageTotal.ResetAfterPrint = true;
    report_.Prepare(doc_);

    ASSERT_EQ(doc_.PageCount(), 3);
    int sale = 0;
    for (int n = 1; n <= 3; ++n) {
        Money expected;
        const int rows = CountTexts(doc_.PageAt(n), "Customer ");
        for (int i = 0; i < rows; ++i)
            expected += AmountOfSale(sale++);
        const TextOp* total = FindText(doc_.PageAt(n), FormatMoney("#,##0.00", expected));
        ASSERT_TRUE(total) << "page " << n;
        EXPECT_DOUBLE_EQ(total->box.top, kFooterTop);
    }
}

TEST_F(EngineLayout, SubDetailPrintsItsRowsUnderEachMasterRow) {
    AddSales(3);
    AddSaleItem(1, "Apples", Money::FromCents(150));
    AddSaleItem(1, "Pears", Money::FromCents(225));
    AddSaleItem(3, "Plums", Money::FromCents(300));
    store::Table items(db_, "SaleItem");
    items.SetIndexName("SaleID");
    items.SetMasterSource(&sales_, "SaleID");
    report_.Band(BandKind::Detail, 12).Add<TQRDBText>(nullptr, "Customer");
    TQRSubDetail& sub = report_.AddSubDetail(items, 12);
    sub.Add<TQRDBText>(nullptr, "Item").SetBounds(20, 0, 100, 12);
    auto& itemsTotal = report_.Band(BandKind::Summary, 12).Add<TQRExpr>("SUM(SaleItem.Amount)");
    itemsTotal.Master = &sub;
    auto& salesCount = report_.FindBand(BandKind::Summary)->Add<TQRExpr>("COUNT");
    salesCount.SetBounds(100, 0, 100, 12);
    sales_.Open();
    report_.Prepare(doc_);

    const std::vector<std::string> expected{"Customer 0", "Apples", "Pears", "Customer 1",
                                            "Customer 2", "Plums",  "6.75"};
    std::vector<std::string> got = TextStrings(doc_.PageAt(1));
    ASSERT_EQ(got.size(), expected.size() + 1);
    EXPECT_EQ(std::vector<std::string>(got.begin(), got.end() - 1), expected);
    EXPECT_EQ(got.back(), "3");
}

TEST_F(EngineLayout, ChildBandFollowsItsParentOnlyWhenItPrints) {
    AddSales(4);
    TQRBand& detail = report_.Band(BandKind::Detail, 12);
    detail.Add<TQRDBText>(nullptr, "Customer");
    detail.BeforePrint = [&](TQRBand&, bool& print) {
        print = sales_.FieldByName("Qty").AsInteger() != 2;
    };
    TQRBand& child = detail.ChildBand(12);
    child.Add<TQRLabel>("qty");
    child.Add<TQRDBText>(nullptr, "Qty").SetBounds(100, 0, 20, 12);
    report_.Prepare(doc_);
    const std::vector<std::string> expected{"Customer 0", "qty",        "1",   "Customer 2", "qty",
                                            "3",          "Customer 3", "qty", "4"};
    EXPECT_EQ(TextStrings(doc_.PageAt(1)), expected);
}

TEST_F(EngineLayout, TextIsCutToItsBoxUnlessTheBoxSizesItself) {
    AddSales(1);
    TQRBand& detail = report_.Band(BandKind::Detail, 12);
    const std::string caption = "A caption far wider than the box it is given";
    auto& cut = detail.Add<TQRLabel>(caption);
    cut.SetBounds(0, 0, 60, 12);
    auto& sized = detail.Add<TQRLabel>(caption);
    sized.SetBounds(100, 0, 60, 12);
    sized.AutoSize = true;
    sized.Alignment = Align::Right;
    auto& centred = detail.Add<TQRLabel>("mid");
    centred.SetBounds(300, 0, 100, 12);
    centred.Alignment = Align::Center;
    report_.Prepare(doc_);

    const std::vector<const TextOp*> texts = Texts(doc_.PageAt(1));
    ASSERT_EQ(texts.size(), 3u);
    const TextOp& c = *texts[0];
    EXPECT_TRUE(caption.starts_with(c.text));
    EXPECT_LT(c.text.size(), caption.size());
    EXPECT_LE(TextWidth(c.font, c.text), 60);
    EXPECT_GT(TextWidth(c.font, caption.substr(0, c.text.size() + 1)), 60);
    // Sized to its text, the box keeps its right edge.
    const TextOp& s = *texts[1];
    EXPECT_EQ(s.text, caption);
    EXPECT_NEAR(s.box.width, TextWidth(s.font, caption), 1e-9);
    EXPECT_NEAR(s.box.Right(), 36 + 160, 1e-9);
    EXPECT_NEAR(s.x, s.box.left, 1e-9);
    const TextOp& m = *texts[2];
    EXPECT_NEAR(m.x + TextWidth(m.font, "mid") / 2, 36 + 350, 1e-9);
    EXPECT_NEAR(m.baseline, kTop + Ascent(m.font), 1e-9);
}

TEST_F(EngineLayout, AFieldThatDoesNotExistFailsBeforeAnyPage) {
    AddSales(3);
    report_.Band(BandKind::Detail, 12).Add<TQRDBText>(nullptr, "Nothing").Name = "qrNothing";
    try {
        report_.Prepare(doc_);
        FAIL() << "no error";
    } catch (const Exception& e) {
        EXPECT_STREQ(e.what(), "Report field 'Nothing' of qrNothing does not exist");
    }
    EXPECT_EQ(doc_.PageCount(), 0);
    EXPECT_FALSE(doc_.Producing());

    TQuickRep other;
    other.DataSet = &sales_;
    other.Band(BandKind::Detail, 12).Add<TQRExpr>("SUM(Amount");
    EXPECT_THROW(other.Prepare(doc_), ExpressionError);
}

} // namespace
} // namespace corvane::testing
