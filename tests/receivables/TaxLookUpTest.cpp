#include "receivables/taxes/TaxLookUp.h"
#include "receivables/taxes/TaxRecord.h"

#include "core/Date.h"

#include "store/Query.h"
#include "store/tables/CompanyTables.h"
#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::receivables;

namespace {

class TaxLookUpTest : public corvane::testing::CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        InsertRow("Tax", {{"TaxID", 1},
                          {"TaxName", "GST"},
                          {"Rate", 5.0},
                          {"TaxCode", "G"},
                          {"TaxDescription", "GST"},
                          {"TaxGLAccountID", 2300}});
        InsertRow("Tax", {{"TaxID", 2},
                          {"TaxName", "PST - Ontario"},
                          {"Rate", 8.0},
                          {"TaxCode", "P"},
                          {"TaxDescription", "PST"},
                          {"TaxGLAccountID", 2310}});
    }
    void AddCustomer(int id, const char* exempt1, const char* exempt2) {
        InsertRow("Customer", {{"CustomerID", id},
                               {"CustomerNo", std::to_string(id)},
                               {"CustomerName", "C"},
                               {"CurrencyID", 1},
                               {"Tax1ID", 1},
                               {"Tax2ID", 2},
                               {"Tax1ExemptionNo", exempt1},
                               {"Tax2ExemptionNo", exempt2}});
    }
};

} // namespace

TEST_F(TaxLookUpTest, ACustomerWithAnExemptionNumberIsNotChargedThatTax) {
    AddCustomer(10, "", "");
    AddCustomer(11, "", "EX-1234");
    AddCustomer(12, "R-1", "R-2");
    const DocumentTaxSet all = TaxesForCustomer(db_, 10);
    EXPECT_EQ(all.Tax1.TaxID, 1);
    EXPECT_EQ(all.Tax1.Code, "G");
    EXPECT_EQ(all.Tax2.Rate, 8.0);
    EXPECT_EQ(all.Tax2.Description, "PST");
    EXPECT_EQ(all.Tax2.GLAccountID, 2310);

    const DocumentTaxSet one = TaxesForCustomer(db_, 11);
    EXPECT_EQ(one.Tax1.Code, "G");
    EXPECT_FALSE(one.Tax2.TaxID);
    EXPECT_FALSE(one.Tax2.Description);

    const DocumentTaxSet none = TaxesForCustomer(db_, 12);
    const std::vector<TaxedLine> lines{{Money::FromWhole(100), "GP"}};
    const DocumentTotals totals = ComputeDocumentTaxes(lines, none);
    EXPECT_EQ(totals.TaxLine, "Tax exempt customer");
    EXPECT_EQ(totals.DocumentAmount, Money::FromWhole(100));
    EXPECT_FALSE(TaxesForCustomer(db_, 99).Tax1.TaxID);
}

TEST_F(TaxLookUpTest, ADocumentKeepsItsCopiedRateAfterTheTaxChanges) {
    AddCustomer(10, "", "");
    const DocumentTax copied = ReadTax(db_, 1);
    store::Query update(db_, "UPDATE Tax SET Rate = 7, TaxDescription = 'HST' WHERE TaxID = 1");
    update.ExecSQL();
    // The saved document's code and rate stand; the description is looked up anew.
    const DocumentTax kept = TaxFromDocumentCopy(db_, 1, copied.Code, copied.Rate);
    EXPECT_EQ(kept.Rate, 5.0);
    EXPECT_EQ(kept.Description, "HST");
    // Choosing the customer again takes the new rate.
    EXPECT_EQ(TaxesForCustomer(db_, 10).Tax1.Rate, 7.0);
    // A tax that was deleted leaves its copies and no description.
    store::Query gone(db_, "DELETE FROM Tax WHERE TaxID = 2");
    gone.ExecSQL();
    const DocumentTax orphan = TaxFromDocumentCopy(db_, 2, "P", 8.0);
    EXPECT_EQ(orphan.Code, "P");
    EXPECT_FALSE(orphan.Description);
}

TEST_F(TaxLookUpTest, ATaxNamedByACustomerOrAnInvoiceStays) {
    EXPECT_EQ(TaxInUse(db_, 2), "");
    InsertRow("ARInv", {{"ARInvoiceID", 1},
                        {"CustomerID", 10},
                        {"InvoiceNo", "1"},
                        {"InvoiceDate", Date::FromYmd(2017, 1, 5)},
                        {"InvoiceAmount", Money()},
                        {"GLPeriod", 1},
                        {"GLYear", 2017},
                        {"Printed", false},
                        {"Posted", false},
                        {"Tax2ID", 2}});
    EXPECT_EQ(TaxInUse(db_, 2), "Invoice(s) exist for this tax");
    AddCustomer(10, "", "");
    EXPECT_EQ(TaxInUse(db_, 2), "Customer(s) exist for this tax");
    EXPECT_EQ(TaxDeleteRefusal("PST", TaxInUse(db_, 2)),
              "Unable to delete tax 'PST'...\nCustomer(s) exist for this tax");
}
