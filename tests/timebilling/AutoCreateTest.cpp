#include "timebilling/domain/AutoCreate.h"
#include "core/Exception.h"
#include "timebilling/TimeBillingFixture.h"

using namespace corvane;
using namespace corvane::timebilling;

namespace {

class AutoCreateTest : public corvane::testing::TimeBillingTest {
protected:
    void SetUp() override {
        TimeBillingTest::SetUp();
        AddMasters();
        AddCustomer(1, "C1", "Acme", 1, 2);
        AddCustomer(2, "C2", "Bolt", 1, 2, "EX-77"); // exempt from GST
        AddTaskType(1, "Design", Money::FromWhole(90), "GP");
        AddTaskType(2, "Travel", Money::FromWhole(40), "G");
        AddJob(1, 1, "Acme site");
        AddJob(2, 2, "Bolt shop");
        AddTask(1, 1, 1, "Draw", 1);
        AddTask(2, 1, 2, "Drive", 2);
        AddTask(3, 2, 1, "Weld", 1);
        AddTask(4, 2, 2, "Untyped", {});
    }
    AutoCreateRequest Request() {
        AutoCreateRequest r;
        r.CutOff = Date::FromYmd(2017, 3, 31);
        r.InvoiceDate = Date::FromYmd(2017, 4, 1);
        r.GLYear = 2017;
        r.GLPeriod = 4;
        return r;
    }
    AutoCreateResult Run(const AutoCreateRequest& r) {
        AutoCreateRun run(db_);
        return run.Run(r, nullptr);
    }
};

} // namespace

TEST_F(AutoCreateTest, TwoCustomersThreeTasksUpToTheCutOff) {
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 2);
    AddTime(1, 1, 1, 2, Date::FromYmd(2017, 3, 2), 1.5);
    AddTime(1, 1, 2, 1, Date::FromYmd(2017, 3, 3), 1);
    AddTime(2, 2, 3, 2, Date::FromYmd(2017, 3, 4), 4);
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 4, 2), 7); // after the cut-off, on a billed task
    AddTime(2, 2, 4, 1, Date::FromYmd(2017, 3, 5), 3); // a task without a type
    AutoCreateResult result = Run(Request());
    EXPECT_EQ(result.InvoicesMade, 2);
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM ARInvDet"), "3");
    // Acme: 3.5 h at 90 (GP) and 1 h at 40 (G): G 355, P 315; GST 17.75, PST 25.20.
    EXPECT_EQ(Scalar("SELECT InvoiceNo FROM ARInv WHERE CustomerID = 1"), "10001");
    EXPECT_EQ(Scalar("SELECT InvoiceAmount FROM ARInv WHERE CustomerID = 1"), "397.95");
    EXPECT_EQ(Scalar("SELECT Quantity FROM ARInvDet WHERE TaskID = 1"), "3.5");
    EXPECT_EQ(Scalar("SELECT Seq FROM ARInvDet WHERE TaskID = 2"), "2");
    EXPECT_EQ(Scalar("SELECT ItemID FROM ARInvDet WHERE TaskID = 2"), "");
    EXPECT_EQ(Scalar("SELECT TaxCodes FROM ARInvDet WHERE TaskID = 2"), "G");
    // Bolt is exempt from GST: no tax 1, but its bucket fills; PST 8% of 360.
    EXPECT_EQ(Scalar("SELECT InvoiceNo FROM ARInv WHERE CustomerID = 2"), "10002");
    EXPECT_EQ(Scalar("SELECT Tax1ID FROM ARInv WHERE CustomerID = 2"), "");
    EXPECT_EQ(Scalar("SELECT TaxableAmount1 FROM ARInv WHERE CustomerID = 2"), "360");
    EXPECT_EQ(Scalar("SELECT InvoiceAmount FROM ARInv WHERE CustomerID = 2"), "388.8");
    EXPECT_EQ(Scalar("SELECT Owing FROM ARInv WHERE CustomerID = 2"), "388.8");
    EXPECT_EQ(Scalar("SELECT TimeInvoice FROM ARInv WHERE CustomerID = 2"), "True");
    // The stamps: everything billed carries its invoice; the late row and the untyped task not.
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM TimeSht WHERE InvoiceNo = '10001'"), "3");
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM TimeSht WHERE InvoiceNo = '10002'"), "1");
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM TimeSht WHERE InvoiceNo IS NULL"), "2");
    EXPECT_EQ(Scalar("SELECT NextInvoiceNo FROM ARInvCtl"), "10003");
    // A second run finds nothing.
    EXPECT_TRUE(Run(Request()).NoTime);
}

