#include "ledger/reports/TrptGLBalances.h"

#include "ledger/inquiry/AccountLabel.h"
#include "ledger/reports/ReportColumns.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::ledger {

using namespace reports;

namespace {

// A Letter page on its side, inside the margins.
constexpr double kLandscapeWidth = 720;
constexpr double NumberLeft = 0, NumberWidth = 52;
constexpr double NameLeft = 54, NameWidth = 86;
constexpr double YearLeft = 142, YearWidth = 22;
constexpr double OpeningLeft = 166, AmountWidth = 39;
// The twelve periods and the year's change follow the opening balance, one amount wide each.
constexpr double AmountStep = 39.5;
constexpr double kSmall = 6;

// Amounts are many and narrow: whole thousands separators would not fit.
constexpr const char* kNarrowMask = "0.00;0.00CR";

double AmountLeft(int column) {
    return OpeningLeft + AmountStep * column;
}

TQRLabel& SmallHeading(TQRBand& band, std::string caption, double left, double width, bool right) {
    TQRLabel& heading = AddHeading(band, std::move(caption), left, width, right);
    heading.Font.size = kSmall;
    return heading;
}

TQRDBText& SmallText(TQRBand& band, std::string field, double left, double width,
                     bool amount = false) {
    auto& text = band.Add<TQRDBText>(nullptr, std::move(field));
    text.SetBounds(left, 0, width, 12);
    text.Font.size = kSmall;
    if (amount) {
        text.Alignment = Align::Right;
        text.Mask = kNarrowMask;
    }
    return text;
}

} // namespace

TrptGLBalances::TrptGLBalances(store::Database& db, std::string statement, TotalsData data)
    : qryGLAccnt(db, std::move(statement)), data_(data) {
    qryGLAccnt.Name = "qryGLAccnt";
    qryGLAccnt.AddCalculatedField("AccountNo", store::FieldType::String, 30);
    qryGLAccnt.AddCalculatedField("AccountNameLabel", store::FieldType::String, 80);
    for (int n = 1; n <= 12; ++n)
        qryGLAccnt.AddCalculatedField(PeriodField(n), store::FieldType::Currency);
    qryGLAccnt.AddCalculatedField("AmountTot", store::FieldType::Currency);
    qryGLAccnt.OnCalcFields = [this](store::DataSet& ds) { CalculateRow(ds); };

    QuickReport.ReportTitle = "GL Totals";
    QuickReport.Page.Orientation = Orientation::Landscape;
    QuickReport.DataSet = &qryGLAccnt;
    AddStandardTitle(QuickReport, CompanyNameOf(db), kLandscapeWidth);

    TQRBand& columns = QuickReport.Band(BandKind::ColumnHeader, 24);
    SmallHeading(columns, "Account no.", NumberLeft, NumberWidth, false);
    SmallHeading(columns, "Name", NameLeft, NameWidth, false);
    SmallHeading(columns, "Year", YearLeft, YearWidth, false);
    SmallHeading(columns, "Opening", AmountLeft(0), AmountWidth, true);
    for (int n = 1; n <= 12; ++n)
        SmallHeading(columns, PeriodField(n), AmountLeft(n), AmountWidth, true);
    SmallHeading(columns, "Total Change", AmountLeft(13), AmountWidth, true);
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kLandscapeWidth, 12);

    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    SmallText(detail, "AccountNo", NumberLeft, NumberWidth);
    SmallText(detail, "AccountNameLabel", NameLeft, NameWidth);
    SmallText(detail, "GLYear", YearLeft, YearWidth);
    SmallText(detail, "OpeningBal", AmountLeft(0), AmountWidth, true);
    for (int n = 1; n <= 12; ++n)
        SmallText(detail, PeriodField(n), AmountLeft(n), AmountWidth, true);
    SmallText(detail, "AmountTot", AmountLeft(13), AmountWidth, true);

    AddStandardPageFooter(QuickReport, kLandscapeWidth);
}

void TrptGLBalances::Open() {
    qryGLAccnt.Open();
    qryGLAccnt.First();
}

void TrptGLBalances::CalculateRow(store::DataSet& ds) {
    CalculateTotalsRow(ds, data_);
}

} // namespace corvane::ledger
