#include "timebilling/domain/JobRules.h"
#include "store/Table.h"
#include "timebilling/TimeBillingFixture.h"
#include "timebilling/domain/NumberDraws.h"

using namespace corvane;
using namespace corvane::timebilling;

namespace {

class JobRulesTest : public corvane::testing::TimeBillingTest {
protected:
    void SetUp() override {
        TimeBillingTest::SetUp();
        AddMasters();
        AddCustomer(1, "C1", "Acme");
        AddTaskType(1, "Design", Money::FromWhole(90), "G");
    }
    std::string Lines(int job) {
        store::Query q(db_, "SELECT TaskName FROM Task WHERE JobID = :J ORDER BY LineNo");
        q.ParamByName("J").SetAsInteger(job);
        q.Open();
        std::string names;
        for (; !q.Eof(); q.Next())
            names += (names.empty() ? "" : ",") + q.FieldByName("TaskName").AsString();
        return names;
    }
};

} // namespace

TEST_F(JobRulesTest, NumbersComeFromJobCtlAndAZeroCounterStartsAtOne) {
    InsertRow("JobCtl", {{"NextJobID", 0}, {"NextTaskID", 7}});
    EXPECT_EQ(DrawJobId(db_), 1);
    EXPECT_EQ(DrawJobId(db_), 2);
    EXPECT_EQ(DrawTaskId(db_), 7);
    EXPECT_EQ(Scalar("SELECT NextJobID FROM JobCtl"), "3");
    EXPECT_EQ(Scalar("SELECT NextTaskID FROM JobCtl"), "8");
}

TEST_F(JobRulesTest, NewJobDefaultsThenChecksInOrder) {
    store::Table job(db_, "Job");
    job.Open();
    job.Append();
    StartNewJob(db_, job, Date::FromYmd(2017, 3, 1));
    EXPECT_EQ(job.FieldByName("JobID").AsInteger(), 1);
    EXPECT_EQ(job.FieldByName("Priority").AsInteger(), 10);
    EXPECT_TRUE(job.FieldByName("Authorized").AsBoolean());
    EXPECT_FALSE(job.FieldByName("Completed").AsBoolean());
    EXPECT_TRUE(job.FieldByName("DueDateEntered").IsNull());
    EXPECT_EQ(CheckJob(db_, job).Message, "Field 'Customer' must have a value");
    job.FieldByName("CustomerID").SetAsInteger(9);
    EXPECT_EQ(CheckJob(db_, job).Message, "Field 'Job Name' must have a value");
    job.FieldByName("JobName").SetAsString("Renovation");
    EXPECT_EQ(CheckJob(db_, job).Message, "Customer no longer exists");
    EXPECT_EQ(job.FieldByName("DueDateEntered").AsString(), "B");
    job.FieldByName("CustomerID").SetAsInteger(1);
    job.FieldByName("DueDate").SetAsDate(Date::FromYmd(2017, 4, 1));
    EXPECT_TRUE(CheckJob(db_, job).Accepted());
    EXPECT_EQ(job.FieldByName("DueDateEntered").AsString(), "A");
}

TEST_F(JobRulesTest, JobsWithoutDueDateSortAfterDatedOnesInBothIndexes) {
    InsertRow("Job", {{"JobID", 1},
                      {"JobName", "Undated"},
                      {"CustomerID", 1},
                      {"Priority", 1},
                      {"DueDateEntered", "B"}});
    InsertRow("Job", {{"JobID", 2},
                      {"JobName", "Late"},
                      {"CustomerID", 1},
                      {"Priority", 1},
                      {"DueDateEntered", "A"},
                      {"DueDate", Date::FromYmd(2017, 9, 1)}});
    InsertRow("Job", {{"JobID", 3},
                      {"JobName", "Soon"},
                      {"CustomerID", 1},
                      {"Priority", 1},
                      {"DueDateEntered", "A"},
                      {"DueDate", Date::FromYmd(2017, 2, 1)}});
    for (const char* index : {"PriorityDueDate", "DueDatePriority"}) {
        store::Table t(db_, "Job");
        t.SetIndexName(index);
        t.Open();
        std::string order;
        for (; !t.Eof(); t.Next())
            order += t.FieldByName("JobName").AsString() + ";";
        EXPECT_EQ(order, "Soon;Late;Undated;") << index;
    }
}

