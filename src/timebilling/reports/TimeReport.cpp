#include "timebilling/reports/TimeReport.h"

#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::timebilling {

using namespace reports;

TimeReport::TimeReport(store::Database& db, TimeReportOptions options, const std::string& title,
                       const std::string& sql)
    : qryTime(db, sql), options_(std::move(options)) {
    qryTime.Name = "qryTime";
    QuickReport.ReportTitle = title;
    QuickReport.DataSet = &qryTime;
    QuickReport.PrintIfEmpty = true;
    AddStandardTitle(QuickReport, CompanyNameOf(db));
    TQRBand& band = *QuickReport.FindBand(BandKind::Title);
    double y = band.Height;
    for (const std::string& line : TimeHeadingLines(db, options_)) {
        band.Add<TQRLabel>(line).SetBounds(0, y, kPortraitWidth, 12);
        y += 12;
    }
    band.Height = y + 6;
    AddStandardPageFooter(QuickReport);
}

TQRBand& TimeReport::Columns() {
    TQRBand& columns = QuickReport.Band(BandKind::ColumnHeader, 18);
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 6);
    return columns;
}

void TimeReport::Heading(TQRBand& band, const std::string& caption, double left, double width,
                         bool right) {
    auto& label = band.Add<TQRLabel>(caption);
    label.SetBounds(left, 0, width, 12);
    label.Font.bold = true;
    if (right) label.Alignment = Align::Right;
}

TQRDBText& TimeReport::Text(TQRBand& band, const std::string& field, double left, double width,
                            double top) {
    auto& text = band.Add<TQRDBText>(nullptr, field);
    text.SetBounds(left, top, width, 12);
    return text;
}

TQRDBText& TimeReport::Hours(TQRBand& band, const std::string& field, double left) {
    auto& hours = Text(band, field, left, HoursWidth);
    hours.Alignment = Align::Right;
    hours.Mask = kHoursMask;
    return hours;
}

TQRGroup& TimeReport::GroupWithTotals(const std::string& field, const std::string& nameField,
                                      const std::string& hoursField, double hoursLeft) {
    TQRGroup& group = QuickReport.AddGroup(field, 18);
    Text(group, nameField, 0, 400, 4).Font.bold = true;

    TQRBand& footer = group.FooterBand(20);
    auto& caption = footer.Add<TQRLabel>("Total:");
    caption.SetBounds(hoursLeft - 80, 4, 76, 12);
    caption.Alignment = Align::Right;
    auto& total = footer.Add<TQRExpr>("SUM(" + hoursField + ")");
    total.SetBounds(hoursLeft, 4, HoursWidth, 12);
    total.Alignment = Align::Right;
    total.Mask = kHoursMask;
    total.ResetAfterPrint = true;

    TQRBand& summary = QuickReport.Band(BandKind::Summary, 24);
    summary.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 0, kPortraitWidth, 6);
    auto& label = summary.Add<TQRLabel>("Report Totals:");
    label.SetBounds(0, 8, 200, 12);
    label.Font.bold = true;
    auto& grand = summary.Add<TQRExpr>("SUM(" + hoursField + ")");
    grand.SetBounds(hoursLeft, 8, HoursWidth, 12);
    grand.Alignment = Align::Right;
    grand.Mask = kHoursMask;
    grand.Font.bold = true;
    return group;
}

void TimeReport::Open() {
    qryTime.Close();
    BindTimeOptions(qryTime, options_);
    qryTime.Open();
    qryTime.First();
}

} // namespace corvane::timebilling