TEST_F(AutoCreateTest, RateZeroAloneVanishesAndItsTimeStaysUnbilled) {
    AddTask(5, 2, 3, "Free", 1, Money());
    AddTime(2, 2, 5, 1, Date::FromYmd(2017, 3, 1), 6);
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 1);
    AutoCreateResult result = Run(Request());
    EXPECT_EQ(result.InvoicesMade, 1);
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM ARInv"), "1");
    EXPECT_EQ(Scalar("SELECT InvoiceNo FROM TimeSht WHERE TaskID = 5"), "");
    // The vanished invoice used its number all the same.
    EXPECT_EQ(Scalar("SELECT InvoiceNo FROM ARInv"), "10001");
    EXPECT_EQ(Scalar("SELECT NextInvoiceNo FROM ARInvCtl"), "10003");
}

TEST_F(AutoCreateTest, CustomerAndJobNarrowTheRun) {
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 1);
    AddTime(2, 2, 3, 1, Date::FromYmd(2017, 3, 1), 1);
    AutoCreateRequest r = Request();
    r.CustomerID = 2;
    r.JobID = 2;
    EXPECT_EQ(Run(r).InvoicesMade, 1);
    EXPECT_EQ(Scalar("SELECT CustomerID FROM ARInv"), "2");
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM TimeSht WHERE InvoiceNo IS NULL"), "1");
}

TEST_F(AutoCreateTest, EachRowCarriesTheInvoiceThatCountedItsHours) {
    // Bolt's row on a task of Acme's job is billed to Bolt, on a line of its own.
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 1);
    AddTime(2, 1, 1, 1, Date::FromYmd(2017, 3, 2), 2);
    EXPECT_EQ(Run(Request()).InvoicesMade, 2);
    EXPECT_EQ(Scalar("SELECT InvoiceNo FROM TimeSht WHERE CustomerID = 1"), "10001");
    EXPECT_EQ(Scalar("SELECT InvoiceNo FROM TimeSht WHERE CustomerID = 2"), "10002");
    EXPECT_EQ(Scalar("SELECT Quantity FROM ARInvDet D INNER JOIN ARInv I ON "
                     "D.ARInvoiceID = I.ARInvoiceID WHERE I.CustomerID = 2"),
              "2");
}

TEST_F(AutoCreateTest, ARunForOneCustomerStampsNoneOfAnothersTime) {
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 1);
    AddTime(2, 1, 1, 1, Date::FromYmd(2017, 3, 2), 2);
    AutoCreateRequest r = Request();
    r.CustomerID = 1;
    EXPECT_EQ(Run(r).InvoicesMade, 1);
    EXPECT_EQ(Scalar("SELECT InvoiceNo FROM TimeSht WHERE CustomerID = 2"), "");
}

TEST_F(AutoCreateTest, NumbersSkipTakenOnesAndRestartOutsideTheSeries) {
    InsertRow("ARInvCtl", {{"NextInvoiceID", 7}, {"NextInvoiceNo", 500}});
    InsertRow("ARInv", {{"ARInvoiceID", 1},
                        {"CustomerID", 1},
                        {"InvoiceNo", "10001"},
                        {"InvoiceDate", Date::FromYmd(2017, 1, 1)},
                        {"InvoiceAmount", Money()},
                        {"GLPeriod", 1},
                        {"GLYear", 2017},
                        {"Printed", false},
                        {"Posted", false}});
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 1);
    Run(Request());
    EXPECT_EQ(Scalar("SELECT InvoiceNo FROM ARInv WHERE ARInvoiceID = 7"), "10002");
}

TEST_F(AutoCreateTest, FailureHalfWayLeavesNoInvoiceAndNoStamp) {
    // 1,000 time sheets of 20 customers.
    for (int c = 3; c < 23; ++c) {
        AddCustomer(c, "N" + std::to_string(c), "Customer " + std::to_string(c), 1);
        AddJob(c, c, "Job " + std::to_string(c));
        AddTask(c * 10, c, 1, "Task", 1);
    }
    {
        store::Transaction batch(db_, {"TimeSht"});
        for (int i = 0; i < 1000; ++i) {
            int c = 3 + i % 20;
            AddTime(c, c, c * 10, 1, Date::FromYmd(2017, 3, 1 + i % 28), 0.5);
        }
        batch.Commit();
    }
    AutoCreateRun run(db_);
    run.OnInvoiceWritten = [](int written) {
        if (written == 10) throw Exception("Disk full");
    };
    EXPECT_THROW(run.Run(Request(), nullptr), Exception);
    EXPECT_EQ(CountRows("ARInv"), 0);
    EXPECT_EQ(CountRows("ARInvDet"), 0);
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM TimeSht WHERE InvoiceNo IS NOT NULL"), "0");
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM ARInvCtl"), "0");
    // And the same run without the fault bills all of it.
    run.OnInvoiceWritten = nullptr;
    EXPECT_EQ(run.Run(Request(), nullptr).InvoicesMade, 20);
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM TimeSht WHERE InvoiceNo IS NULL"), "0");
}
