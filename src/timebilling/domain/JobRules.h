#pragma once

#include "core/Date.h"
#include "store/Value.h"
#include "timebilling/domain/NumberDraws.h"
#include "timebilling/domain/Verdict.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::timebilling {

// A job and its tasks. The job is one record of Job; its tasks are rows of Task written as they
// are typed, each with its place on the job in LineNo.

// A new job: its number from JobCtl, asked for today, priority 10, authorized, not completed.
void StartNewJob(store::Database& db, store::DataSet& job, Date today,
                 const DrawRetry& askRetry = {});

// Customer, name, then the due-date sort helper, then the customer's existence; in that order.
Verdict CheckJob(store::Database& db, store::DataSet& job);

// The due-date sort helper: "A" with a due date, "B" without, so dated jobs sort first.
std::string DueDateEntered(const store::Value& dueDate);

// A customer chosen on a job: a saved job with time keeps its customer, and the customer must be
// known and not suspended.
Verdict CheckCustomerChoice(store::Database& db, store::DataSet& job,
                            const store::Value& customerId);

// A new task line of job: its number from JobCtl, the next place on the job, not done.
void StartNewTask(store::Database& db, store::DataSet& task, std::int64_t jobId,
                  std::int64_t lineNo, const DrawRetry& askRetry = {});
// The place after the last task of the job, or 1.
std::int64_t NextLineNo(store::Database& db, std::int64_t jobId);

// Name; a type where time was recorded; a type that exists.
Verdict CheckTask(store::Database& db, store::DataSet& task);

// Why a task or a job may not go, or empty when it may.
std::string TaskDeleteRefusal(store::Database& db, std::int64_t taskId, const std::string& name);
std::string JobDeleteRefusal(store::Database& db, std::int64_t jobId, const std::string& name);

// The job and all its tasks, in one transaction.
void DeleteJob(store::Database& db, std::int64_t jobId);

// Swaps the task at lineNo with its neighbour above (direction -1) or below (+1) by way of a
// temporary place, in one transaction. False at the top or bottom, where nothing moves.
bool MoveTask(store::Database& db, std::int64_t jobId, std::int64_t lineNo, int direction);

// The fields a copied job takes from its source; due dates and completion are not copied.
const std::vector<std::string>& CopiedJobFields();
// Copies every task of one job to another with new numbers and the same places; due dates and
// Done stay behind. One transaction.
void CopyTasks(store::Database& db, std::int64_t fromJobId, std::int64_t toJobId);

// The task rows of a job as they stand, to put back when the job form is cancelled.
class TaskSnapshot {
public:
    static TaskSnapshot Take(store::Database& db, std::int64_t jobId);
    // The job's tasks become exactly the rows taken: added lines go, changed and deleted lines
    // come back. One transaction.
    void Restore(store::Database& db) const;
    std::int64_t JobId() const { return jobId_; }
    std::size_t Size() const { return rows_.size(); }

private:
    std::int64_t jobId_ = 0;
    std::vector<std::vector<store::Value>> rows_;
};

} // namespace corvane::timebilling
