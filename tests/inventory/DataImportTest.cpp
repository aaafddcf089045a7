#include "banking/domain/RowImport.h"
#include "inventory/domain/ItemImport.h"
#include "receivables/domain/CustomerImport.h"
#include "store/Query.h"
#include "support/ChildProcess.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

using namespace corvane;

namespace {

class DataImport : public corvane::testing::CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Acme"},
                              {"FiscalYear", 2017},
                              {"DefaultCurrencyID", 1},
                              {"DfltSalesGLAccountID", 1}});
        InsertRow("Currency", {{"CurrencyID", 1},
                               {"CurrencyName", "Canadian Dollars"},
                               {"APGLAccountID", 1},
                               {"APDiscGLAccountID", 1},
                               {"ARGLAccountID", 1},
                               {"ARDiscGLAccountID", 1}});
        InsertRow("GLAccnt", {{"GLAccountID", 1},
                              {"GLAccount", "4000"},
                              {"AccountName", "Sales"},
                              {"AccountType", 3}});
        InsertRow("ItemType", {{"ItemTypeID", 1},
                               {"TypeName", "Service"},
                               {"Inventory", false},
                               {"CostingMethod", 1}});
    }
    std::string Rows(const std::string& sql) {
        store::Query q(db_, sql);
        q.Open();
        std::string rows;
        for (; !q.Eof(); q.Next()) {
            std::string row;
            for (const auto& f : q.Fields())
                row += (row.empty() ? "" : ",") + f->AsString();
            rows += row + ";";
        }
        return rows;
    }
    banking::ImportOutcome Import(const banking::ImportTarget& target, const std::string& text,
                                  bool skip = false) {
        return banking::ImportRows(db_, target, banking::ParseImportFile(text), skip);
    }
};

TEST_F(DataImport, AGoodFileSavesEveryRowWithDrawnNumbersAndTheNewRecordsDefaults) {
    auto outcome = Import(receivables::CustomerImport(db_), "CustomerName,City,ZipCode\n"
                                                            "Acme Ltd,Calgary,t2p 1j9\n"
                                                            "\n"
                                                            "\"Baker, Smith & Co\",Edmonton,\n"
                                                            "Carter Inc,,\n");
    EXPECT_TRUE(outcome.Committed);
    EXPECT_EQ(outcome.Imported, 3);
    EXPECT_TRUE(outcome.Refused.empty());
    EXPECT_EQ(Rows("SELECT CustomerNo, CustomerID, CustomerName, City, CurrencyID, Suspended FROM "
                   "Customer ORDER BY CustomerNo"),
              "1001,10000,Acme Ltd,Calgary,1,False;"
              "1002,10001,Baker, Smith & Co,Edmonton,1,False;"
              "1003,10002,Carter Inc,,1,False;");
    EXPECT_EQ(Rows("SELECT NextCustomerNo, NextCustomerID FROM CustCtl"), "1004,10003;");

    // Items: a number in the file replaces the drawn one; the item defaults (the company's sales
    // account) fill what the file leaves out.
    outcome = Import(inventory::ItemImport(db_), "ItemNo,ItemDescription,ItemTypeID,UnitPrice\n"
                                                 ",Consulting,1,125.50\n"
                                                 "X-7,Travel,1,0.45\n");
    EXPECT_TRUE(outcome.Committed);
    EXPECT_EQ(Rows("SELECT ItemNo, ItemDescription, SalesGLAccountID, UnitPrice FROM Item ORDER "
                   "BY ItemID"),
              "1001,Consulting,1,125.5;X-7,Travel,1,0.45;");
}

