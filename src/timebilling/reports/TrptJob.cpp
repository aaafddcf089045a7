#include "timebilling/reports/TrptJob.h"

#include "reports/engine/TQRBand.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::timebilling {

using namespace reports;

namespace {

constexpr const char* kMoneyMask = "#,###,##0.00;(#,###,##0.00)";
constexpr const char* kHoursMask = "#,##0.00";

std::string JobName(store::Database& db, std::int64_t jobId) {
    store::Query q(db, "SELECT JobName FROM Job WHERE JobID = :ID");
    q.ParamByName("ID").SetAsInteger(jobId);
    q.Open();
    return q.IsEmpty() ? std::string() : q.FieldByName("JobName").AsString();
}

} // namespace

TrptJob::TrptJob(store::Database& db, std::int64_t jobId)
    : qryJob(db, "SELECT J.*, C.CustomerName, E.EmployeeName LeaderName FROM Job J "
                 "INNER JOIN Customer C ON J.CustomerID = C.CustomerID "
                 "LEFT OUTER JOIN Employee E ON J.ProjectLeaderID = E.EmployeeID "
                 "WHERE J.JobID=:SelectedJobID"),
      qryTasks(db, "SELECT K.*, TT.TypeName, E.EmployeeName FROM Task K "
                   "LEFT OUTER JOIN TaskType TT ON K.TaskTypeID = TT.TaskTypeID "
                   "LEFT OUTER JOIN Employee E ON K.EmployeeID = E.EmployeeID "
                   "WHERE K.JobID = :SelectedJobID ORDER BY K.LineNo"),
      jobId_(jobId) {
    qryJob.Name = "qryJob";
    qryTasks.Name = "qryTasks";
    qryTasks.AddCalculatedField("DoneText", store::FieldType::String, 4);
    qryTasks.OnCalcFields = [](store::DataSet& ds) {
        const store::Field& done = ds.FieldByName("Completed");
        ds.FieldByName("DoneText").SetAsString(!done.IsNull() && done.AsBoolean() ? "Yes" : "");
    };
    QuickReport.ReportTitle = "Job: " + JobName(db, jobId);
    QuickReport.DataSet = &qryJob;
    QuickReport.PrintIfEmpty = true;
    AddStandardTitle(QuickReport, CompanyNameOf(db));

    // The job: a label and its value on each line, in two columns.
    TQRBand& job = QuickReport.Band(BandKind::Detail, 96);
    double y = 0;
    auto line = [&job](const char* caption, const char* field, double left, double top,
                       const char* mask = nullptr, bool right = false) {
        auto& label = job.Add<TQRLabel>(caption);
        label.SetBounds(left, top, 90, 12);
        label.Font.bold = true;
        auto& value = job.Add<TQRDBText>(nullptr, field);
        value.SetBounds(left + 92, top, right ? 80 : 170, 12);
        if (mask) value.Mask = mask;
        if (right) value.Alignment = Align::Right;
    };
    line("Customer:", "CustomerName", 0, y);
    line("Estimated Price:", "EstimatedPrice", 280, y, kMoneyMask, true);
    y += 14;
    line("Requested By:", "RequestedBy", 0, y);
    line("Maximum Price:", "MaximumPrice", 280, y, kMoneyMask, true);
    y += 14;
    line("Requested On:", "RequestedOn", 0, y, "dd mmm yy");
    line("Fixed Price:", "FixedPrice", 280, y, kMoneyMask, true);
    y += 14;
    line("Due Date:", "DueDate", 0, y, "dd mmm yy");
    line("Priority:", "Priority", 280, y);
    y += 14;
    line("Project Leader:", "LeaderName", 0, y);
    y += 20;
    const std::pair<const char*, std::pair<double, double>> headings[] = {
        {"Task Type", {0, 80}},  {"Task", {84, 170}},       {"Due", {258, 56}}, {"Done", {318, 30}},
        {"Employee", {352, 80}}, {"Est. Hours", {434, 58}}, {"Rate", {496, 44}}};
    for (const auto& [caption, at] : headings) {
        auto& heading = job.Add<TQRLabel>(caption);
        heading.SetBounds(at.first, y, at.second, 12);
        heading.Font.bold = true;
        if (at.first >= 434) heading.Alignment = Align::Right;
    }
    job.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, y + 12, kPortraitWidth, 6);

    TQRSubDetail& tasks = QuickReport.AddSubDetail(qryTasks, 12);
    auto text = [&tasks](const char* field, double left, double width) -> TQRDBText& {
        auto& t = tasks.Add<TQRDBText>(nullptr, field);
        t.SetBounds(left, 0, width, 12);
        return t;
    };
    text("TypeName", 0, 80);
    text("TaskName", 84, 170);
    text("DueDate", 258, 56).Mask = "dd mmm yy";
    text("DoneText", 318, 30);
    text("EmployeeName", 352, 80);
    auto& hours = text("EstimatedHours", 434, 58);
    hours.Mask = kHoursMask;
    hours.Alignment = Align::Right;
    auto& rate = text("RateOverride", 496, 44);
    rate.Mask = kMoneyMask;
    rate.Alignment = Align::Right;

    AddStandardPageFooter(QuickReport);
}

void TrptJob::Open() {
    for (store::Query* q : {&qryJob, &qryTasks}) {
        q->Close();
        q->ParamByName("SelectedJobID").SetAsInteger(jobId_);
        q->Open();
        q->First();
    }
}

} // namespace corvane::timebilling
