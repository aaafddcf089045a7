#include "store/Maintenance.h"
#include "store/sql/Connection.h"
#include "support/CompanyFixture.h"

#include <fstream>

using namespace corvane;
using namespace corvane::store;
using corvane::testing::CompanyTest;

namespace {

class Maintenance : public CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        Transaction tx(db_, {"Customer"});
        Table t(db_, "Customer");
        t.Open();
        for (int i = 0; i < 3000; ++i) {
            t.Insert();
            t.FieldByName("CustomerID").SetAsInteger(10000 + i);
            t.FieldByName("CustomerNo").SetAsString(std::to_string(1000 + i));
            t.FieldByName("CustomerName")
                .SetAsString("Customer with a fairly long name " + std::to_string(i));
            t.FieldByName("CurrencyID").SetAsInteger(1);
            t.Post();
        }
        tx.Commit();
    }

    int ReadAllCode(const std::string& index) {
        try {
            Table t(db_, "Customer");
            t.SetIndexName(index);
            t.Open();
            t.Last();
            return 0;
        } catch (const EngineError& e) {
            return e.ErrorCode();
        }
    }
};

TEST_F(Maintenance, ASoundTableVerifiesCleanAndPacks) {
    EXPECT_TRUE(VerifyTable(db_, "Customer").empty());
    auto result = RepairTable(db_, "Customer");
    EXPECT_FALSE(result.WasDamaged);
    EXPECT_EQ(result.RowsKept, 3000);
    EXPECT_TRUE(PackTable(db_, "Customer"));
    EXPECT_EQ(CountRows("Customer"), 3000);
}

TEST_F(Maintenance, RepairAndPackNeedTheTableToThemselves) {
    Table open(db_, "Customer");
    open.Open();
    try {
        RepairTable(db_, "Customer");
        FAIL() << "repaired a table another cursor had open";
    } catch (const EngineError& e) {
        EXPECT_EQ(e.ErrorCode(), errTableInUse);
    }
    // Another table open elsewhere: the table is re-indexed, the file not compacted.
    open.Close();
    Table other(db_, "Vendor");
    other.Open();
    EXPECT_FALSE(PackTable(db_, "Customer"));
}

TEST_F(Maintenance, ADamagedIndexIsReportedAndRebuilt) {
    DamageObject("Customer@CustomerName1");
    EXPECT_EQ(ReadAllCode("CustomerName1"), errTableCorrupt);
    EXPECT_FALSE(VerifyTable(db_, "Customer").empty());
    auto result = RepairTable(db_, "Customer");
    EXPECT_TRUE(result.WasDamaged);
    EXPECT_EQ(result.RowsKept, 3000);
    EXPECT_EQ(result.RowsLost, 0);
    EXPECT_EQ(ReadAllCode("CustomerName1"), 0);
    EXPECT_TRUE(VerifyTable(db_, "Customer").empty());
}

TEST_F(Maintenance, DamagedRowsAreSalvagedAsFarAsTheyRead) {
    DamageObject("Customer");
    EXPECT_EQ(ReadAllCode(""), errTableCorrupt);
    auto result = RepairTable(db_, "Customer");
    EXPECT_TRUE(result.WasDamaged);
    EXPECT_EQ(ReadAllCode(""), 0);
    EXPECT_TRUE(VerifyTable(db_, "Customer").empty());
    EXPECT_EQ(CountRows("Customer"), result.RowsKept);
    EXPECT_LE(result.RowsKept + result.RowsLost, 3000);
    // The table takes new rows again.
    InsertRow("Customer",
              {{"CustomerID", 1}, {"CustomerNo", "1"}, {"CustomerName", "New"}, {"CurrencyID", 1}});
}

} // namespace
