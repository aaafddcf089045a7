#include "EngineTestTables.h"
#include "core/FormatSettings.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRShape.h"
#include "reports/engine/TQRSysData.h"
#include "reports/engine/TQuickRep.h"
#include "reports/page/ReportDocument.h"
#include "reports/render/PdfWriter.h"
#include "reports/render/TextRenderer.h"
#include "support/GoldenFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace corvane::testing {
namespace {

using namespace corvane::reports;
namespace fs = std::filesystem;

class EngineGolden : public CompanyTest {
protected:
    // Dates print in the process's short format: the stored pages use the default one.
    void SetUp() override {
        CompanyTest::SetUp();
        saved_ = ProcessFormatSettings();
        ProcessFormatSettings() = FormatSettings{};
    }
    void TearDown() override {
        ProcessFormatSettings() = saved_;
        CompanyTest::TearDown();
    }

    // Three periods of posted lines of one company, thirty lines each, debits and credits.
    void AddHistory() {
        store::Table t(db_, "GLHist");
        t.Open();
        store::Transaction tx(db_, {"GLHist"});
        for (int i = 0; i < 90; ++i) {
            const int period = 1 + i / 30;
            t.Append();
            t.FieldByName("GLAccountID").SetAsInteger(1 + i % 4);
            t.FieldByName("GLYear").SetAsInteger(2017);
            t.FieldByName("GLPeriod").SetAsInteger(period);
            t.FieldByName("Source").SetAsString(i % 3 ? "GL" : "AR");
            t.FieldByName("TransType").SetAsString(i % 3 ? "JV" : "Inv");
            t.FieldByName("JVNumber").SetAsInteger(100 + i / 2);
            t.FieldByName("TransDate").SetAsDate(Date::FromYmd(2017, period, 1 + (i % 30) / 2));
            t.FieldByName("Amount").SetAsMoney(Money::FromCents((i * 7919) % 200000 - 60000));
            t.FieldByName("TransDescription")
                .SetAsString("Line " + std::to_string(i) +
                             (i % 7 == 0 ? " of a rather long "
                                           "description that is cut"
                                         : ""));
            t.Post();
        }
        tx.Commit();
    }

    FormatSettings saved_;
};

TEST_F(EngineGolden, HistoryGroupedByPeriodWithPageTotalsAndSummary) {
    AddHistory();
    store::Table hist(db_, "GLHist");
    hist.Name = "tblGLHist";
    hist.SetIndexName("GLPeriod");
    hist.Open();
    hist.FieldByName("TransDate").DisplayFormat = "dd mmm yy";
    const std::string amountMask = "#,###,##0.00;#,###,##0.00CR";

    TQuickRep report;
    report.ReportTitle = "GL History";
    report.DataSet = &hist;
    report.PrintedAt = ReportTimestamp{Date::FromYmd(2017, 4, 3), 14, 5, 9};

    TQRBand& header = report.Band(BandKind::PageHeader, 36);
    header.Add<TQRLabel>("Golden Test Company").SetBounds(0, 0, 200, 12);
    auto& title = header.Add<TQRSysData>(SysDataKind::ReportTitle);
    title.SetBounds(0, 12, 540, 14);
    title.Alignment = Align::Center;
    title.Font.size = 12;
    title.Font.bold = true;
    auto& printed = header.Add<TQRSysData>(SysDataKind::DateTime, "Printed ");
    printed.SetBounds(340, 0, 200, 12);
    printed.Alignment = Align::Right;

    TQRBand& columns = report.Band(BandKind::ColumnHeader, 24);
    columns.Add<TQRLabel>("Date").SetBounds(0, 0, 60, 12);
    columns.Add<TQRLabel>("JV no.").SetBounds(66, 0, 40, 12);
    columns.Add<TQRLabel>("Description").SetBounds(120, 0, 200, 12);
    auto& amountHeading = columns.Add<TQRLabel>("Amount");
    amountHeading.SetBounds(440, 0, 100, 12);
    amountHeading.Alignment = Align::Right;
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, 540, 12);

