#pragma once

#include "store/sql/Connection.h"
#include "ui/HeadlessApp.h"

#include <algorithm>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace corvane::testing {

// A company that sells in two currencies with two taxes: a service and two stocked items (one at
// weighted average, one at standard cost), a task type of its own sales account, a customer at
// home paying both taxes and one abroad paying the first, a bank; and invoices written as the
// invoice form leaves them, their buckets and amounts kept as entry keeps them.
class InvoiceTest : public UiCompanyTest {
protected:
    static constexpr int Bank = 10, Receivable = 11, ForeignReceivable = 12, Stock = 13, Gst = 21,
                         Pst = 22, Sales = 40, Consulting = 45, Cogs = 50, Exchange = 80;
    static constexpr int Home = 1, Foreign = 2;
    static constexpr int Service = 1, Widget = 2, Gadget = 3;
    static constexpr int Local = 1, Abroad = 2;
    static constexpr int Design = 1; // a task whose type credits Consulting

    struct L {
        double Qty;
        Money Price;
        int Item = 0;
        int Task = 0;
    };

    void SetUp() override {
        UiCompanyTest::SetUp();
        for (auto [id, no, name, type] :
             std::vector<std::tuple<int, const char*, const char*, int>>{
                 {Bank, "1010", "Bank", 1},
                 {Receivable, "1100", "Receivables", 1},
                 {ForeignReceivable, "1110", "Receivables abroad", 1},
                 {Stock, "1300", "Inventory", 1},
                 {Gst, "2210", "GST payable", 2},
                 {Pst, "2220", "PST payable", 2},
                 {Sales, "4000", "Sales", 4},
                 {Consulting, "4500", "Consulting", 4},
                 {Cogs, "5000", "Cost of goods", 5},
                 {Exchange, "8000", "Exchange", 5}})
            InsertRow("GLAccnt", {{"GLAccountID", id},
                                  {"GLAccount", no},
                                  {"AccountName", name},
                                  {"AccountType", type}});
        AddCurrency(Home, "Dollars", 1.0, Receivable);
        AddCurrency(Foreign, "Euros", 1.25, ForeignReceivable);
        AddTax(1, "GST", "G", 5.0, Gst);
        AddTax(2, "PST", "P", 8.0, Pst);
        InsertRow("ItemType", {{"ItemTypeID", 1}, {"TypeName", "Service"}, {"Inventory", false}});
        InsertRow("ItemType", {{"ItemTypeID", 2},
                               {"TypeName", "Stock average"},
                               {"Inventory", true},
                               {"CostingMethod", 1}});
        InsertRow("ItemType", {{"ItemTypeID", 3},
                               {"TypeName", "Stock standard"},
                               {"Inventory", true},
                               {"CostingMethod", 2}});
        AddItem(Service, "SVC", 1, "GP");
        AddItem(Widget, "WIDGET", 2, "G");
        AddItem(Gadget, "GADGET", 3, "GP");
        InsertRow("Warehse", {{"WarehouseID", 1}, {"WarehouseName", "Main"}});
        InsertRow("IBalance", {{"ItemID", Widget}, {"WarehouseID", 1}, {"QtyOnHand", 10.0}});
        AddCustomer(Local, "C1", "Local Ltd", Home, 1, 2);
        AddCustomer(Abroad, "C2", "Abroad GmbH", Foreign, 1, 0);
        InsertRow("Bank", {{"BankID", 1},
                           {"BankName", "First Bank"},
                           {"BankGLAccountID", Bank},
                           {"CurrencyID", Home}});
        InsertRow("TaskType",
                  {{"TaskTypeID", 1}, {"TypeName", "Design"}, {"SalesGLAccountID", Consulting}});
        InsertRow("Task", {{"TaskID", Design}, {"TaskName", "Drawings"}, {"TaskTypeID", 1}});
        InsertRow("JVCtl", {{"NextJVID", 1}, {"NextJVNumber", 1001}});
        InsertRow("ARPmtCtl", {{"NextPaymentID", 1}});
    }

    void AddCurrency(int id, const std::string& name, double rate, int receivable) {
        InsertRow("Currency", {{"CurrencyID", id},
                               {"CurrencyName", name},
                               {"ExchangeRate", rate},
                               {"GainLossExchangeGLAccntID", Exchange},
                               {"APGLAccountID", receivable},
                               {"APDiscGLAccountID", receivable},
                               {"ARGLAccountID", receivable},
                               {"ARDiscGLAccountID", receivable}});
    }
    void AddTax(int id, const std::string& name, const std::string& code, double rate,
                int account) {
        InsertRow("Tax", {{"TaxID", id},
                          {"TaxName", name},
                          {"Rate", rate},
                          {"TaxCode", code},
                          {"TaxDescription", name},
                          {"TaxGLAccountID", account}});
    }
    void AddItem(int id, const std::string& no, int type, const std::string& codes) {
        InsertRow("Item", {{"ItemID", id},
                           {"ItemNo", no},
                           {"ItemDescription", no + " item"},
                           {"SalesGLAccountID", Sales},
                           {"COGSGLAccountID", Cogs},
                           {"InventoryGLAccountID", Stock},
                           {"TaxCodes", codes},
                           {"UnitPrice", Money::FromWhole(20)},
                           {"WgtAvgCost", Money::FromUnits(123456)},
                           {"StandardCost", Money::FromWhole(10)},
                           {"ItemTypeID", type}});
    }
    void AddCustomer(int id, const std::string& no, const std::string& name, int currency, int tax1,
                     int tax2) {
        std::vector<std::pair<std::string, store::Value>> row{{"CustomerID", id},
                                                              {"CustomerNo", no},
                                                              {"CustomerName", name},
                                                              {"CurrencyID", currency},
                                                              {"Tax1ID", tax1}};
        if (tax2) row.push_back({"Tax2ID", tax2});
        InsertRow("Customer", row);
    }

