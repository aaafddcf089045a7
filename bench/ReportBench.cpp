// A ledger history report over a long history: lines grouped by period with period totals, a
// total on every page and a summary. The engine reads the rows as it lays out, so page 1 must be
// there long before the last row is read, and the whole run must stay linear in the rows.

#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRShape.h"
#include "reports/engine/TQRSysData.h"
#include "reports/engine/TQuickRep.h"
#include "reports/page/ReportDocument.h"
#include "reports/render/PdfWriter.h"
#include "store/Table.h"
#include "support/BenchCompany.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <memory>

namespace {

using namespace corvane;
using namespace corvane::reports;
using Clock = std::chrono::steady_clock;

constexpr int kRows = 100'000;

// The history report, on a cursor of its own over the company's GLHist in period order.
struct HistoryReport {
    explicit HistoryReport(store::Database& db) : hist(db, "GLHist") {
        hist.SetIndexName("PeriodDateJVDESC");
        hist.Open();
        const std::string mask = "#,###,##0.00;#,###,##0.00CR";
        report.ReportTitle = "GL History";
        report.DataSet = &hist;

        TQRBand& header = report.Band(BandKind::PageHeader, 24);
        header.Add<TQRSysData>(SysDataKind::ReportTitle).SetBounds(0, 0, 300, 14);
        auto& printed = header.Add<TQRSysData>(SysDataKind::DateTime);
        printed.SetBounds(340, 0, 200, 12);
        printed.Alignment = Align::Right;

        TQRBand& columns = report.Band(BandKind::ColumnHeader, 18);
        columns.Add<TQRLabel>("Date").SetBounds(0, 0, 60, 12);
        columns.Add<TQRLabel>("JV no.").SetBounds(66, 0, 40, 12);
        columns.Add<TQRLabel>("Description").SetBounds(120, 0, 200, 12);
        columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, 540, 6);

        TQRGroup& period = report.AddGroup("GLYear * 100 + GLPeriod", 18);
        period.Add<TQRLabel>("Period").SetBounds(0, 4, 40, 12);
        period.Add<TQRDBText>(nullptr, "GLPeriod").SetBounds(42, 4, 20, 12);
        period.Add<TQRDBText>(nullptr, "GLYear").SetBounds(66, 4, 40, 12);

        TQRBand& detail = report.Band(BandKind::Detail, 12);
        detail.Add<TQRDBText>(nullptr, "TransDate").SetBounds(0, 0, 60, 12);
        detail.Add<TQRDBText>(nullptr, "JVNumber").SetBounds(66, 0, 40, 12);
        detail.Add<TQRDBText>(nullptr, "TransDescription").SetBounds(120, 0, 200, 12);
        detail.Add<TQRExpr>("Source + ' ' + TransType").SetBounds(330, 0, 50, 12);
        auto& amount = detail.Add<TQRDBText>(nullptr, "Amount");
        amount.SetBounds(440, 0, 100, 12);
        amount.Alignment = Align::Right;
        amount.Mask = mask;

        TQRBand& periodFooter = period.FooterBand(18);
        auto& periodTotal = periodFooter.Add<TQRExpr>("SUM(Amount)");
        periodTotal.SetBounds(440, 4, 100, 12);
        periodTotal.Alignment = Align::Right;
        periodTotal.Mask = mask;
        periodTotal.ResetAfterPrint = true;

        TQRBand& footer = report.Band(BandKind::PageFooter, 18);
        footer.Add<TQRSysData>(SysDataKind::PageNumberOfTotal).SetBounds(0, 4, 100, 12);
        auto& pageTotal = footer.Add<TQRExpr>("SUM(Amount)");
        pageTotal.SetBounds(440, 4, 100, 12);
        pageTotal.Alignment = Align::Right;
        pageTotal.Mask = mask;
        pageTotal.ResetAfterPrint = true;

        TQRBand& summary = report.Band(BandKind::Summary, 24);
        summary.Add<TQRLabel>("Grand total").SetBounds(300, 6, 100, 12);
        auto& grand = summary.Add<TQRExpr>("SUM(Amount)");
        grand.SetBounds(440, 6, 100, 12);
        grand.Alignment = Align::Right;
        grand.Mask = mask;
    }

    store::Table hist;
    TQuickRep report;
};

// From the start of the run until the preview could show page 1; the run is then cancelled, as
// closing the preview would.
void BM_ReportFirstPage(benchmark::State& state) {
    auto& company = bench::CompanyOf(kRows);
    HistoryReport history(*company.db);
    for (auto _ : state) {
        ReportDocument doc;
        const auto start = Clock::now();
        double firstPage = 0;
        doc.OnPageAvailable = [&](int number) {
            if (number != 1) return;
            firstPage = std::chrono::duration<double>(Clock::now() - start).count();
            doc.RequestCancel();
        };
        history.report.Prepare(doc);
        state.SetIterationTime(firstPage);
        if (doc.PageCount() != 1) state.SkipWithError("the run did not stop after page 1");
    }
}
BENCHMARK(BM_ReportFirstPage)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

// Every page laid out and written to a PDF file.
void BM_ReportWholeRunToPdf(benchmark::State& state) {
    auto& company = bench::CompanyOf(kRows);
    HistoryReport history(*company.db);
    const std::string path =
        (std::filesystem::temp_directory_path() / "corvane-report-bench.pdf").string();
    int pages = 0;
    for (auto _ : state) {
        ReportDocument doc;
        history.report.Prepare(doc);
        WritePdf(doc, path);
        pages = doc.PageCount();
    }
    state.counters["pages"] = pages;
    state.counters["pdf_bytes"] = static_cast<double>(std::filesystem::file_size(path));
    std::filesystem::remove(path);
}
BENCHMARK(BM_ReportWholeRunToPdf)->Unit(benchmark::kMillisecond)->Iterations(2);

// The layout alone, to tell the engine's share from the writer's.
void BM_ReportWholeRunLayout(benchmark::State& state) {
    auto& company = bench::CompanyOf(kRows);
    HistoryReport history(*company.db);
    for (auto _ : state) {
        ReportDocument doc;
        history.report.Prepare(doc);
        benchmark::DoNotOptimize(doc.PageCount());
    }
}
BENCHMARK(BM_ReportWholeRunLayout)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace
