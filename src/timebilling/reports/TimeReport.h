#pragma once

#include "reports/engine/TQRBand.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/run/TrptBase.h"
#include "store/Query.h"
#include "timebilling/reports/TimeReportOptions.h"

#include <string>

namespace corvane::timebilling {

// What the time reports share: a query of the time narrowed by the options, the title with the
// options' heading lines, bold column headings, texts and hours, and the totals of a group and
// of the report.
class TimeReport : public reports::TrptBase {
public:
    store::Query qryTime;

    void Open() override;

protected:
    TimeReport(store::Database& db, TimeReportOptions options, const std::string& title,
               const std::string& sql);

    static constexpr const char* kHoursMask = "#,##0.00";

    reports::TQRBand& Columns();
    void Heading(reports::TQRBand& band, const std::string& caption, double left, double width,
                 bool right = false);
    reports::TQRDBText& Text(reports::TQRBand& band, const std::string& field, double left,
                             double width, double top = 0);
    reports::TQRDBText& Hours(reports::TQRBand& band, const std::string& field, double left);
    // A group of rows by field, its header showing nameField in bold; its footer and the
    // report's summary add up hoursField under the hours column at hoursLeft.
    reports::TQRGroup& GroupWithTotals(const std::string& field, const std::string& nameField,
                                       const std::string& hoursField, double hoursLeft);

    static constexpr double HoursWidth = 70;
    TimeReportOptions options_;
};

} // namespace corvane::timebilling
