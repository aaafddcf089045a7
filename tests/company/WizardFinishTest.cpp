#include "company/WizardTestRows.h"
#include "company/wizard/StarterCompany.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvane::company {
namespace {

using testing::QueryRows;

StarterAnswers Acme(std::string taxName = "GST", double rate = 5) {
    StarterAnswers a;
    a.CompanyName = "Acme Tools";
    a.FiscalYear = 2018;
    a.Address = "12 Mill Road\nUnit 4\nHalvern";
    a.CurrencyName = "Canadian Dollars";
    a.BankName = "Operating Account";
    a.TaxName = std::move(taxName);
    a.TaxRate = rate;
    return a;
}

class WizardFinishTest : public testing::CompanyTest {
protected:
    std::string Value(const std::string& sql) { return testing::QueryValue(db_, sql); }
    std::vector<std::string> Rows(const std::string& sql) { return QueryRows(db_, sql); }
};

TEST_F(WizardFinishTest, ChartRowsFollowTheListWithFreightTakingId44AmongTheExpenses) {
    CreateStarterCompany(db_, Acme());
    const auto rows = Rows("SELECT GLAccountID, GLAccount FROM GLAccnt ORDER BY rowid");
    ASSERT_EQ(rows.size(), 44u);
    // Made in the order listed: ids 1 to 31, then Freight as 44, then 32 to 43.
    std::vector<int> ids;
    for (const auto& row : rows)
        ids.push_back(std::stoi(row.substr(0, row.find('|'))));
    std::vector<int> expected;
    for (int id = 1; id <= 31; ++id)
        expected.push_back(id);
    expected.push_back(44);
    for (int id = 32; id <= 43; ++id)
        expected.push_back(id);
    EXPECT_EQ(ids, expected);
    EXPECT_EQ(rows[0], "1|'1006'");
    EXPECT_EQ(rows[30], "31|'5124'");
    EXPECT_EQ(rows[31], "44|'5128'");
    EXPECT_EQ(rows[32], "32|'6000'");
    EXPECT_EQ(rows[43], "43|'9075'");
    // Account numbers read in the order of the list, so no two share a number.
    EXPECT_EQ(Value("SELECT COUNT(DISTINCT GLAccount) FROM GLAccnt"), "44");

    EXPECT_EQ(Value("SELECT AccountName FROM GLAccnt WHERE GLAccountID = 1"),
              "'Operating Account'");
    EXPECT_EQ(Value("SELECT AccountName || '/' || AccountType FROM GLAccnt WHERE "
                    "GLAccountID = 44"),
              "'Freight/4'");
    EXPECT_EQ(Rows("SELECT AccountType, COUNT(*) FROM GLAccnt GROUP BY AccountType"),
              (std::vector<std::string>{"1|6", "2|4", "3|2", "4|31", "5|1"}));
    EXPECT_EQ(Rows("SELECT GLAccount FROM GLAccnt WHERE RetainedEarnings = 1"),
              (std::vector<std::string>{"'3110'"}));
    EXPECT_EQ(Value("SELECT COUNT(*) FROM GLAccnt WHERE Suspended = 0 AND "
                    "RetainedEarnings IS NOT NULL"),
              "44");
}

TEST_F(WizardFinishTest, CurrencyCompanyAndBankReferToTheNewChart) {
    CreateStarterCompany(db_, Acme());
    EXPECT_EQ(Rows("SELECT CurrencyID, CurrencyName, APGLAccountID, APDiscGLAccountID, "
                   "ARGLAccountID, ARDiscGLAccountID, DfltWriteOffGLAccountID, "
                   "GainLossExchangeGLAccntID FROM Currency"),
              (std::vector<std::string>{"1|'Canadian Dollars'|3|6|2|5|5|null"}));
    EXPECT_EQ(Rows("SELECT CompanyNo, CompanyName, FiscalYear, AddressLine1, AddressLine2, "
                   "AddressLine3, APInvPONumbers, APInvDescriptions, ARInvoiceCopies, "
                   "ApplicationVersion, DfltSalesGLAccountID, DfltCOGSGLAccountID, "
                   "DfltInventoryGLAccountID, DefaultCurrencyID, DfltTax2ID FROM Company"),
              (std::vector<std::string>{"1|'Acme Tools'|2018|'12 Mill Road'|'Unit 4'|'Halvern'|"
                                        "1|1|1|'2017.8'|4|16|8|1|null"}));
    EXPECT_EQ(Value("SELECT ARInvoiceMessage FROM Company"),
              "'You can specify a message from your company to go here.\n"
              "Use this for banking info, legal info, promo text, etc.\n"
              "On the AR Invoices list: menu File | Invoice Print Setup...\n\n"
              "You can also select a logo to be printed at the top left.'");
    EXPECT_EQ(Rows("SELECT BankID, BankName, BankGLAccountID, CurrencyID FROM Bank"),
              (std::vector<std::string>{"1|'Operating Account'|1|1"}));
}

TEST_F(WizardFinishTest, WarehouseItemTypesItemsAndTheCashCustomer) {
    CreateStarterCompany(db_, Acme());
    EXPECT_EQ(Rows("SELECT WarehouseID, WarehouseName FROM Warehse"),
              (std::vector<std::string>{"1|'Our Warehouse'"}));
    EXPECT_EQ(Rows("SELECT ItemTypeID, TypeName, Inventory, CostingMethod FROM ItemType "
                   "ORDER BY rowid"),
              (std::vector<std::string>{"1|'Sundry non-inventory'|0|null", "2|'Labor'|0|null",
                                        "3|'Inventory'|1|1"}));
    EXPECT_EQ(Rows("SELECT NextItemID, NextItemNo FROM ItemCtl"),
              (std::vector<std::string>{"10003|1004"}));
    EXPECT_EQ(Rows("SELECT ItemID, ItemNo, ItemDescription, ItemTypeID, SalesGLAccountID, "
                   "COGSGLAccountID, InventoryGLAccountID, Suspended FROM Item ORDER BY rowid"),
              (std::vector<std::string>{"10000|'1001'|'Miscellaneous'|3|4|16|8|0",
                                        "10001|'1002'|'Labor'|2|4|null|null|0",
                                        "10002|'1003'|'Freight'|1|44|null|null|0"}));
    EXPECT_EQ(Rows("SELECT NextCustomerID, NextCustomerNo FROM CustCtl"),
              (std::vector<std::string>{"10001|1001"}));
    EXPECT_EQ(Rows("SELECT CustomerID, CustomerNo, CustomerName, CurrencyID, COD, Prepayment, "
                   "Suspended, PrintStatement, AllowBackorders FROM Customer"),
              (std::vector<std::string>{"10000|'0'|'Miscellaneous Cash'|1|1|0|0|0|0"}));
}

TEST_F(WizardFinishTest, ANamedTaxIsTheCompanysDefaultAndOnTheItemsAndTheCustomer) {
    CreateStarterCompany(db_, Acme("VAT", 17.5));
    EXPECT_EQ(Rows("SELECT TaxID, TaxName, Rate, TaxCode, TaxDescription, TaxGLAccountID "
                   "FROM Tax"),
              (std::vector<std::string>{"1|'VAT'|17.5|'V'|'VAT'|12"}));
    EXPECT_EQ(Value("SELECT DfltTax1ID FROM Company"), "1");
    EXPECT_EQ(Rows("SELECT TaxCodes FROM Item ORDER BY ItemID"),
              (std::vector<std::string>{"'V'", "'V'", "'V'"}));
    EXPECT_EQ(Value("SELECT Tax1ID FROM Customer"), "1");
}

TEST_F(WizardFinishTest, WithoutATaxNameThereIsNoTaxAnywhere) {
    CreateStarterCompany(db_, Acme("", 0));
    EXPECT_EQ(CountRows("Tax"), 0);
    EXPECT_EQ(Value("SELECT DfltTax1ID FROM Company"), "null");
    EXPECT_EQ(Value("SELECT COUNT(*) FROM Item WHERE TaxCodes IS NULL"), "3");
    EXPECT_EQ(Value("SELECT Tax1ID FROM Customer"), "null");
    // Everything else is there all the same.
    EXPECT_EQ(CountRows("GLAccnt"), 44);
    EXPECT_EQ(CountRows("Customer"), 1);
}

TEST_F(WizardFinishTest, AShortAddressLeavesTheLaterLinesEmpty) {
    StarterAnswers answers = Acme();
    answers.Address = "PO Box 7";
    CreateStarterCompany(db_, answers);
    EXPECT_EQ(Rows("SELECT AddressLine1, AddressLine2, AddressLine3 FROM Company"),
              (std::vector<std::string>{"'PO Box 7'|null|null"}));
}

} // namespace
} // namespace corvane::company
