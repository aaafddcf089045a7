#include "receivables/domain/CustomerRecord.h"

#include "core/Date.h"
#include "store/Query.h"
#include "store/Table.h"
#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::receivables;

namespace {

class CustomerRecordTest : public corvane::testing::CompanyTest {
protected:
    std::optional<CustomerKeys> Draw() {
        return DrawCustomerKeys(db_, [](const std::string&) { return false; });
    }
    void SetCounters(std::int64_t no, std::int64_t id) {
        store::Query q(db_, "UPDATE CustCtl SET NextCustomerNo = :No, NextCustomerID = :ID");
        q.ParamByName("No").SetAsInteger(no);
        q.ParamByName("ID").SetAsInteger(id);
        q.ExecSQL();
    }
    void AddCustomer(int id) {
        InsertRow("Customer", {{"CustomerID", id},
                               {"CustomerNo", std::to_string(id)},
                               {"CustomerName", "C" + std::to_string(id)},
                               {"CurrencyID", 1}});
    }
};

} // namespace

TEST_F(CustomerRecordTest, NumbersStartAt1001AndRestartWhenOutOfTheSeries) {
    auto first = Draw();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->CustomerNo, "1001");
    EXPECT_EQ(first->CustomerID, 10000);
    auto second = Draw();
    EXPECT_EQ(second->CustomerNo, "1002");
    EXPECT_EQ(second->CustomerID, 10001);
    SetCounters(10000001, 10002);
    EXPECT_EQ(Draw()->CustomerNo, "1001");
    SetCounters(10000000, 10003);
    EXPECT_EQ(Draw()->CustomerNo, "10000000");
    SetCounters(0, 0);
    auto restarted = Draw();
    EXPECT_EQ(restarted->CustomerNo, "1001");
    EXPECT_EQ(restarted->CustomerID, 10000);
}

TEST_F(CustomerRecordTest, NewCustomerTakesTheCompanyDefaults) {
    InsertRow("Company", {{"CompanyNo", 1},
                          {"CompanyName", "Acme"},
                          {"FiscalYear", 2017},
                          {"DefaultCurrencyID", 2},
                          {"DfltTax1ID", 3},
                          {"DfltTax2ID", 0}});
    store::Table customer(db_, "Customer");
    customer.Open();
    customer.Append();
    SetNewCustomerDefaults(db_, customer);
    EXPECT_EQ(customer.FieldByName("CurrencyID").AsInteger(), 2);
    EXPECT_EQ(customer.FieldByName("Tax1ID").AsInteger(), 3);
    EXPECT_TRUE(customer.FieldByName("Tax2ID").IsNull());
    EXPECT_FALSE(customer.FieldByName("COD").AsBoolean());
    EXPECT_FALSE(customer.FieldByName("Suspended").AsBoolean());
    EXPECT_TRUE(customer.FieldByName("PrintStatement").AsBoolean());
    EXPECT_TRUE(customer.FieldByName("AllowBackorders").AsBoolean());
    customer.Cancel();
}

TEST_F(CustomerRecordTest, JobsAreReportedBeforeInvoicesAndPaidInvoicesStillCount) {
    AddCustomer(10000);
    EXPECT_EQ(CustomerInUse(db_, 10000), "");
    EXPECT_FALSE(CheckCurrencyChange(db_, 10000));
    InsertRow("ARInv", {{"ARInvoiceID", 1},
                        {"CustomerID", 10000},
                        {"InvoiceNo", "1"},
                        {"InvoiceDate", Date::FromYmd(2017, 1, 5)},
                        {"InvoiceAmount", Money()},
                        {"GLPeriod", 1},
                        {"GLYear", 2017},
                        {"Printed", true},
                        {"Posted", true},
                        {"Owing", Money()}});
    EXPECT_EQ(CustomerInUse(db_, 10000), "Invoice(s) exist for this customer");
    const Verdict currency = CheckCurrencyChange(db_, 10000);
    ASSERT_TRUE(currency);
    EXPECT_EQ(currency->Message, "Currency cannot be changed... \nInvoice(s) already exist");
    InsertRow("Job", {{"JobID", 1}, {"CustomerID", 10000}, {"JobName", "J"}});
    EXPECT_EQ(CustomerInUse(db_, 10000), "Job(s) exist");
}

TEST_F(CustomerRecordTest, DeleteTakesTheBalanceRowAndContactsWithIt) {
    AddCustomer(10000);
    AddCustomer(10001);
    InsertRow("CBalance", {{"CustomerID", 10000}, {"Balance", Money::FromWhole(5)}});
    InsertRow("CContact", {{"CustomerID", 10000}, {"LastName", "Park"}});
    InsertRow("CContact", {{"CustomerID", 10001}, {"LastName", "Lee"}});
    DeleteCustomer(db_, 10000);
    EXPECT_EQ(CountRows("Customer"), 1);
    EXPECT_EQ(CountRows("CBalance"), 0);
    EXPECT_EQ(CountRows("CContact"), 1);
}

TEST_F(CustomerRecordTest, ChecksComeInTheirOrder) {
    InsertRow("Currency", {{"CurrencyID", 1},
                           {"CurrencyName", "CAD"},
                           {"APGLAccountID", 1},
                           {"APDiscGLAccountID", 1},
                           {"ARGLAccountID", 1},
                           {"ARDiscGLAccountID", 1}});
    store::Table customer(db_, "Customer");
    customer.Open();
    customer.Append();
    auto message = [&] {
        Verdict v = CheckCustomer(db_, customer);
        return v ? v->Field + ": " + v->Message : std::string();
    };
    EXPECT_EQ(message(), "CustomerNo: Field 'Customer no.' must have a value");
    customer.FieldByName("CustomerNo").SetAsString("1001");
    EXPECT_EQ(message(), "CustomerName: Field 'Customer Name' must have a value");
    customer.FieldByName("CustomerName").SetAsString("Birch");
    EXPECT_EQ(message(), "CurrencyID: Field 'Currency' must have a value");
    customer.FieldByName("CurrencyID").SetAsInteger(2);
    customer.FieldByName("SalesmanID").SetAsInteger(7);
    customer.FieldByName("CustomerTypeID").SetAsInteger(8);
    EXPECT_EQ(message(), "SalesmanID: Salesman no longer exists");
    customer.FieldByName("SalesmanID").Clear();
    EXPECT_EQ(message(), "CustomerTypeID: Customer Type no longer exists");
    customer.FieldByName("CustomerTypeID").Clear();
    EXPECT_EQ(message(), "CurrencyID: Currency no longer exists");
    customer.FieldByName("CurrencyID").SetAsInteger(1);
    EXPECT_EQ(message(), "");
    customer.Cancel();
}
