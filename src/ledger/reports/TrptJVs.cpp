#include "ledger/reports/TrptJVs.h"

#include "ledger/inquiry/VoucherLabels.h"
#include "ledger/reports/ReportColumns.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::ledger {

using namespace reports;

namespace {

constexpr double PeriodLeft = 0, PeriodWidth = 44;
constexpr double NumberLeft = 48, NumberWidth = 44;
constexpr double DateLeft = 100, DateWidth = 56;
constexpr double DescriptionLeft = 162, DescriptionWidth = 246;
constexpr double SourceLeft = 412, SourceWidth = 40;
constexpr double AmountLeft = 456, AmountWidth = 84;

// Period and number, the order every voucher list starts in.
constexpr const char* kPeriodOrder = "PeriodJVNumber";

} // namespace

TrptJVs::TrptJVs(store::Database& db) : tblJV(db, "JV") {
    tblJV.Name = "tblJV";
    tblJV.SetIndexName(kPeriodOrder);
    AddVoucherLabelFields(tblJV);
    QuickReport.ReportTitle = "Journal Vouchers";
    QuickReport.DataSet = &tblJV;
    AddStandardTitle(QuickReport, CompanyNameOf(db));

    TQRBand& columns = QuickReport.Band(BandKind::ColumnHeader, 24);
    AddHeading(columns, "Period", PeriodLeft, PeriodWidth);
    AddHeading(columns, "JV no.", NumberLeft, NumberWidth, true);
    AddHeading(columns, "Date", DateLeft, DateWidth);
    AddHeading(columns, "Description", DescriptionLeft, DescriptionWidth);
    AddHeading(columns, "Source", SourceLeft, SourceWidth);
    AddHeading(columns, "Amount", AmountLeft, AmountWidth, true);
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 12);

    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    detail.Add<TQRDBText>(nullptr, "Periodppyyyy").SetBounds(PeriodLeft, 0, PeriodWidth, 12);
    auto& number = detail.Add<TQRDBText>(nullptr, "JVNumber");
    number.SetBounds(NumberLeft, 0, NumberWidth, 12);
    number.Alignment = Align::Right;
    detail.Add<TQRDBText>(nullptr, "TransDate").SetBounds(DateLeft, 0, DateWidth, 12);
    detail.Add<TQRDBText>(nullptr, "TransDescription")
        .SetBounds(DescriptionLeft, 0, DescriptionWidth, 12);
    detail.Add<TQRDBText>(nullptr, "SourceType").SetBounds(SourceLeft, 0, SourceWidth, 12);
    auto& amount = detail.Add<TQRDBText>(nullptr, "JVAmount");
    amount.SetBounds(AmountLeft, 0, AmountWidth, 12);
    amount.Alignment = Align::Right;
    amount.Mask = kSignedAmountMask;

    TQRBand& summary = QuickReport.Band(BandKind::Summary, 24);
    summary.Add<TQRShape>(ShapeKind::HorLine).SetBounds(AmountLeft, 0, AmountWidth, 12);
    auto& label = summary.Add<TQRLabel>("Total");
    label.SetBounds(DescriptionLeft, 12, DescriptionWidth, 12);
    label.Font.bold = true;
    auto& total = summary.Add<TQRExpr>("SUM(JVAmount)");
    total.SetBounds(AmountLeft, 12, AmountWidth, 12);
    total.Alignment = Align::Right;
    total.Mask = kSignedAmountMask;
    total.Font.bold = true;

    AddStandardPageFooter(QuickReport);
}

void TrptJVs::Open() {
    tblJV.Open();
    if (Year) {
        // The order of the list may not lead with the period: the range needs one that does.
        tblJV.SetIndexName(kPeriodOrder);
        std::vector<store::Value> key{*Year};
        if (Period) key.push_back(*Period);
        tblJV.SetRange(key, key);
    }
    tblJV.First();
}

} // namespace corvane::ledger
