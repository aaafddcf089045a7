#include "timebilling/reports/TrptJobs.h"

#include "ledger/reports/ReportColumns.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::timebilling {

using namespace reports;

namespace {

std::string NameOf(store::Database& db, const char* sql, std::int64_t id) {
    store::Query q(db, sql);
    q.ParamByName("ID").SetAsInteger(id);
    q.Open();
    return q.IsEmpty() ? std::string() : q.Fields().front()->AsString();
}

void YesText(store::DataSet& ds, const char* field, const char* shown) {
    const store::Field& flag = ds.FieldByName(field);
    ds.FieldByName(shown).SetAsString(!flag.IsNull() && flag.AsBoolean() ? "Yes" : "");
}

} // namespace

std::string JobsStatement(const JobsReportOptions& o) {
    std::string sql = "SELECT J.*, C.CustomerName FROM Job J INNER JOIN Customer C ON "
                      "J.CustomerID = C.CustomerID";
    sql += o.Outstanding ? " WHERE J.Completed <> true" : " WHERE (1 = 1)";
    if (o.ProjectLeaderID) sql += " AND (ProjectLeaderID = :ProjectLeaderID)";
    if (o.CustomerID) sql += " AND (J.CustomerID = :CustomerID)";
    if (o.LowestPriority) sql += " AND (Priority >0) AND (Priority <= :LowestPriority)";
    if (o.Authorized)
        sql += *o.Authorized ? " AND (Authorized = true)" : " AND (Authorized = false)";
    sql += o.ByDueDate ? " ORDER BY J.DueDateEntered, J.DueDate, J.Priority"
                       : " ORDER BY J.Priority, J.DueDateEntered, J.DueDate";
    return sql;
}

std::vector<std::string> JobsHeadingNotes(store::Database& db, const JobsReportOptions& o) {
    std::vector<std::string> notes;
    if (o.ProjectLeaderID)
        notes.push_back("     Project Leader: " +
                        NameOf(db, "SELECT EmployeeName FROM Employee WHERE EmployeeID = :ID",
                               *o.ProjectLeaderID));
    if (o.CustomerID)
        notes.push_back(
            "     Customer: " +
            NameOf(db, "SELECT CustomerName FROM Customer WHERE CustomerID = :ID", *o.CustomerID));
    if (o.LowestPriority)
        notes.push_back("     Min Priority: " + std::to_string(*o.LowestPriority));
    if (o.Authorized)
        notes.push_back(*o.Authorized ? "     OK to Proceed: Yes" : "     OK to Proceed: No");
    return notes;
}

TrptJobs::TrptJobs(store::Database& db, JobsReportOptions options)
    : qryJobs(db, JobsStatement(options)), options_(std::move(options)) {
    qryJobs.Name = "qryJobs";
    qryJobs.AddCalculatedField("OKText", store::FieldType::String, 4);
    qryJobs.AddCalculatedField("DoneText", store::FieldType::String, 4);
    qryJobs.OnCalcFields = [](store::DataSet& ds) {
        YesText(ds, "Authorized", "OKText");
        YesText(ds, "Completed", "DoneText");
    };
    QuickReport.ReportTitle = options_.Outstanding ? "Jobs (Outstanding)" : "Jobs";
    QuickReport.DataSet = &qryJobs;
    QuickReport.PrintIfEmpty = true;
    AddStandardTitle(QuickReport, CompanyNameOf(db));
    TQRBand& title = *QuickReport.FindBand(BandKind::Title);
    double y = title.Height;
    for (const std::string& note : JobsHeadingNotes(db, options_)) {
        title.Add<TQRLabel>(note).SetBounds(0, y, kPortraitWidth, 12);
        y += 12;
    }
    title.Height = y + 6;

    struct Column {
        const char* Field;
        const char* Heading;
        double Width;
        const char* Mask;
    };
    const Column columns[] = {{"Priority", "Priority", 40, nullptr},
                              {"DueDate", "Due", 56, "dd mmm yy"},
                              {"CustomerName", "Customer", 150, nullptr},
                              {"JobName", "Job", 200, nullptr},
                              {"OKText", "OK", 30, nullptr},
                              {"DoneText", "Completed", 50, nullptr}};
    TQRBand& heads = QuickReport.Band(BandKind::ColumnHeader, 24);
    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    double left = 0;
    for (const Column& column : columns) {
        ledger::AddHeading(heads, column.Heading, left, column.Width);
        auto& text = detail.Add<TQRDBText>(nullptr, column.Field);
        text.SetBounds(left, 0, column.Width, 12);
        if (column.Mask) text.Mask = column.Mask;
        left += column.Width + 8;
    }
    heads.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 12);

    TQRBand& summary = QuickReport.Band(BandKind::Summary, 24);
    summary.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 0, kPortraitWidth, 12);
    summary.Add<TQRLabel>("Count:").SetBounds(0, 12, 80, 12);
    summary.Add<TQRExpr>("COUNT").SetBounds(90, 12, 100, 12);
    AddStandardPageFooter(QuickReport);
}

void TrptJobs::Open() {
    qryJobs.Close();
    if (options_.ProjectLeaderID)
        qryJobs.ParamByName("ProjectLeaderID").SetAsInteger(*options_.ProjectLeaderID);
    if (options_.CustomerID) qryJobs.ParamByName("CustomerID").SetAsInteger(*options_.CustomerID);
    if (options_.LowestPriority)
        qryJobs.ParamByName("LowestPriority").SetAsInteger(*options_.LowestPriority);
    qryJobs.Open();
    qryJobs.First();
}

} // namespace corvane::timebilling