TEST_F(JobRulesTest, CustomerOfAJobWithTimeStaysAndMustBeKnownAndActive) {
    AddCustomer(2, "C2", "Bolt");
    InsertRow("Customer", {{"CustomerID", 3},
                           {"CustomerNo", "C3"},
                           {"CustomerName", "Gone Ltd"},
                           {"Suspended", true}});
    AddJob(1, 1, "Site");
    AddTask(1, 1, 1, "Draw", 1);
    store::Table job(db_, "Job");
    job.Open();
    ASSERT_TRUE(job.Locate("JobID", {1}));
    EXPECT_TRUE(CheckCustomerChoice(db_, job, store::Value(2)).Accepted());
    EXPECT_EQ(CheckCustomerChoice(db_, job, store::Value(8)).Message, "Customer not found");
    EXPECT_EQ(CheckCustomerChoice(db_, job, store::Value(3)).Message,
              "Customer 'C3: Gone Ltd' has been suspended");
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 2);
    EXPECT_EQ(CheckCustomerChoice(db_, job, store::Value(2)).Message,
              "Customer cannot be changed... \nTime Sheet(s) already exist");
    EXPECT_TRUE(CheckCustomerChoice(db_, job, store::Value(1)).Accepted());
}

TEST_F(JobRulesTest, TaskChecksAndTheTypeTimeRequires) {
    AddJob(1, 1, "Site");
    AddTask(5, 1, 1, "Draw", {});
    store::Table task(db_, "Task");
    task.Open();
    ASSERT_TRUE(task.Locate("TaskID", {5}));
    task.Edit();
    task.FieldByName("TaskName").SetAsString("");
    EXPECT_EQ(CheckTask(db_, task).Message,
              "Field 'Task Name' must have a value...\nMake changes or press Esc to undo");
    task.FieldByName("TaskName").SetAsString("Draw");
    EXPECT_TRUE(CheckTask(db_, task).Accepted()); // no type yet, no time yet
    AddTime(1, 1, 5, 1, Date::FromYmd(2017, 3, 1), 2);
    EXPECT_EQ(CheckTask(db_, task).Message,
              "Field 'Task Type' must have a value...\nTime Sheet(s) exist.\nMake changes or "
              "press Esc to undo");
    task.FieldByName("TaskTypeID").SetAsInteger(9);
    EXPECT_EQ(CheckTask(db_, task).Message, "Task Type no longer exists");
    task.FieldByName("TaskTypeID").SetAsInteger(1);
    EXPECT_TRUE(CheckTask(db_, task).Accepted());
    task.Cancel();
    EXPECT_EQ(TaskDeleteRefusal(db_, 5, "Draw"),
              "Unable to delete task 'Draw'...\nTime Sheet(s) exist");
}

TEST_F(JobRulesTest, MovingSwapsWithTheNeighbourAndStopsAtTheEnds) {
    AddJob(1, 1, "Site");
    AddTask(1, 1, 1, "A", 1);
    AddTask(2, 1, 2, "B", 1);
    AddTask(3, 1, 5, "C", 1); // places need not follow one another
    AddJob(2, 1, "Other");
    AddTask(4, 2, 3, "Z", 1);
    EXPECT_FALSE(MoveTask(db_, 1, 1, -1));
    EXPECT_FALSE(MoveTask(db_, 1, 5, +1));
    EXPECT_EQ(Lines(1), "A,B,C");
    EXPECT_TRUE(MoveTask(db_, 1, 5, -1));
    EXPECT_EQ(Lines(1), "A,C,B");
    EXPECT_TRUE(MoveTask(db_, 1, 1, +1));
    EXPECT_EQ(Lines(1), "C,A,B");
    EXPECT_EQ(Scalar("SELECT LineNo FROM Task WHERE TaskID = 2"), "5");
    EXPECT_EQ(Lines(2), "Z"); // another job's lines never move
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM Task WHERE LineNo < 0"), "0");
}

