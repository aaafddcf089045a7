#include "receivables/posting/InvoiceReader.h"

#include "ledger/posting/RowColumns.h"
#include "receivables/taxes/TaxBuckets.h"
#include "store/Value.h"

#include <string>
#include <utility>

namespace corvane::receivables {

using ledger::IntAt;
using ledger::MoneyAt;
using ledger::OptionalInt;
using ledger::QueryRow;
using ledger::TextAt;
using store::Value;

namespace {

std::optional<double> FloatAt(const QueryRow& row, std::size_t column) {
    const Value& v = row.at(column);
    switch (v.kind()) {
    case Value::Kind::Float:
        return v.Float();
    case Value::Kind::Integer:
        return static_cast<double>(v.Int());
    default:
        return std::nullopt;
    }
}

std::optional<Money> OptionalMoneyAt(const QueryRow& row, std::size_t column) {
    if (row.at(column).IsNull()) return std::nullopt;
    return MoneyAt(row, column);
}

bool BoolAt(const QueryRow& row, std::size_t column) {
    const Value& v = row.at(column);
    return v.kind() == Value::Kind::Boolean && v.Bool();
}

// The run's selection: printed invoices not yet posted.
constexpr const char* SelectionWhere = " WHERE i.Posted = FALSE AND i.Printed = TRUE";

// Reads a master whose rows are an id and one optional account.
void ReadAccounts(store::Database& db, const std::string& sql,
                  std::map<std::int64_t, std::optional<std::int64_t>>& out) {
    store::Query master(db, sql);
    master.ForEachRow([&](const QueryRow& row) { out[IntAt(row, 0)] = OptionalInt(row, 1); });
}

} // namespace

InvoiceReader::InvoiceReader(store::Database& db)
    : db_(db),
      item_(db, "SELECT SalesGLAccountID, SalesSubAccount1ID, SalesSubAccount2ID, "
                "SalesSubAccount3ID, COGSGLAccountID, COGSSubAccount1ID, COGSSubAccount2ID, "
                "COGSSubAccount3ID, InventoryGLAccountID, InventorySubAccount1ID, "
                "InventorySubAccount2ID, InventorySubAccount3ID, WgtAvgCost, StandardCost, "
                "ItemTypeID FROM Item WHERE ItemID = :ItemID"),
      task_(db, "SELECT TaskTypeID FROM Task WHERE TaskID = :TaskID") {}

std::int64_t InvoiceReader::CountToPost(store::Database& db) {
    store::Query count(db, std::string("SELECT count(*) FROM ARInv i") + SelectionWhere);
    std::int64_t n = 0;
    count.ForEachRow([&](const QueryRow& row) { n = IntAt(row, 0); });
    return n;
}

void InvoiceReader::ReadMasters() {
    store::Query currency(db_, "SELECT CurrencyID, ExchangeRate, ARGLAccountID, "
                               "GainLossExchangeGLAccntID FROM Currency");
    currency.ForEachRow([&](const QueryRow& row) {
        currencies_[IntAt(row, 0)] = {FloatAt(row, 1).value_or(0), OptionalInt(row, 2),
                                      OptionalInt(row, 3)};
    });
    ReadAccounts(db_, "SELECT TaxID, TaxGLAccountID FROM Tax", taxAccounts_);
    ReadAccounts(db_, "SELECT BankID, BankGLAccountID FROM Bank", bankAccounts_);
    ReadAccounts(db_, "SELECT TaskTypeID, SalesGLAccountID FROM TaskType", taskTypeAccounts_);
    store::Query type(db_, "SELECT ItemTypeID, Inventory, CostingMethod FROM ItemType");
    type.ForEachRow([&](const QueryRow& row) {
        itemTypes_[IntAt(row, 0)] = {BoolAt(row, 1), static_cast<int>(IntAt(row, 2))};
    });
}

std::optional<ItemForPosting> InvoiceReader::Item(std::int64_t itemId) {
    if (auto it = items_.find(itemId); it != items_.end()) return it->second;
    item_.ParamByName("ItemID").SetAsInteger(itemId);
    std::optional<ItemForPosting> item;
    item_.ForEachRow([&](const QueryRow& row) {
        if (item) return; // the first row, as the key is the item's
        item.emplace();
        item->Sales = ledger::ReadAccount(row, 0);
        item->Cogs = ledger::ReadAccount(row, 4);
        item->Stock = ledger::ReadAccount(row, 8);
        item->WgtAvgCost = OptionalMoneyAt(row, 12);
        item->StandardCost = OptionalMoneyAt(row, 13);
        if (auto type = OptionalInt(row, 14)) {
            auto flags = itemTypes_.find(*type);
            if (flags != itemTypes_.end()) {
                item->Inventory = flags->second.Inventory;
                item->CostingMethod = flags->second.CostingMethod;
            }
        }
    });
    return items_.emplace(itemId, item).first->second;
}

std::optional<std::int64_t> InvoiceReader::TaskSalesAccount(std::int64_t taskId) {
    if (auto it = taskSalesAccounts_.find(taskId); it != taskSalesAccounts_.end())
        return it->second;
    task_.ParamByName("TaskID").SetAsInteger(taskId);
    std::optional<std::int64_t> account;
    bool first = true;
    task_.ForEachRow([&](const QueryRow& row) {
        if (!std::exchange(first, false)) return;
        if (auto type = OptionalInt(row, 0)) {
            auto it = taskTypeAccounts_.find(*type);
            if (it != taskTypeAccounts_.end()) account = it->second;
        }
    });
    return taskSalesAccounts_.emplace(taskId, account).first->second;
}

std::vector<InvoiceToPost> InvoiceReader::ReadToPost() {
    ReadMasters();
    std::vector<InvoiceToPost> invoices;
    store::Query header(
        db_, std::string("SELECT ARInvoiceID, InvoiceNo, CustomerID, WarehouseID, GLYear, "
                         "GLPeriod, InvoiceDate, InvoiceAmount, POSPmtAmount, POSPmtPaidBy, "
                         "POSPmtReference, POSPmtBankID, Tax1ID, Tax2ID, Tax1Code, Tax2Code, "
                         "Tax1Rate, Tax2Rate, TaxableAmtCode1, TaxableAmtCode2, TaxableAmtCode3, "
                         "TaxableAmount1, TaxableAmount2, TaxableAmount3, CurrencyID "
                         "FROM ARInv i") +
                 SelectionWhere + " ORDER BY ARInvoiceID");
    header.ForEachRow([&](const QueryRow& row) {
        InvoiceToPost inv;
        inv.ARInvoiceID = IntAt(row, 0);
        inv.InvoiceNo = TextAt(row, 1);
        inv.CustomerID = IntAt(row, 2);
        inv.WarehouseID = OptionalInt(row, 3);
        inv.GLYear = static_cast<int>(IntAt(row, 4));
        inv.GLPeriod = static_cast<int>(IntAt(row, 5));
        inv.InvoiceDate = row[6].Date();
        inv.InvoiceAmount = MoneyAt(row, 7);
        inv.POSPmtAmount = MoneyAt(row, 8);
        if (auto paidBy = OptionalInt(row, 9)) inv.POSPmtPaidBy = static_cast<int>(*paidBy);
        inv.POSPmtReference = TextAt(row, 10);
        inv.POSPmtBankID = OptionalInt(row, 11);
        // The taxes anew from the stored buckets and the invoice's own copies of code and
        // rate, as entry showed them.
        TaxBuckets buckets;
        for (std::size_t k = 0; k < 3; ++k)
            buckets[k] = {TextAt(row, 18 + k), MoneyAt(row, 21 + k)};
        inv.Tax1Amount = TaxAmount(buckets, TextAt(row, 14), FloatAt(row, 16).value_or(0));
        inv.Tax2Amount = TaxAmount(buckets, TextAt(row, 15), FloatAt(row, 17).value_or(0));
        // A tax that is gone, like one never set, has no account.
        auto account = [](const auto& map, std::optional<std::int64_t> id) {
            std::optional<std::int64_t> found;
            if (id)
                if (auto it = map.find(*id); it != map.end()) found = it->second;
            return found;
        };
        inv.Tax1GLAccountID = account(taxAccounts_, OptionalInt(row, 12));
        inv.Tax2GLAccountID = account(taxAccounts_, OptionalInt(row, 13));
        inv.POSBankGLAccountID = account(bankAccounts_, inv.POSPmtBankID);
        if (auto currency = OptionalInt(row, 24))
            if (auto it = currencies_.find(*currency); it != currencies_.end()) {
                inv.StoredRate = it->second.Rate;
                inv.ARGLAccountID = it->second.ARGLAccountID;
                inv.GainLossGLAccountID = it->second.GainLossGLAccountID;
            }
        invoices.push_back(std::move(inv));
    });
    store::Query lines(
        db_, std::string("SELECT d.ARInvoiceID, d.Seq, d.Quantity, d.UnitPrice, d.ItemID, "
                         "d.TaskID FROM ARInv i JOIN ARInvDet d ON d.ARInvoiceID = i.ARInvoiceID") +
                 SelectionWhere + " ORDER BY d.ARInvoiceID, d.Seq");
    // Both reads are in key order: the lines are dealt out to their invoices in one pass.
    std::size_t next = 0;
    lines.ForEachRow([&](const QueryRow& row) {
        const std::int64_t id = IntAt(row, 0);
        while (next < invoices.size() && invoices[next].ARInvoiceID < id)
            ++next;
        if (next == invoices.size() || invoices[next].ARInvoiceID != id) return;
        InvoiceLineToPost line;
        line.Seq = IntAt(row, 1);
        line.Quantity = FloatAt(row, 2);
        line.UnitPrice = OptionalMoneyAt(row, 3);
        line.ItemID = OptionalInt(row, 4);
        line.TaskID = OptionalInt(row, 5);
        invoices[next].Lines.push_back(line);
    });
    // The look-ups after the reads, each with its one prepared query; an item or task met
    // again is taken from what was read the first time.
    for (auto& inv : invoices)
        for (auto& line : inv.Lines) {
            if (line.ItemID) line.Item = Item(*line.ItemID);
            if (line.TaskID && *line.TaskID > 0)
                line.TaskSalesAccountID = TaskSalesAccount(*line.TaskID);
        }
    return invoices;
}

} // namespace corvane::receivables
