#include "inventory/domain/ItemRecord.h"
#include "inventory/domain/InventoryMasters.h"

#include "core/Date.h"
#include "store/Query.h"
#include "store/Table.h"
#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::inventory;

namespace {

class ItemRecordTest : public corvane::testing::CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        InsertRow("GLAccnt", {{"GLAccountID", 1},
                              {"GLAccount", "4000"},
                              {"AccountName", "Sales"},
                              {"AccountType", 3}});
        InsertRow("ItemType", {{"ItemTypeID", 1},
                               {"TypeName", "Stock"},
                               {"Inventory", true},
                               {"CostingMethod", kStandardCost}});
        InsertRow("ItemType", {{"ItemTypeID", 2},
                               {"TypeName", "Service"},
                               {"Inventory", false},
                               {"CostingMethod", kStandardCost}});
        InsertRow("ItemSubtype",
                  {{"ItemSubtypeID", 1}, {"SubtypeName", "Bolts"}, {"ItemTypeID", 1}});
        AddTax(1, "GST", "G");
        AddTax(2, "PST", "P");
        item_.Open();
        item_.Append();
        item_.FieldByName("ItemNo").SetAsString("1001");
        item_.FieldByName("ItemDescription").SetAsString("Bolt");
        item_.FieldByName("ItemTypeID").SetAsInteger(2);
        item_.FieldByName("SalesGLAccountID").SetAsInteger(1);
    }
    void TearDown() override {
        item_.Cancel();
        item_.Close();
        CompanyTest::TearDown();
    }
    void AddTax(int id, const char* name, const char* code) {
        InsertRow("Tax", {{"TaxID", id},
                          {"TaxName", name},
                          {"Rate", 5.0},
                          {"TaxCode", code},
                          {"TaxDescription", name},
                          {"TaxGLAccountID", 1}});
    }
    std::string Check() {
        Verdict v = CheckItem(db_, item_);
        return v ? v->Field + ": " + v->Message : std::string();
    }
    store::Table item_{db_, "Item"};
};

} // namespace

TEST_F(ItemRecordTest, TaxCodesMustNameATaxAndAppearOnce) {
    EXPECT_EQ(Check(), "");
    item_.FieldByName("TaxCodes").SetAsString("GX");
    EXPECT_EQ(Check(), "TaxCodes: Tax Code 'X' does not exist on any taxes");
    item_.FieldByName("TaxCodes").SetAsString("GG");
    EXPECT_EQ(Check(), "TaxCodes: Tax Code 'G' occurs more than once");
    item_.FieldByName("TaxCodes").SetAsString("G P");
    EXPECT_EQ(Check(), "");
}

TEST_F(ItemRecordTest, ANewItemIsTaxableByTheFirstThreeDistinctCodes) {
    EXPECT_EQ(DefaultTaxCodes(db_), "GP");
    AddTax(3, "GST Quebec", "G"); // a second G adds nothing
    AddTax(4, "HST", "H");
    AddTax(5, "QST", "Q");
    EXPECT_EQ(DefaultTaxCodes(db_), "GHP");
}

TEST_F(ItemRecordTest, CostAccountsComeInPairsAndStandardCostIsNeededOnlyWhenStockedAtStandard) {
    item_.FieldByName("InventoryGLAccountID").SetAsInteger(1);
    EXPECT_EQ(Check(), "COGSGLAccountID: Field 'Cost of Goods Sold GL Account' must have a value "
                       "if 'Inventory GL Account' entered");
    item_.FieldByName("InventoryGLAccountID").Clear();
    item_.FieldByName("COGSGLAccountID").SetAsInteger(1);
    EXPECT_EQ(Check(), "InventoryGLAccountID: Field 'Inventory GL Account' must have a value if "
                       "'Cost of Goods Sold GL Account' entered");
    item_.FieldByName("InventoryGLAccountID").SetAsInteger(1);
    // A service costed at standard is not stocked, so it needs no cost.
    EXPECT_EQ(Check(), "");
    item_.FieldByName("ItemTypeID").SetAsInteger(1);
    EXPECT_EQ(Check(), "StandardCost: Field 'Standard Cost' must have a value if Item Type "
                       "costing method is standard");
    item_.FieldByName("StandardCost").SetAsMoney(Money());
    EXPECT_EQ(Check(), "");
    item_.FieldByName("InventoryGLAccountID").SetAsInteger(9);
    EXPECT_EQ(Check(), "InventoryGLAccountID: GL Account no longer exists");
}

