#include "timebilling/domain/TimeSheetRules.h"
#include "store/Table.h"
#include "timebilling/TimeBillingFixture.h"

using namespace corvane;
using namespace corvane::timebilling;

namespace {

class TimeSheetRulesTest : public corvane::testing::TimeBillingTest {
protected:
    void SetUp() override {
        TimeBillingTest::SetUp();
        AddMasters();
        AddCustomer(1, "C1", "Acme");
        AddCustomer(2, "C2", "Bolt");
        AddTaskType(1, "Design", Money::FromWhole(90), "G");
        AddJob(1, 1, "Site");
        AddJob(2, 2, "Shop");
        AddJob(3, 1, "Closed", true, true);
        AddTask(1, 1, 1, "Draw", 1);
        AddTask(2, 1, 2, "Untyped", {});
        AddTask(3, 2, 1, "Weld", 1);
        AddTask(4, 3, 1, "Old", 1);
    }
};

} // namespace

TEST_F(TimeSheetRulesTest, NineChecksInOrder) {
    store::Table ts(db_, "TimeSht");
    ts.Open();
    ts.Append();
    auto check = [&] { return CheckTimeSheet(db_, ts, JobChoice::OpenJobsOfCustomer); };
    auto set = [&](const char* field, store::Value v) { ts.FieldByName(field).SetValue(v); };
    EXPECT_EQ(check().Message, "Field 'Employee' must have a value");
    set("EmployeeID", 1);
    EXPECT_EQ(check().Message, "Field 'Work Date' must have a value");
    set("WorkDate", Date::FromYmd(2017, 3, 1));
    EXPECT_EQ(check().Message, "Field 'Hours' must have a value");
    set("Hours", 0.0); // zero hours are hours
    EXPECT_EQ(check().Message, "Field 'Customer' must have a value");
    set("CustomerID", 1);
    EXPECT_EQ(check().Message, "Field 'Job' must have a value");
    set("JobID", 2); // another customer's job
    EXPECT_EQ(check().Message, "Job no longer exists or is not for selected customer");
    set("JobID", 3); // completed
    EXPECT_EQ(check().Message, "Job no longer exists or is not for selected customer");
    set("JobID", 1);
    Verdict v = check();
    EXPECT_EQ(v.Message, "Field 'Task' must have a value");
    EXPECT_EQ(v.Field, "TaskID");
    set("TaskID", 3); // a task of another job
    EXPECT_EQ(check().Message, "Task no longer exists or is not for selected job");
    set("TaskID", 2);
    EXPECT_EQ(check().Message, "Task Type has not been entered on this job task...\nTask Type is "
                               "required for invoicing info");
    set("TaskID", 1);
    EXPECT_TRUE(check().Accepted());
    ts.Post();
    EXPECT_EQ(CountRows("TimeSht"), 1);
}

TEST_F(TimeSheetRulesTest, AnEditedRowKeepsItsFinishedJobUntilTheCustomerIsChosenAgain) {
    store::Table ts(db_, "TimeSht");
    ts.Open();
    ts.Append();
    for (auto [f, v] :
         std::vector<std::pair<const char*, store::Value>>{{"EmployeeID", 1},
                                                           {"WorkDate", Date::FromYmd(2017, 3, 1)},
                                                           {"Hours", 1.0},
                                                           {"CustomerID", 1},
                                                           {"JobID", 3},
                                                           {"TaskID", 4}})
        ts.FieldByName(f).SetValue(v);
    EXPECT_TRUE(CheckTimeSheet(db_, ts, JobChoice::AnyJobOfCustomer).Accepted());
    EXPECT_FALSE(CheckTimeSheet(db_, ts, JobChoice::OpenJobsOfCustomer).Accepted());
    EXPECT_EQ(JobListFilter(store::Value(1), JobChoice::OpenJobsOfCustomer),
              "(CustomerID = 1) AND (NOT Completed) AND (Authorized)");
    EXPECT_EQ(JobListFilter(store::Value(), JobChoice::OpenJobsOfCustomer), "CustomerID = null");
    EXPECT_EQ(TaskListFilter(store::Value()), "JobID = null");
}

TEST_F(TimeSheetRulesTest, ABilledRowIsRefusedBeforeAnyCheck) {
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 2, "10001");
    store::Table ts(db_, "TimeSht");
    ts.Open();
    ts.Edit();
    ts.FieldByName("EmployeeID").Clear();
    EXPECT_EQ(CheckTimeSheet(db_, ts, JobChoice::AnyJobOfCustomer).Message,
              "Billed time sheets cannot be changed.");
}

TEST_F(TimeSheetRulesTest, DeleteLocksThenComparesWithWhatTheListShowed) {
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 2);
    AddTime(1, 1, 1, 2, Date::FromYmd(2017, 3, 2), 3);
    AddTime(1, 1, 1, 2, Date::FromYmd(2017, 3, 3), 4);
    auto shown = [&](int id) {
        store::Table t(db_, "TimeSht");
        t.Open();
        EXPECT_TRUE(t.Locate("TimeSheetID", {id}));
        std::vector<store::Value> row;
        for (const auto& f : t.Fields())
            row.push_back(f->AsValue());
        return row;
    };
    auto first = shown(1), second = shown(2), third = shown(3);
    auto exec = [&](const char* sql) {
        store::Query q(db_, sql);
        q.ExecSQL();
    };
    exec("UPDATE TimeSht SET InvoiceNo = '10001' WHERE TimeSheetID = 2"); // billed meanwhile
    exec("UPDATE TimeSht SET Hours = 5 WHERE TimeSheetID = 3");           // changed meanwhile
    EXPECT_EQ(DeleteTimeSheet(db_, second), DeleteResult::ChangedOrBilled);
    EXPECT_EQ(DeleteTimeSheet(db_, third), DeleteResult::ChangedOrBilled);
    EXPECT_EQ(DeleteTimeSheet(db_, first), DeleteResult::Deleted);
    EXPECT_EQ(DeleteTimeSheet(db_, first), DeleteResult::AlreadyDeleted);
    EXPECT_EQ(CountRows("TimeSht"), 2);
}

TEST_F(TimeSheetRulesTest, AnEmployeeOnTimeSheetsCanGoAndTheRowShowsNoName) {
    AddTime(1, 1, 1, 2, Date::FromYmd(2017, 3, 1), 2);
    store::Table ts(db_, "TimeSht");
    ts.Open();
    EXPECT_EQ(TimeSheetLabel(db_, ts), "3/1/2017 Bob Roy");
    store::Query drop(db_, "DELETE FROM Employee WHERE EmployeeID = 2");
    drop.ExecSQL();
    EXPECT_EQ(TimeSheetLabel(db_, ts), "3/1/2017 ");
}
