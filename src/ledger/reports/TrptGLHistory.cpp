#include "ledger/reports/TrptGLHistory.h"

#include "ledger/inquiry/HistoryLineFields.h"
#include "ledger/reports/ReportColumns.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::ledger {

using namespace reports;

namespace {

constexpr double DateLeft = 0, DateWidth = 52;
constexpr double NumberLeft = 54, NumberWidth = 40;
constexpr double SourceLeft = 100, SourceWidth = 40;
constexpr double DescriptionLeft = 144, DescriptionWidth = 196;
constexpr double AccountLeft = 344, AccountWidth = 110;
constexpr double AmountLeft = 458, AmountWidth = 82;

TQRExpr& AmountTotal(TQRBand& band, double top, bool reset) {
    auto& total = band.Add<TQRExpr>("SUM(Amount)");
    total.SetBounds(AmountLeft, top, AmountWidth, 12);
    total.Alignment = Align::Right;
    total.Mask = kSignedAmountMask;
    total.Font.bold = true;
    total.ResetAfterPrint = reset;
    return total;
}

} // namespace

TrptGLHistory::TrptGLHistory(store::Database& db)
    : tblGLHist(db, "GLHist"), tblGLAccnt(db, "GLAccnt"), tblGLAcSub1(db, "GLAcSub1"),
      tblGLAcSub2(db, "GLAcSub2"), tblGLAcSub3(db, "GLAcSub3") {
    tblGLHist.Name = "tblGLHist";
    tblGLHist.SetIndexName(kAllIndex);
    tblGLHist.AddCalculatedField("Periodppyyyy", store::FieldType::String, 7);
    tblGLHist.AddCalculatedField("SourceType", store::FieldType::String, 6);
    tblGLHist.AddCalculatedField("AccountNo", store::FieldType::String, 30);
    tblGLHist.AddCalculatedField("AccountNameLabel", store::FieldType::String, 80);
    tblGLHist.OnCalcFields = [this](store::DataSet& ds) { CalculateRow(ds); };
    tblGLHist.OnFilterRecord = [this](store::DataSet& ds) { return TypeMatches(ds); };
    QuickReport.ReportTitle = "GL History";
    QuickReport.DataSet = &tblGLHist;
    AddStandardTitle(QuickReport, CompanyNameOf(db));

    TQRBand& columns = QuickReport.Band(BandKind::ColumnHeader, 24);
    AddHeading(columns, "Date", DateLeft, DateWidth);
    AddHeading(columns, "JV no.", NumberLeft, NumberWidth, true);
    AddHeading(columns, "Source", SourceLeft, SourceWidth);
    AddHeading(columns, "Description", DescriptionLeft, DescriptionWidth);
    AddHeading(columns, "Account no.", AccountLeft, AccountWidth);
    AddHeading(columns, "Amount", AmountLeft, AmountWidth, true);
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 12);

    TQRGroup& period = QuickReport.AddGroup("GLYear * 100 + GLPeriod", 24);
    auto& periodCaption = period.Add<TQRLabel>("Period");
    periodCaption.SetBounds(DateLeft, 12, DateWidth, 12);
    periodCaption.Font.bold = true;
    auto& periodText = period.Add<TQRDBText>(nullptr, "Periodppyyyy");
    periodText.SetBounds(NumberLeft, 12, 80, 12);
    periodText.Font.bold = true;

    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    detail.Add<TQRDBText>(nullptr, "TransDate").SetBounds(DateLeft, 0, DateWidth, 12);
    auto& number = detail.Add<TQRDBText>(nullptr, "JVNumber");
    number.SetBounds(NumberLeft, 0, NumberWidth, 12);
    number.Alignment = Align::Right;
    detail.Add<TQRDBText>(nullptr, "SourceType").SetBounds(SourceLeft, 0, SourceWidth, 12);
    detail.Add<TQRDBText>(nullptr, "TransDescription")
        .SetBounds(DescriptionLeft, 0, DescriptionWidth, 12);
    detail.Add<TQRDBText>(nullptr, "AccountNo").SetBounds(AccountLeft, 0, AccountWidth, 12);
    auto& amount = detail.Add<TQRDBText>(nullptr, "Amount");
    amount.SetBounds(AmountLeft, 0, AmountWidth, 12);
    amount.Alignment = Align::Right;
    amount.Mask = kSignedAmountMask;

    TQRBand& periodFooter = period.FooterBand(24);
    periodFooter.Add<TQRShape>(ShapeKind::HorLine).SetBounds(AmountLeft, 0, AmountWidth, 12);
    auto& periodLabel = periodFooter.Add<TQRExpr>("'Total of period ' + Periodppyyyy");
    periodLabel.SetBounds(DescriptionLeft, 12, DescriptionWidth, 12);
    periodLabel.Font.bold = true;
    AmountTotal(periodFooter, 12, true);

    TQRBand& summary = QuickReport.Band(BandKind::Summary, 24);
    summary.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 0, kPortraitWidth, 12);
    auto& label = summary.Add<TQRLabel>("Total");
    label.SetBounds(DescriptionLeft, 12, DescriptionWidth, 12);
    label.Font.bold = true;
    AmountTotal(summary, 12, false);

    AddStandardPageFooter(QuickReport);
}

void TrptGLHistory::Open() {
    int level = 0;
    for (store::Table* table : {&tblGLAccnt, &tblGLAcSub1, &tblGLAcSub2, &tblGLAcSub3}) {
        table->Name = level == 0 ? "tblGLAccnt" : "tblGLAcSub" + std::to_string(level);
        table->Open();
        ++level;
    }
    // The type test runs only under a filter; a type alone needs the filter switched on.
    if (AccountType != 0) tblGLHist.SetFiltered(true);
    tblGLHist.Open();
    if (Account) {
        tblGLHist.SetIndexName(kAccountIndex);
        std::vector<store::Value> key{*Account};
        if (Year) key.push_back(*Year);
        if (Year && Period) key.push_back(*Period);
        tblGLHist.SetRange(key, key);
    } else if (Year) {
        tblGLHist.SetIndexName(kAllIndex);
        std::vector<store::Value> key{*Year};
        if (Period) key.push_back(*Period);
        tblGLHist.SetRange(key, key);
    }
    tblGLHist.First();
}

void TrptGLHistory::CalculateRow(store::DataSet& ds) {
    CalculateHistoryLine(ds, {tblGLAccnt, tblGLAcSub1, tblGLAcSub2, tblGLAcSub3});
}

bool TrptGLHistory::TypeMatches(store::DataSet& ds) {
    return HistoryLineHasType(ds, tblGLAccnt, AccountType);
}

} // namespace corvane::ledger