TEST_F(ItemRecordTest, TheSubtypeMustBelongToTheType) {
    item_.FieldByName("ItemSubtypeID").SetAsInteger(1);
    EXPECT_EQ(Check(),
              "ItemSubtypeID: Item Subtype no longer exists or is not for selected Item Type");
    item_.FieldByName("ItemTypeID").SetAsInteger(1);
    item_.FieldByName("StandardCost").SetAsMoney(Money::FromWhole(2));
    EXPECT_EQ(Check(), "");
    item_.FieldByName("ItemTypeID").SetAsInteger(7);
    EXPECT_EQ(Check(), "ItemTypeID: Item Type no longer exists");
}

TEST_F(ItemRecordTest, TheDrawPassesOverNumbersTypedByHand) {
    InsertRow("Item", {{"ItemID", 1},
                       {"ItemNo", "1002"},
                       {"ItemDescription", "Hand-made"},
                       {"ItemTypeID", 2},
                       {"SalesGLAccountID", 1}});
    auto never = [](const std::string&) { return false; };
    auto first = DrawItemKeys(db_, never);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->ItemNo, "1001");
    EXPECT_EQ(first->ItemID, 10000);
    auto second = DrawItemKeys(db_, never);
    EXPECT_EQ(second->ItemNo, "1003");
    EXPECT_EQ(second->ItemID, 10002);
}

TEST_F(ItemRecordTest, HistoryIsReportedBeforeInvoicesAndADeleteTakesTheBalances) {
    InsertRow("Item", {{"ItemID", 5},
                       {"ItemNo", "A"},
                       {"ItemDescription", "A"},
                       {"ItemTypeID", 1},
                       {"SalesGLAccountID", 1}});
    InsertRow("IBalance", {{"ItemID", 5}, {"WarehouseID", 1}, {"QtyOnHand", 3.0}});
    InsertRow("IBalance", {{"ItemID", 5}, {"WarehouseID", 2}, {"QtyOnHand", 1.0}});
    EXPECT_EQ(ItemInUse(db_, 5), "");
    InsertRow("ARInvDet", {{"ARInvoiceID", 1}, {"ItemID", 5}});
    EXPECT_EQ(ItemInUse(db_, 5), "Invoice(s) exist for this item");
    InsertRow("IHist", {{"ItemID", 5}, {"WarehouseID", 1}});
    EXPECT_EQ(ItemInUse(db_, 5),
              "Inventory History data (posted transactions) exists for this item");
    DeleteItem(db_, 5);
    EXPECT_EQ(CountRows("IBalance"), 0);
    EXPECT_EQ(CountRows("Item"), 0);
}

TEST_F(ItemRecordTest, WarehouseUsesComeInTheirOrder) {
    EXPECT_EQ(WarehouseInUse(db_, 3), "");
    InsertRow("IAdjust", {{"AdjustmentID", 1},
                          {"GLYear", 2017},
                          {"GLPeriod", 1},
                          {"AdjDate", Date::FromYmd(2017, 1, 2)},
                          {"AdjDescription", "Move"},
                          {"WarehouseID", 1},
                          {"FromWarehouseID", 3}});
    EXPECT_EQ(WarehouseInUse(db_, 3), "Adjustment(s) exist for this warehouse. (From)");
    InsertRow("IHist", {{"ItemID", 5}, {"WarehouseID", 3}});
    EXPECT_EQ(WarehouseInUse(db_, 3), "History exists for this warehouse");
    EXPECT_EQ(ItemTypeInUse(db_, 1), "Item Subtype(s) exist for this item type");
    EXPECT_EQ(ItemTypeInUse(db_, 2), "");
}
