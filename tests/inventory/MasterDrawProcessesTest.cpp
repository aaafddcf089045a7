#include "store/Query.h"
#include "support/ChildProcess.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

using namespace corvane;

namespace {

class MasterDrawProcessesTest : public corvane::testing::CompanyTest {
protected:
    std::int64_t Scalar(const std::string& sql) {
        store::Query q(db_, sql);
        q.Open();
        return q.Fields().front()->AsInteger();
    }
};

} // namespace

TEST_F(MasterDrawProcessesTest,
       TwoWorkstationsAdding200CustomersAnd200ItemsEachGetDistinctNumbers) {
    InsertRow("Company", {{"CompanyNo", 1},
                          {"CompanyName", "Acme"},
                          {"FiscalYear", 2017},
                          {"DefaultCurrencyID", 1},
                          {"DfltSalesGLAccountID", 1}});
    InsertRow(
        "ItemType",
        {{"ItemTypeID", 1}, {"TypeName", "Service"}, {"Inventory", false}, {"CostingMethod", 1}});
    const std::string start = folder_.Path() + "/start";
    constexpr int kEach = 200;
    std::vector<std::unique_ptr<tests::ChildProcess>> adders;
    for (int i = 0; i < 2; ++i) {
        adders.push_back(std::make_unique<tests::ChildProcess>(
            CORVANE_MASTER_ADDER,
            std::vector<std::string>{folder_.Path(), start, std::to_string(kEach)}));
        ASSERT_TRUE(adders.back()->WaitForLine("ready", std::chrono::milliseconds(60000)))
            << adders.back()->Output();
    }
    std::ofstream(start) << "go";
    for (auto& adder : adders) {
        auto line = adder->ReadLine(std::chrono::milliseconds(240000));
        ASSERT_TRUE(line) << adder->Output();
        EXPECT_EQ(*line, "added 200 200") << adder->Output();
        auto status = adder->Wait(std::chrono::milliseconds(10000));
        ASSERT_TRUE(status && status->exited);
        EXPECT_EQ(status->code, 0);
    }
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM Customer"), 2 * kEach);
    EXPECT_EQ(Scalar("SELECT COUNT(DISTINCT CustomerNo) FROM Customer"), 2 * kEach);
    EXPECT_EQ(Scalar("SELECT COUNT(DISTINCT CustomerID) FROM Customer"), 2 * kEach);
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM Customer WHERE CustomerNo = '1001'"), 1);
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM Customer WHERE CustomerNo = '1400'"), 1);
    EXPECT_EQ(Scalar("SELECT MAX(CustomerID) FROM Customer"), 10000 + 2 * kEach - 1);
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM Item"), 2 * kEach);
    EXPECT_EQ(Scalar("SELECT COUNT(DISTINCT ItemNo) FROM Item"), 2 * kEach);
    EXPECT_EQ(Scalar("SELECT COUNT(DISTINCT ItemID) FROM Item"), 2 * kEach);
    EXPECT_EQ(Scalar("SELECT MAX(ItemID) FROM Item"), 10000 + 2 * kEach - 1);
}