    std::string ItemCodes(int item) {
        return item == Service ? "GP" : item == Widget ? "G" : item == Gadget ? "GP" : "";
    }

    // An invoice of the customer as entry leaves it: the customer's taxes with their codes and
    // rates, the buckets and amount kept line by line, the point-of-sale payment in the paid
    // amount. Returns the invoice amount.
    Money AddInvoice(int id, int customer, const std::vector<L>& lines, bool printed = true,
                     Money pos = Money(), int paidBy = 0, const std::string& reference = "") {
        const bool local = customer == Local;
        std::vector<std::pair<std::string, Money>> buckets;
        Money total;
        for (const auto& l : lines) {
            const Money ext = l.Price.TimesRounded(l.Qty);
            total += ext;
            for (char code : ItemCodes(l.Item)) {
                auto it = std::find_if(buckets.begin(), buckets.end(),
                                       [&](const auto& b) { return b.first[0] == code; });
                if (it == buckets.end())
                    buckets.push_back({std::string(1, code), ext});
                else
                    it->second += ext;
            }
        }
        auto bucket = [&](const std::string& code) {
            for (const auto& b : buckets)
                if (b.first == code) return b.second;
            return Money();
        };
        const Money gst = bucket("G").PercentRounded(5.0);
        const Money pst = local ? bucket("P").PercentRounded(8.0) : Money();
        const Money amount = total + gst + pst;
        std::vector<std::pair<std::string, store::Value>> row{
            {"ARInvoiceID", id},
            {"CustomerID", customer},
            {"InvoiceNo", std::to_string(1000 + id)},
            {"WarehouseID", 1},
            {"InvoiceDate", Date::FromYmd(2018, 3, 1 + id % 28)},
            {"InvoiceAmount", amount},
            {"PaidAmount", pos},
            {"Owing", amount - pos},
            {"GLPeriod", 3},
            {"GLYear", 2018},
            {"Printed", printed},
            {"Posted", false},
            {"Tax1ID", 1},
            {"Tax1Code", "G"},
            {"Tax1Rate", 5.0},
            {"CurrencyID", local ? Home : Foreign}};
        if (local)
            for (auto f : std::vector<std::pair<std::string, store::Value>>{
                     {"Tax2ID", 2}, {"Tax2Code", "P"}, {"Tax2Rate", 8.0}})
                row.push_back(f);
        for (std::size_t k = 0; k < buckets.size(); ++k) {
            row.push_back({"TaxableAmtCode" + std::to_string(k + 1), buckets[k].first});
            row.push_back({"TaxableAmount" + std::to_string(k + 1), buckets[k].second});
        }
        if (!pos.IsZero()) {
            row.push_back({"POSPmtAmount", pos});
            row.push_back({"POSPmtPaidBy", paidBy});
            row.push_back({"POSPmtBankID", 1});
            if (!reference.empty()) row.push_back({"POSPmtReference", reference});
        }
        InsertRow("ARInv", row);
        int seq = 1;
        for (const auto& l : lines) {
            std::vector<std::pair<std::string, store::Value>> det{{"ARInvoiceID", id},
                                                                  {"Seq", seq++},
                                                                  {"Quantity", l.Qty},
                                                                  {"UnitPrice", l.Price},
                                                                  {"UnitPriceB4Disc", l.Price}};
            if (l.Item) {
                det.push_back({"ItemID", l.Item});
                det.push_back({"TaxCodes", ItemCodes(l.Item)});
            }
            if (l.Task) det.push_back({"TaskID", l.Task});
            InsertRow("ARInvDet", det);
        }
        return amount;
    }

    // A count or sum over the test's own fixed text; no user input goes in.
    std::int64_t Count(const std::string& sql) {
        store::Statement s(db_.Conn(), sql);
        s.Step();
        return s.ColumnInt(0);
    }
    Money SumOf(const std::string& sql) {
        store::Statement s(db_.Conn(), sql);
        s.Step();
        store::Value v = s.ColumnValue(0, store::FieldType::Currency);
        return v.IsNull() ? Money() : v.Money();
    }
    double QtyOnHand(int item) {
        store::Statement s(db_.Conn(), "SELECT QtyOnHand FROM IBalance WHERE ItemID = " +
                                           std::to_string(item) + " AND WarehouseID = 1");
        s.Step();
        return s.ColumnValue(0, store::FieldType::Float).Float();
    }

    static Money C(std::int64_t cents) { return Money::FromCents(cents); }
};

} // namespace corvane::testing