    TQRGroup& period = report.AddGroup("GLYear * 100 + GLPeriod", 24);
    period.Add<TQRLabel>("Period").SetBounds(0, 6, 40, 12);
    period.Add<TQRDBText>(nullptr, "GLPeriod").SetBounds(42, 6, 20, 12);
    auto& year = period.Add<TQRDBText>(nullptr, "GLYear");
    year.SetBounds(66, 6, 40, 12);
    year.Mask = "0000";

    TQRBand& detail = report.Band(BandKind::Detail, 12);
    detail.Add<TQRDBText>(nullptr, "TransDate").SetBounds(0, 0, 60, 12);
    auto& jv = detail.Add<TQRDBText>(nullptr, "JVNumber");
    jv.SetBounds(66, 0, 40, 12);
    jv.Alignment = Align::Right;
    detail.Add<TQRDBText>(nullptr, "TransDescription").SetBounds(120, 0, 200, 12);
    auto& source = detail.Add<TQRExpr>("Source + ' ' + TransType");
    source.SetBounds(330, 0, 50, 12);
    auto& amount = detail.Add<TQRDBText>(nullptr, "Amount");
    amount.SetBounds(440, 0, 100, 12);
    amount.Alignment = Align::Right;
    amount.Mask = amountMask;

    TQRBand& periodFooter = period.FooterBand(24);
    periodFooter.Add<TQRShape>(ShapeKind::HorLine).SetBounds(440, 0, 100, 4);
    auto& periodLabel = periodFooter.Add<TQRExpr>("'Total of period ' + 'with lines:'");
    periodLabel.SetBounds(120, 6, 200, 12);
    auto& periodCount = periodFooter.Add<TQRExpr>("COUNT");
    periodCount.SetBounds(330, 6, 50, 12);
    periodCount.ResetAfterPrint = true;
    auto& periodTotal = periodFooter.Add<TQRExpr>("SUM(Amount)");
    periodTotal.SetBounds(440, 6, 100, 12);
    periodTotal.Alignment = Align::Right;
    periodTotal.Mask = amountMask;
    periodTotal.ResetAfterPrint = true;

    TQRBand& summary = report.Band(BandKind::Summary, 72);
    summary.Add<TQRShape>(ShapeKind::Frame).SetBounds(300, 6, 240, 60);
    const char* captions[] = {"Grand total", "Largest", "Smallest", "Average"};
    const char* values[] = {"SUM(Amount)", "MAX(Amount)", "MIN(Amount)", "AVERAGE(Amount)"};
    for (int i = 0; i < 4; ++i) {
        summary.Add<TQRLabel>(captions[i]).SetBounds(312, 12 + 12 * i, 100, 12);
        auto& value = summary.Add<TQRExpr>(values[i]);
        value.SetBounds(420, 12 + 12 * i, 108, 12);
        value.Alignment = Align::Right;
        value.Mask = i == 3 ? "0.0000" : amountMask;
    }

    TQRBand& footer = report.Band(BandKind::PageFooter, 24);
    footer.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 0, 540, 6);
    footer.Add<TQRLabel>("Page total").SetBounds(300, 12, 100, 12);
    auto& pageTotal = footer.Add<TQRExpr>("SUM(Amount)");
    pageTotal.SetBounds(440, 12, 100, 12);
    pageTotal.Alignment = Align::Right;
    pageTotal.Mask = amountMask;
    pageTotal.ResetAfterPrint = true;
    auto& pageNumber = footer.Add<TQRSysData>(SysDataKind::PageNumberOfTotal);
    pageNumber.SetBounds(0, 12, 100, 12);

    ReportDocument doc;
    report.Prepare(doc);
    ASSERT_GE(doc.PageCount(), 2);
    // CORVANE_GOLDEN_PDF=FILE writes the same pages as PDF, to look at them as a reader would.
    if (const char* pdf = std::getenv("CORVANE_GOLDEN_PDF")) WritePdf(doc, pdf);
    CompareWithGolden("reports", "gl-history-by-period.txt",
                      TextRenderer(TextRenderer::PageBreak::PageMarker).Render(doc));
}

} // namespace
} // namespace corvane::testing
