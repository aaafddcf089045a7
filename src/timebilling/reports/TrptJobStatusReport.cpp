#include "timebilling/reports/TrptJobStatusReport.h"

#include "reports/engine/TQRLabel.h"

namespace corvane::timebilling {

namespace {
constexpr double TaskLeft = 20, DueLeft = 250, DoneLeft = 310, EstimatedLeft = 340, HoursLeft = 420;
constexpr const char* kPriceMask = "#,###,##0.00;(#,###,##0.00)";
} // namespace

std::string TrptJobStatusReport::Statement(const TimeReportOptions& options) {
    // The time's own conditions go into its join, so that a task without time in the dates
    // still shows with its estimate; the customer narrows the jobs.
    TimeReportOptions time = options;
    time.CustomerID.reset();
    return "SELECT J.JobID, J.JobName, J.Priority, J.DueDate, J.DueDateEntered, "
           "J.EstimatedPrice, J.MaximumPrice, J.FixedPrice, C.CustomerName, K.TaskID, K.LineNo, "
           "K.TaskName, K.DueDate TaskDueDate, K.Completed TaskCompleted, K.EstimatedHours, "
           "SUM(TS.Hours) TotalHours FROM Job J "
           "LEFT OUTER JOIN Customer C ON J.CustomerID = C.CustomerID "
           "LEFT OUTER JOIN Task K ON K.JobID = J.JobID "
           "LEFT OUTER JOIN TimeSht TS ON TS.TaskID = K.TaskID" +
           TimeConditions(time, "TS", true) + " WHERE (J.Completed <> true)" +
           (options.CustomerID ? " AND (J.CustomerID = :CustomerID)" : "") +
           " GROUP BY J.JobID, J.JobName, J.Priority, J.DueDate, J.DueDateEntered, "
           "J.EstimatedPrice, J.MaximumPrice, J.FixedPrice, C.CustomerName, K.TaskID, K.LineNo, "
           "K.TaskName, K.DueDate, K.Completed, K.EstimatedHours"
           " ORDER BY J.Priority, J.DueDateEntered, J.DueDate, J.JobID, K.LineNo";
}

TrptJobStatusReport::TrptJobStatusReport(store::Database& db, TimeReportOptions options)
    : TimeReport(db, options, "Job Status Report", Statement(options)) {
    using namespace reports;
    qryTime.AddCalculatedField("DoneText", store::FieldType::String, 4);
    qryTime.OnCalcFields = [](store::DataSet& ds) {
        const store::Field& done = ds.FieldByName("TaskCompleted");
        ds.FieldByName("DoneText").SetAsString(!done.IsNull() && done.AsBoolean() ? "Yes" : "");
    };
    TQRBand& columns = Columns();
    Heading(columns, "Task", TaskLeft, 226);
    Heading(columns, "Due", DueLeft, 56);
    Heading(columns, "Done", DoneLeft, 28);
    Heading(columns, "Est. Hours", EstimatedLeft, HoursWidth, true);
    Heading(columns, "Total Hours", HoursLeft, HoursWidth, true);

    TQRGroup& job = QuickReport.AddGroup("JobID", 44);
    Text(job, "JobName", 0, 300, 4).Font.bold = true;
    Text(job, "CustomerName", 310, 230, 4);
    auto label = [&job](const char* caption, double left, double top) {
        job.Add<TQRLabel>(caption).SetBounds(left, top, 60, 12);
    };
    label("Priority:", 20, 16);
    Text(job, "Priority", 80, 30, 16);
    label("Due:", 130, 16);
    Text(job, "DueDate", 160, 60, 16).Mask = "dd mmm yy";
    double left = 20;
    for (auto [caption, field] :
         {std::pair{"Estimated:", "EstimatedPrice"}, std::pair{"Maximum:", "MaximumPrice"},
          std::pair{"Fixed:", "FixedPrice"}}) {
        label(caption, left, 28);
        auto& price = Text(job, field, left + 60, 80, 28);
        price.Alignment = Align::Right;
        price.Mask = kPriceMask;
        left += 170;
    }

    TQRBand& footer = job.FooterBand(20);
    for (auto [field, at] :
         {std::pair{"EstimatedHours", EstimatedLeft}, std::pair{"TotalHours", HoursLeft}}) {
        auto& total = footer.Add<TQRExpr>(std::string("SUM(") + field + ")");
        total.SetBounds(at, 4, HoursWidth, 12);
        total.Alignment = Align::Right;
        total.Mask = kHoursMask;
        total.ResetAfterPrint = true;
    }

    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    Text(detail, "TaskName", TaskLeft, 226);
    Text(detail, "TaskDueDate", DueLeft, 56).Mask = "dd mmm yy";
    Text(detail, "DoneText", DoneLeft, 28);
    Hours(detail, "EstimatedHours", EstimatedLeft);
    Hours(detail, "TotalHours", HoursLeft);
}

} // namespace corvane::timebilling
