#include "timebilling/domain/JobRules.h"

#include "store/DataSet.h"
#include "store/Database.h"
#include "store/Query.h"
#include "store/Table.h"
#include "timebilling/domain/NumberDraws.h"
#include "timebilling/domain/RecordValues.h"
#include "timebilling/domain/TimeTexts.h"

namespace corvane::timebilling {

namespace text = time_text;
using store::Value;

void StartNewJob(store::Database& db, store::DataSet& job, Date today, const DrawRetry& askRetry) {
    job.FieldByName("JobID").SetAsInteger(DrawJobId(db, askRetry));
    job.FieldByName("RequestedOn").SetAsDate(today);
    job.FieldByName("Priority").SetAsInteger(10);
    job.FieldByName("Authorized").SetAsBoolean(true);
    job.FieldByName("Completed").SetAsBoolean(false);
}

std::string DueDateEntered(const Value& dueDate) {
    return dueDate.IsNull() ? "B" : "A";
}

Verdict CheckJob(store::Database& db, store::DataSet& job) {
    const store::Field& customer = job.FieldByName("CustomerID");
    if (customer.IsNull()) return Verdict::Refuse(text::MustHaveValue("Customer"), "CustomerID");
    if (Blank(job.FieldByName("JobName")))
        return Verdict::Refuse(text::MustHaveValue("Job Name"), "JobName");
    job.FieldByName("DueDateEntered")
        .SetAsString(DueDateEntered(job.FieldByName("DueDate").AsValue()));
    if (!RowExists(db, "Customer", "CustomerID", customer.AsValue()))
        return Verdict::Refuse(text::CustomerGone, "CustomerID");
    return Verdict::Accept();
}

Verdict CheckCustomerChoice(store::Database& db, store::DataSet& job, const Value& customerId) {
    const Value& before = job.FieldByName("CustomerID").AsValue();
    const bool saved = job.State() != store::DataSetState::Insert;
    if (saved && !(customerId == before) &&
        RowExists(db, "TimeSht", "JobID", job.FieldByName("JobID").AsValue()))
        return Verdict::Refuse(text::CustomerLocked, "CustomerID");
    if (customerId.IsNull()) return Verdict::Accept();
    store::Query q(db, "SELECT CustomerNo, CustomerName, Suspended FROM Customer "
                       "WHERE CustomerID = :ID");
    q.ParamByName("ID").SetValue(customerId);
    q.Open();
    if (q.IsEmpty()) return Verdict::Refuse(text::CustomerNotFound, "CustomerID");
    if (q.FieldByName("Suspended").AsBoolean())
        return Verdict::Refuse(text::CustomerSuspended(q.FieldByName("CustomerNo").AsString(),
                                                       q.FieldByName("CustomerName").AsString()),
                               "CustomerID");
    return Verdict::Accept();
}

void StartNewTask(store::Database& db, store::DataSet& task, std::int64_t jobId,
                  std::int64_t lineNo, const DrawRetry& askRetry) {
    task.FieldByName("JobID").SetAsInteger(jobId);
    task.FieldByName("TaskID").SetAsInteger(DrawTaskId(db, askRetry));
    task.FieldByName("LineNo").SetAsInteger(lineNo);
    task.FieldByName("Completed").SetAsBoolean(false);
}

std::int64_t NextLineNo(store::Database& db, std::int64_t jobId) {
    store::Query q(db, "SELECT MAX(LineNo) AS LastLine FROM Task WHERE JobID = :JobID");
    q.ParamByName("JobID").SetAsInteger(jobId);
    q.Open();
    return q.FieldByName("LastLine").IsNull() ? 1 : q.FieldByName("LastLine").AsInteger() + 1;
}

Verdict CheckTask(store::Database& db, store::DataSet& task) {
    if (Blank(task.FieldByName("TaskName")))
        return Verdict::Refuse(text::TaskNameRequired, "TaskName");
    const Value& type = task.FieldByName("TaskTypeID").AsValue();
    if (type.IsNull()) {
        // A task may wait for its type until someone records time on it.
        if (RowExists(db, "TimeSht", "TaskID", task.FieldByName("TaskID").AsValue()))
            return Verdict::Refuse(text::TaskTypeRequiredByTime, "TaskTypeID");
        return Verdict::Accept();
    }
    if (!RowExists(db, "TaskType", "TaskTypeID", type))
        return Verdict::Refuse(text::TaskTypeGone, "TaskTypeID");
    return Verdict::Accept();
}

std::string TaskDeleteRefusal(store::Database& db, std::int64_t taskId, const std::string& name) {
    return RowExists(db, "TimeSht", "TaskID", Value(taskId)) ? text::TaskHasTime(name)
                                                             : std::string();
}

std::string JobDeleteRefusal(store::Database& db, std::int64_t jobId, const std::string& name) {
    return RowExists(db, "TimeSht", "JobID", Value(jobId)) ? text::JobHasTime(name) : std::string();
}

void DeleteJob(store::Database& db, std::int64_t jobId) {
    store::Transaction transaction(db, {"Job", "Task"});
    for (const char* sql :
         {"DELETE FROM Task WHERE JobID = :JobID", "DELETE FROM Job WHERE JobID = :JobID"}) {
        store::Query q(db, sql);
        q.ParamByName("JobID").SetAsInteger(jobId);
        q.ExecSQL();
    }
    transaction.Commit();
}

namespace {

std::optional<std::pair<std::int64_t, std::int64_t>>
Neighbour(store::Database& db, std::int64_t jobId, std::int64_t lineNo, int direction) {
    store::Query q(db, direction < 0 ? "SELECT TaskID, LineNo FROM Task WHERE JobID = :JobID AND "
                                       "LineNo < :LineNo ORDER BY LineNo DESC"
                                     : "SELECT TaskID, LineNo FROM Task WHERE JobID = :JobID AND "
                                       "LineNo > :LineNo ORDER BY LineNo");
    q.ParamByName("JobID").SetAsInteger(jobId);
    q.ParamByName("LineNo").SetAsInteger(lineNo);
    q.Open();
    if (q.IsEmpty()) return std::nullopt;
    return std::pair{q.FieldByName("TaskID").AsInteger(), q.FieldByName("LineNo").AsInteger()};
}

void SetLine(store::Database& db, std::int64_t jobId, std::int64_t from, std::int64_t to) {
    store::Query q(db, "UPDATE Task SET LineNo = :NewLine WHERE JobID = :JobID AND "
                       "LineNo = :OldLine");
    q.ParamByName("NewLine").SetAsInteger(to);
    q.ParamByName("JobID").SetAsInteger(jobId);
    q.ParamByName("OldLine").SetAsInteger(from);
    q.ExecSQL();
}

} // namespace

bool MoveTask(store::Database& db, std::int64_t jobId, std::int64_t lineNo, int direction) {
    auto other = Neighbour(db, jobId, lineNo, direction);
    if (!other) return false;
    // No line of a job stands below 0: the moving line waits there while the other takes its
    // place.
    constexpr std::int64_t kWaiting = -1;
    store::Transaction transaction(db, {"Task"});
    SetLine(db, jobId, lineNo, kWaiting);
    SetLine(db, jobId, other->second, lineNo);
    SetLine(db, jobId, kWaiting, other->second);
    transaction.Commit();
    return true;
}

const std::vector<std::string>& CopiedJobFields() {
    static const std::vector<std::string> fields{
        "JobName",         "Notes",          "CustomerID",   "RequestedBy",
        "ProjectLeaderID", "EstimatedPrice", "MaximumPrice", "FixedPrice"};
    return fields;
}

void CopyTasks(store::Database& db, std::int64_t fromJobId, std::int64_t toJobId) {
    store::Query source(db, "SELECT * FROM Task WHERE JobID = :JobID ORDER BY LineNo");
    source.ParamByName("JobID").SetAsInteger(fromJobId);
    source.Open();
    store::Transaction transaction(db, {"JobCtl", "Task"});
    store::Table tasks(db, "Task");
    tasks.Open();
    for (; !source.Eof(); source.Next()) {
        tasks.Append();
        StartNewTask(db, tasks, toJobId, source.FieldByName("LineNo").AsInteger());
        for (const char* field :
             {"TaskName", "TaskTypeID", "Notes", "EmployeeID", "EstimatedHours", "RateOverride"})
            tasks.FieldByName(field).SetValue(source.FieldByName(field).AsValue());
        tasks.Post();
    }
    transaction.Commit();
}

TaskSnapshot TaskSnapshot::Take(store::Database& db, std::int64_t jobId) {
    TaskSnapshot snapshot;
    snapshot.jobId_ = jobId;
    store::Table tasks(db, "Task");
    tasks.SetIndexName("JobIDLineNo");
    tasks.Open();
    tasks.SetRange({Value(jobId)}, {Value(jobId)});
    for (; !tasks.Eof(); tasks.Next()) {
        std::vector<Value> row;
        for (const auto& field : tasks.Fields())
            row.push_back(field->AsValue());
        snapshot.rows_.push_back(std::move(row));
    }
    return snapshot;
}

void TaskSnapshot::Restore(store::Database& db) const {
    store::Transaction transaction(db, {"Task"});
    store::Query drop(db, "DELETE FROM Task WHERE JobID = :JobID");
    drop.ParamByName("JobID").SetAsInteger(jobId_);
    drop.ExecSQL();
    store::Table tasks(db, "Task");
    tasks.Open();
    for (const auto& row : rows_) {
        tasks.Append();
        for (std::size_t i = 0; i < row.size(); ++i)
            tasks.Fields()[i]->SetValue(row[i]);
        tasks.Post();
    }
    transaction.Commit();
}

} // namespace corvane::timebilling
