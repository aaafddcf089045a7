#include "company/sample/SampleCompany.h"
#include "receivables/domain/CustomerRecord.h"
#include "receivables/taxes/TaxLookUp.h"
#include "store/Query.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

namespace corvane::company {
namespace {

class SampleMastersTest : public testing::CompanyTest {
protected:
    std::int64_t Count(const std::string& sql) {
        store::Query q(db_, sql);
        q.Open();
        return q.Fields().front()->AsInteger();
    }
};

TEST_F(SampleMastersTest, CustomersItemsAndBanksOfEveryKindAreThere) {
    GenerateSampleCompany(db_);
    // Customers in both currencies, one suspended, some exempt from the second tax.
    EXPECT_GT(Count("SELECT COUNT(*) FROM Customer WHERE CurrencyID = 1"), 2);
    EXPECT_GT(Count("SELECT COUNT(*) FROM Customer WHERE CurrencyID = 2"), 1);
    EXPECT_EQ(Count("SELECT COUNT(*) FROM Customer WHERE Suspended = true"), 1);
    EXPECT_EQ(Count("SELECT COUNT(*) FROM Customer WHERE Tax2ExemptionNo <> ''"), 2);
    EXPECT_EQ(Count("SELECT COUNT(*) FROM Salesman"), 2);
    EXPECT_EQ(Count("SELECT COUNT(*) FROM CusType"), 3);
    EXPECT_EQ(Count("SELECT COUNT(*) FROM Tax"), 2);
    // Items costed both ways, stocked in two warehouses; both banks.
    EXPECT_GT(Count("SELECT COUNT(*) FROM Item I, ItemType T WHERE I.ItemTypeID = T.ItemTypeID "
                    "AND T.Inventory = true AND T.CostingMethod = 2"),
              0);
    EXPECT_GT(Count("SELECT COUNT(*) FROM Item I, ItemType T WHERE I.ItemTypeID = T.ItemTypeID "
                    "AND T.Inventory = true AND T.CostingMethod = 1"),
              0);
    EXPECT_EQ(Count("SELECT COUNT(DISTINCT WarehouseID) FROM IBalance"), 2);
    EXPECT_EQ(Count("SELECT COUNT(*) FROM Bank"), 2);

    // The exempt customer's invoices carry only the first tax.
    store::Query exempt(db_, "SELECT CustomerID FROM Customer WHERE Tax2ExemptionNo <> ''");
    exempt.Open();
    const receivables::DocumentTaxSet taxes =
        receivables::TaxesForCustomer(db_, exempt.FieldByName("CustomerID").AsInteger());
    EXPECT_EQ(taxes.Tax1.Code, "G");
    EXPECT_FALSE(taxes.Tax2.TaxID);

    // The next customer typed follows the sample's numbers.
    const auto keys = receivables::DrawCustomerKeys(db_, [](const std::string&) { return false; });
    ASSERT_TRUE(keys);
    EXPECT_EQ(Count("SELECT COUNT(*) FROM Customer WHERE CustomerNo = '" + keys->CustomerNo + "'"),
              0);
}

} // namespace
} // namespace corvane::company
