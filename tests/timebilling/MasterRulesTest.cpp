#include "timebilling/domain/MasterRules.h"
#include "store/Table.h"
#include "timebilling/TimeBillingFixture.h"

using namespace corvane;
using namespace corvane::timebilling;

namespace {

class MasterRulesTest : public corvane::testing::TimeBillingTest {
protected:
    void SetUp() override {
        TimeBillingTest::SetUp();
        AddMasters();
    }
    // A task type in insert with the given fields, checked.
    std::string CheckType(const std::string& name, std::optional<int> account,
                          const std::string& codes) {
        store::Table t(db_, "TaskType");
        t.SetDrawnKey("TaskTypeID");
        t.Open();
        t.Append();
        if (!name.empty()) t.FieldByName("TypeName").SetAsString(name);
        if (account) t.FieldByName("SalesGLAccountID").SetAsInteger(*account);
        t.FieldByName("TaxCodes").SetAsString(codes);
        Verdict v = CheckTaskType(db_, t);
        if (v.Accepted())
            t.Post();
        else
            t.Cancel();
        return v.Message;
    }
};

} // namespace

TEST_F(MasterRulesTest, TaskTypeChecksInOrder) {
    EXPECT_EQ(CheckType("", {}, "GX"), "Field 'Type Name' must have a value");
    EXPECT_EQ(CheckType("Design", {}, "GX"), "Field 'Sales GL Account' must have a value");
    EXPECT_EQ(CheckType("Design", 99, "GX"), "GL Account no longer exists");
    EXPECT_EQ(CheckType("Design", 40, "GX"), "Tax Code 'X' does not exist on any taxes");
    EXPECT_EQ(CheckType("Design", 40, "GG"), "Tax Code 'G' occurs more than once");
    EXPECT_EQ(CountRows("TaskType"), 0);
    EXPECT_EQ(CheckType("Design", 40, "pg"), "");
    EXPECT_EQ(Scalar("SELECT TaskTypeID FROM TaskType"), "1");
    EXPECT_EQ(CheckType("Travel", 40, "   "), "");
    EXPECT_EQ(Scalar("SELECT MAX(TaskTypeID) FROM TaskType"), "2");
}

TEST_F(MasterRulesTest, TaxCodesAreUpperCaseLettersWithoutBlanks) {
    EXPECT_EQ(NormalTaxCodes("pg "), "PG");
    EXPECT_EQ(NormalTaxCodes("   "), "");
    EXPECT_EQ(NormalTaxCodes("abcd"), "ABC");
}

TEST_F(MasterRulesTest, TaskTypeInUseByATaskCannotGo) {
    AddTaskType(3, "Design", Money::FromWhole(90), "G");
    AddTaskType(4, "Travel", Money::FromWhole(40), "");
    AddCustomer(1, "C1", "Acme");
    AddJob(1, 1, "Site");
    AddTask(1, 1, 1, "Draw", 3);
    EXPECT_EQ(TaskTypeDeleteRefusal(db_, 3, "Design"),
              "Unable to delete 'Design'...\nTask(s) exist for this task type");
    EXPECT_EQ(TaskTypeDeleteRefusal(db_, 4, "Travel"), "");
}

TEST_F(MasterRulesTest, EmployeeNeedsANameAndTakesTheNextId) {
    store::Table t(db_, "Employee");
    t.SetDrawnKey("EmployeeID");
    t.Open();
    t.Append();
    t.FieldByName("EmployeeName").SetAsString("  ");
    Verdict v = CheckEmployee(db_, t);
    EXPECT_EQ(v.Message, "Field 'Employee Name' must have a value");
    EXPECT_EQ(v.Field, "EmployeeName");
    t.FieldByName("EmployeeName").SetAsString("Cy Dunn");
    EXPECT_TRUE(CheckEmployee(db_, t).Accepted());
    t.Post();
    EXPECT_EQ(t.FieldByName("EmployeeID").AsInteger(), 3);
}
