#include "timebilling/domain/TimeSheetRules.h"

#include "core/DateEntry.h"
#include "store/DataSet.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Query.h"
#include "store/Table.h"
#include "timebilling/domain/RecordValues.h"
#include "timebilling/domain/TimeTexts.h"

namespace corvane::timebilling {

namespace text = time_text;
using store::Value;

std::string JobListFilter(const Value& customerId, JobChoice choice) {
    if (customerId.IsNull()) return "CustomerID = null";
    std::string id = std::to_string(customerId.Int());
    if (choice == JobChoice::AnyJobOfCustomer) return "CustomerID = " + id;
    return "(CustomerID = " + id + ") AND (NOT Completed) AND (Authorized)";
}

std::string TaskListFilter(const Value& jobId) {
    if (jobId.IsNull()) return "JobID = null";
    return "JobID = " + std::to_string(jobId.Int());
}

namespace {

bool JobInList(store::Database& db, const Value& jobId, const Value& customerId, JobChoice choice) {
    std::string sql = "SELECT COUNT(*) AS n FROM Job WHERE JobID = :JobID AND "
                      "CustomerID = :CustomerID";
    if (choice == JobChoice::OpenJobsOfCustomer)
        sql += " AND (Completed IS NULL OR Completed = false) AND Authorized = true";
    store::Query q(db, sql);
    q.ParamByName("JobID").SetValue(jobId);
    q.ParamByName("CustomerID").SetValue(customerId);
    q.Open();
    return q.FieldByName("n").AsInteger() > 0;
}

} // namespace

Verdict CheckTimeSheet(store::Database& db, store::DataSet& ts, JobChoice choice) {
    if (!ts.FieldByName("InvoiceNo").IsNull()) return Verdict::Refuse(text::BilledCannotChange);
    struct Required {
        const char* Field;
        const char* Label;
    };
    auto missing = [&](Required r) { return ts.FieldByName(r.Field).IsNull(); };
    for (Required r :
         {Required{"EmployeeID", "Employee"}, Required{"WorkDate", "Work Date"},
          Required{"Hours", "Hours"}, Required{"CustomerID", "Customer"}, Required{"JobID", "Job"}})
        if (missing(r)) return Verdict::Refuse(text::MustHaveValue(r.Label), r.Field);
    const Value& customer = ts.FieldByName("CustomerID").AsValue();
    const Value& job = ts.FieldByName("JobID").AsValue();
    if (!JobInList(db, job, customer, choice))
        return Verdict::Refuse(text::JobNotForCustomer, "JobID");
    if (missing({"TaskID", "Task"})) return Verdict::Refuse(text::MustHaveValue("Task"), "TaskID");
    store::Query task(db, "SELECT TaskTypeID FROM Task WHERE TaskID = :TaskID AND JobID = :JobID");
    task.ParamByName("TaskID").SetValue(ts.FieldByName("TaskID").AsValue());
    task.ParamByName("JobID").SetValue(job);
    task.Open();
    if (task.IsEmpty()) return Verdict::Refuse(text::TaskNotForJob, "TaskID");
    if (task.FieldByName("TaskTypeID").IsNull())
        return Verdict::Refuse(text::TaskWithoutType, "TaskID");
    return Verdict::Accept();
}

std::string TimeSheetLabel(store::Database& db, store::DataSet& ts) {
    std::string label;
    const store::Field& date = ts.FieldByName("WorkDate");
    if (!date.IsNull()) label = DateToStr(date.AsDate());
    store::Query employee(db, "SELECT EmployeeName FROM Employee WHERE EmployeeID = :ID");
    employee.ParamByName("ID").SetValue(ts.FieldByName("EmployeeID").AsValue());
    employee.Open();
    return label + " " +
           (employee.IsEmpty() ? "" : employee.FieldByName("EmployeeName").AsString());
}

DeleteResult DeleteTimeSheet(store::Database& db, const std::vector<Value>& shown) {
    if (shown.empty()) return DeleteResult::AlreadyDeleted;
    const Value& id = shown.front(); // TimeSheetID leads the table
    store::Table row(db, "TimeSht");
    row.Open();
    if (!row.Locate("TimeSheetID", {id})) return DeleteResult::AlreadyDeleted;
    // The lock comes first: from here no billing run can stamp the row until it is gone.
    store::Transaction transaction(db, {"TimeSht"});
    try {
        row.Edit();
    } catch (const store::EngineError& e) {
        if (e.ErrorCode() != store::errRecordChanged) throw;
        return RowExists(db, "TimeSht", "TimeSheetID", id) ? DeleteResult::ChangedOrBilled
                                                           : DeleteResult::AlreadyDeleted;
    }
    bool same = row.FieldByName("InvoiceNo").IsNull();
    for (std::size_t i = 0; same && i < shown.size() && i < row.Fields().size(); ++i)
        same = row.Fields()[i]->AsValue() == shown[i];
    if (!same) {
        row.Cancel();
        return DeleteResult::ChangedOrBilled;
    }
    row.Delete();
    transaction.Commit();
    return DeleteResult::Deleted;
}

} // namespace corvane::timebilling