TEST_F(JobRulesTest, CopiedTasksTakeNewNumbersAndLeaveDueDatesAndDoneBehind) {
    InsertRow("JobCtl", {{"NextJobID", 10}, {"NextTaskID", 50}});
    AddJob(1, 1, "Site");
    InsertRow("Task", {{"TaskID", 1},
                       {"JobID", 1},
                       {"LineNo", 1},
                       {"TaskName", "Draw"},
                       {"TaskTypeID", 1},
                       {"Completed", true},
                       {"DueDate", Date::FromYmd(2017, 5, 1)},
                       {"RateOverride", Money::FromWhole(0)},
                       {"EstimatedHours", 3.5}});
    AddTask(2, 1, 2, "Build", {});
    CopyTasks(db_, 1, 10);
    EXPECT_EQ(Lines(10), "Draw,Build");
    store::Query q(db_, "SELECT * FROM Task WHERE JobID = 10 ORDER BY LineNo");
    q.Open();
    EXPECT_EQ(q.FieldByName("TaskID").AsInteger(), 50);
    EXPECT_TRUE(q.FieldByName("DueDate").IsNull());
    EXPECT_FALSE(q.FieldByName("Completed").AsBoolean());
    EXPECT_FALSE(q.FieldByName("RateOverride").IsNull()); // an override of 0 is an override
    EXPECT_EQ(q.FieldByName("EstimatedHours").AsFloat(), 3.5);
    EXPECT_EQ(Lines(1), "Draw,Build");
}

TEST_F(JobRulesTest, SnapshotPutsBackChangedDeletedAndAddedLines) {
    AddJob(1, 1, "Site");
    AddTask(1, 1, 1, "A", 1);
    AddTask(2, 1, 2, "B", 1);
    TaskSnapshot snapshot = TaskSnapshot::Take(db_, 1);
    EXPECT_EQ(snapshot.Size(), 2u);
    MoveTask(db_, 1, 1, +1);
    {
        store::Query q(db_, "DELETE FROM Task WHERE TaskID = 1");
        q.ExecSQL();
    }
    AddTask(3, 1, 3, "C", 1);
    EXPECT_EQ(Lines(1), "B,C");
    snapshot.Restore(db_);
    EXPECT_EQ(Lines(1), "A,B");
    EXPECT_EQ(Scalar("SELECT LineNo FROM Task WHERE TaskID = 2"), "2");
}

TEST_F(JobRulesTest, AJobWithTimeStaysElseItGoesWithItsTasks) {
    AddJob(1, 1, "Site");
    AddTask(1, 1, 1, "A", 1);
    AddJob(2, 1, "Shop");
    AddTask(2, 2, 1, "B", 1);
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 1);
    EXPECT_EQ(JobDeleteRefusal(db_, 1, "Site"),
              "Unable to delete job 'Site'...\nTime Sheet(s) exist");
    EXPECT_EQ(JobDeleteRefusal(db_, 2, "Shop"), "");
    DeleteJob(db_, 2);
    EXPECT_EQ(CountRows("Job"), 1);
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM Task WHERE JobID = 2"), "0");
    EXPECT_EQ(CountRows("Task"), 1);
}

TEST_F(JobRulesTest, NextLineFollowsTheLastLineOfTheJob) {
    AddJob(1, 1, "Site");
    EXPECT_EQ(NextLineNo(db_, 1), 1);
    AddTask(1, 1, 4, "A", 1);
    EXPECT_EQ(NextLineNo(db_, 1), 5);
}
