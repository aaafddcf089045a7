#include "receivables/reports/ARReportOptions.h"

#include "core/DisplayFormat.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQuickRep.h"
#include "reports/system/StandardBands.h"
#include "store/Query.h"

namespace corvane::receivables {

namespace {

std::string NameOf(store::Database& db, const char* sql, std::int64_t id) {
    store::Query q(db, sql);
    q.ParamByName("ID").SetAsInteger(id);
    q.Open();
    if (q.IsEmpty()) return {};
    // A name in two fields (a salesman's) reads first name, then last name.
    std::string name;
    for (const auto& field : q.Fields()) {
        const std::string part = field->AsString();
        if (part.empty()) continue;
        if (!name.empty()) name += ' ';
        name += part;
    }
    return name;
}

} // namespace

std::vector<std::string> OptionLines(store::Database& db, const ARReportOptions& options,
                                     bool salesman, bool thresholds) {
    std::vector<std::string> lines;
    if (options.CurrencyID)
        lines.push_back("     Currency: " +
                        NameOf(db, "SELECT CurrencyName FROM Currency WHERE CurrencyID = :ID",
                               *options.CurrencyID));
    if (salesman && options.SalesmanID)
        lines.push_back("     Salesman: " +
                        NameOf(db,
                               "SELECT FirstName, LastName FROM Salesman WHERE SalesmanID = :ID",
                               *options.SalesmanID));
    if (options.CustomerID)
        lines.push_back("     Customer: " +
                        NameOf(db, "SELECT CustomerName FROM Customer WHERE CustomerID = :ID",
                               *options.CustomerID));
    if (thresholds && options.Thresholds.MinOwing > Money())
        lines.push_back("     Min Owing: " +
                        FormatMoney("#,###,##0.00", options.Thresholds.MinOwing));
    if (thresholds && options.Thresholds.MinDaysOld > 0)
        lines.push_back("     Min Days Old: " + std::to_string(options.Thresholds.MinDaysOld));
    return lines;
}

void BindOptions(store::Query& query, const ARReportOptions& options) {
    auto bindId = [&](const char* name, const std::optional<std::int64_t>& id) {
        if (store::Param* p = query.FindParam(name); p && id) p->SetAsInteger(*id);
    };
    auto bindDate = [&](const char* name, const std::optional<Date>& date) {
        if (store::Param* p = query.FindParam(name); p && date) p->SetAsDate(*date);
    };
    bindId("CurrencyID", options.CurrencyID);
    bindId("SalesmanID", options.SalesmanID);
    bindId("CustomerID", options.CustomerID);
    bindDate("AsOfDate", options.AsOf);
    bindDate("DateFrom", options.DateFrom);
    bindDate("DateTo", options.DateTo);
}

void AddARTitle(reports::TQuickRep& report, const std::string& companyName,
                const std::vector<std::string>& lines) {
    using namespace reports;
    AddStandardTitle(report, companyName);
    TQRBand& title = *report.FindBand(BandKind::Title);
    const double top = title.Height;
    double y = top;
    for (const std::string& line : lines) {
        auto& label = title.Add<TQRLabel>(line);
        label.SetBounds(0, y, kPortraitWidth, 12);
        y += 12;
    }
    title.Height = y + 6;
}

reports::TQRLabel& ARHeading(reports::TQRBand& band, std::string caption, double left, double width,
                             bool right, double top) {
    auto& heading = band.Add<reports::TQRLabel>(std::move(caption));
    heading.SetBounds(left, top, width, 12);
    heading.Font.bold = true;
    if (right) heading.Alignment = reports::Align::Right;
    return heading;
}

} // namespace corvane::receivables