TEST_F(DataImport, ARefusedRowIsNamedAndLeavesEverythingAsItWas) {
    InsertRow(
        "Customer",
        {{"CustomerID", 9}, {"CustomerNo", "500"}, {"CustomerName", "Old"}, {"CurrencyID", 1}});
    const std::string before = Rows("SELECT * FROM Customer") + Rows("SELECT * FROM CustCtl");
    // The second row has no name; the third repeats a number already on file.
    const std::string file = "CustomerNo,CustomerName\n"
                             ",Acme Ltd\n"
                             ",\n"
                             "500,Duplicate\n"
                             ",Zed Corp\n";
    auto outcome = Import(receivables::CustomerImport(db_), file);
    EXPECT_FALSE(outcome.Committed);
    EXPECT_EQ(outcome.Imported, 0);
    ASSERT_EQ(outcome.Refused.size(), 1u);
    EXPECT_EQ(outcome.Refused[0].Row, 2);
    EXPECT_EQ(outcome.Refused[0].Message, "Field 'Customer Name' must have a value");
    EXPECT_EQ(Rows("SELECT * FROM Customer") + Rows("SELECT * FROM CustCtl"), before);

    // Skipping refused rows saves the others and reports each refused one in order.
    outcome = Import(receivables::CustomerImport(db_), file, true);
    EXPECT_TRUE(outcome.Committed);
    EXPECT_EQ(outcome.Imported, 2);
    ASSERT_EQ(outcome.Refused.size(), 2u);
    EXPECT_EQ(outcome.Refused[0].Row, 2);
    EXPECT_EQ(outcome.Refused[1].Row, 3);
    EXPECT_EQ(outcome.Refused[1].Message, "Customer no. must be unique");
    EXPECT_EQ(Rows("SELECT CustomerName FROM Customer ORDER BY CustomerName"),
              "Acme Ltd;Old;Zed Corp;");

    // An item's checks run in their order too: a tax code that no tax has.
    outcome = Import(inventory::ItemImport(db_), "ItemDescription,ItemTypeID,TaxCodes\n"
                                                 "Consulting,1,Q\n");
    ASSERT_EQ(outcome.Refused.size(), 1u);
    EXPECT_EQ(outcome.Refused[0].Message, "Tax Code 'Q' does not exist on any taxes");
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM Item"), "0;");
}

TEST_F(DataImport, AFileWhoseValuesOrHeaderDoNotFitIsRefused) {
    EXPECT_THROW(Import(receivables::CustomerImport(db_), "CustomerName,Colour\nAcme,Red\n"),
                 Exception);
    EXPECT_THROW(Import(receivables::CustomerImport(db_), "CustomerName,customername\nAcme,Acme\n"),
                 Exception);
    EXPECT_THROW(banking::ParseImportFile("\n\n"), Exception);
    auto outcome = Import(inventory::ItemImport(db_),
                          "ItemDescription,ItemTypeID,UnitPrice\n"
                          "Consulting,1,lots\n"
                          "Travel,1,1,2\n",
                          true);
    ASSERT_EQ(outcome.Refused.size(), 2u);
    EXPECT_FALSE(outcome.Refused[0].Message.empty());
    EXPECT_EQ(outcome.Refused[1].Message,
              "The row has more values than the first line has fields.");
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM Item"), "0;");
}

TEST_F(DataImport, TwoWorkstationsImporting100CustomersEachDrawNoNumberTwice) {
    const std::string start = folder_.Path() + "/start";
    std::vector<std::unique_ptr<tests::ChildProcess>> importers;
    for (const char* tag : {"East", "West"}) {
        importers.push_back(std::make_unique<tests::ChildProcess>(
            CORVANE_CUSTOMER_IMPORTER,
            std::vector<std::string>{folder_.Path(), start, "100", tag}));
        ASSERT_TRUE(importers.back()->WaitForLine("ready", std::chrono::milliseconds(60000)))
            << importers.back()->Output();
    }
    std::ofstream(start) << "go";
    for (auto& importer : importers) {
        auto line = importer->ReadLine(std::chrono::milliseconds(240000));
        ASSERT_TRUE(line) << importer->Output();
        EXPECT_EQ(*line, "imported 100") << importer->Output();
        auto status = importer->Wait(std::chrono::milliseconds(10000));
        ASSERT_TRUE(status && status->exited);
        EXPECT_EQ(status->code, 0);
    }
    EXPECT_EQ(Rows("SELECT COUNT(*), COUNT(DISTINCT CustomerNo), COUNT(DISTINCT CustomerID), "
                   "MIN(CustomerNo), MAX(CustomerID) FROM Customer"),
              "200,200,200,1001,10199;");
    // Each file went in whole: its hundred numbers follow one another.
    EXPECT_EQ(Rows("SELECT MAX(CustomerID) - MIN(CustomerID) FROM Customer WHERE CustomerName "
                   "LIKE 'East %'"),
              "99;");
}

} // namespace
