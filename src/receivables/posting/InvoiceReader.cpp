#include "receivables/posting/InvoiceReader.h"

#include "ledger/posting/StatementColumns.h"
#include "receivables/taxes/TaxBuckets.h"
#include "store/Database.h"
#include "store/Value.h"
#include "store/sql/Connection.h"

#include <string>

namespace corvane::receivables {

using ledger::MoneyAt;
using ledger::OptionalInt;
using store::Statement;
using store::StatementRun;
using store::Value;

namespace {

std::string TextAt(const Statement& s, int column) {
    Value v = s.ColumnValue(column, store::FieldType::String);
    return v.IsNull() ? std::string() : v.Str();
}

std::optional<double> FloatAt(const Statement& s, int column) {
    Value v = s.ColumnValue(column, store::FieldType::Float);
    if (v.IsNull()) return std::nullopt;
    return v.Float();
}

std::optional<Money> OptionalMoneyAt(const Statement& s, int column) {
    Value v = s.ColumnValue(column, store::FieldType::Currency);
    if (v.IsNull()) return std::nullopt;
    return v.Money();
}

bool BoolAt(const Statement& s, int column) {
    Value v = s.ColumnValue(column, store::FieldType::Boolean);
    return !v.IsNull() && v.Bool();
}

constexpr const char* SelectionWhere = " WHERE i.Posted = ? AND i.Printed = ?";

void BindSelection(Statement& s) {
    s.Bind(1, Value(false));
    s.Bind(2, Value(true));
}

// Reads a master whose rows are an id and one optional account.
void ReadAccounts(store::Database& db, const std::string& sql,
                  std::map<std::int64_t, std::optional<std::int64_t>>& out) {
    Statement& s = db.Conn().Cached(sql);
    StatementRun run(s);
    while (s.Step())
        out[s.ColumnInt(0)] = OptionalInt(s, 1);
}

} // namespace

std::int64_t InvoiceReader::CountToPost(store::Database& db) {
    Statement& s =
        db.Conn().Cached(std::string("SELECT count(*) FROM main.ARInv i") + SelectionWhere);
    StatementRun run(s);
    BindSelection(s);
    s.Step();
    return s.ColumnInt(0);
}

void InvoiceReader::ReadMasters() {
    {
        Statement& s = db_.Conn().Cached("SELECT CurrencyID, ExchangeRate, ARGLAccountID, "
                                         "GainLossExchangeGLAccntID FROM main.Currency");
        StatementRun run(s);
        while (s.Step())
            currencies_[s.ColumnInt(0)] = {FloatAt(s, 1).value_or(0), OptionalInt(s, 2),
                                           OptionalInt(s, 3)};
    }
    ReadAccounts(db_, "SELECT TaxID, TaxGLAccountID FROM main.Tax", taxAccounts_);
    ReadAccounts(db_, "SELECT BankID, BankGLAccountID FROM main.Bank", bankAccounts_);
    ReadAccounts(db_, "SELECT TaskTypeID, SalesGLAccountID FROM main.TaskType", taskTypeAccounts_);
    Statement& s =
        db_.Conn().Cached("SELECT ItemTypeID, Inventory, CostingMethod FROM main.ItemType");
    StatementRun run(s);
    while (s.Step())
        itemTypes_[s.ColumnInt(0)] = {BoolAt(s, 1),
                                      static_cast<int>(OptionalInt(s, 2).value_or(0))};
}

std::optional<ItemForPosting> InvoiceReader::Item(std::int64_t itemId) {
    if (auto it = items_.find(itemId); it != items_.end()) return it->second;
    Statement& s = db_.Conn().Cached(
        "SELECT SalesGLAccountID, SalesSubAccount1ID, SalesSubAccount2ID, SalesSubAccount3ID, "
        "COGSGLAccountID, COGSSubAccount1ID, COGSSubAccount2ID, COGSSubAccount3ID, "
        "InventoryGLAccountID, InventorySubAccount1ID, InventorySubAccount2ID, "
        "InventorySubAccount3ID, WgtAvgCost, StandardCost, ItemTypeID FROM main.Item "
        "WHERE ItemID = ?");
    StatementRun run(s);
    s.Bind(1, Value(itemId));
    std::optional<ItemForPosting> item;
    if (s.Step()) {
        item.emplace();
        item->Sales = ledger::ReadAccount(s, 0);
        item->Cogs = ledger::ReadAccount(s, 4);
        item->Stock = ledger::ReadAccount(s, 8);
        item->WgtAvgCost = OptionalMoneyAt(s, 12);
        item->StandardCost = OptionalMoneyAt(s, 13);
        if (auto type = OptionalInt(s, 14)) {
            auto flags = itemTypes_.find(*type);
            if (flags != itemTypes_.end()) {
                item->Inventory = flags->second.Inventory;
                item->CostingMethod = flags->second.CostingMethod;
            }
        }
    }
    return items_.emplace(itemId, item).first->second;
}

std::optional<std::int64_t> InvoiceReader::TaskSalesAccount(std::int64_t taskId) {
    if (auto it = taskSalesAccounts_.find(taskId); it != taskSalesAccounts_.end())
        return it->second;
    Statement& s = db_.Conn().Cached("SELECT TaskTypeID FROM main.Task WHERE TaskID = ?");
    StatementRun run(s);
    s.Bind(1, Value(taskId));
    std::optional<std::int64_t> account;
    if (s.Step())
        if (auto type = OptionalInt(s, 0)) {
            auto it = taskTypeAccounts_.find(*type);
            if (it != taskTypeAccounts_.end()) account = it->second;
        }
    return taskSalesAccounts_.emplace(taskId, account).first->second;
}

std::vector<InvoiceToPost> InvoiceReader::ReadToPost() {
    ReadMasters();
    std::vector<InvoiceToPost> invoices;
    {
        Statement& s = db_.Conn().Cached(
            std::string("SELECT ARInvoiceID, InvoiceNo, CustomerID, WarehouseID, GLYear, "
                        "GLPeriod, InvoiceDate, InvoiceAmount, POSPmtAmount, POSPmtPaidBy, "
                        "POSPmtReference, POSPmtBankID, Tax1ID, Tax2ID, Tax1Code, Tax2Code, "
                        "Tax1Rate, Tax2Rate, TaxableAmtCode1, TaxableAmtCode2, TaxableAmtCode3, "
                        "TaxableAmount1, TaxableAmount2, TaxableAmount3, CurrencyID "
                        "FROM main.ARInv i") +
            SelectionWhere + " ORDER BY ARInvoiceID");
        StatementRun run(s);
        BindSelection(s);
        while (s.Step()) {
            InvoiceToPost inv;
            inv.ARInvoiceID = s.ColumnInt(0);
            inv.InvoiceNo = TextAt(s, 1);
            inv.CustomerID = s.ColumnInt(2);
            inv.WarehouseID = OptionalInt(s, 3);
            inv.GLYear = static_cast<int>(s.ColumnInt(4));
            inv.GLPeriod = static_cast<int>(s.ColumnInt(5));
            inv.InvoiceDate = s.ColumnValue(6, store::FieldType::Date).Date();
            inv.InvoiceAmount = MoneyAt(s, 7);
            inv.POSPmtAmount = MoneyAt(s, 8);
            if (auto paidBy = OptionalInt(s, 9)) inv.POSPmtPaidBy = static_cast<int>(*paidBy);
            inv.POSPmtReference = TextAt(s, 10);
            inv.POSPmtBankID = OptionalInt(s, 11);
            // The taxes anew from the stored buckets and the invoice's own copies of code and
            // rate, as entry showed them.
            TaxBuckets buckets;
            for (int k = 0; k < 3; ++k)
                buckets[static_cast<std::size_t>(k)] = {TextAt(s, 18 + k), MoneyAt(s, 21 + k)};
            inv.Tax1Amount = TaxAmount(buckets, TextAt(s, 14), FloatAt(s, 16).value_or(0));
            inv.Tax2Amount = TaxAmount(buckets, TextAt(s, 15), FloatAt(s, 17).value_or(0));
            // A tax that is gone, like one never set, has no account.
            auto account = [](const auto& map, std::optional<std::int64_t> id) {
                std::optional<std::int64_t> found;
                if (id)
                    if (auto it = map.find(*id); it != map.end()) found = it->second;
                return found;
            };
            inv.Tax1GLAccountID = account(taxAccounts_, OptionalInt(s, 12));
            inv.Tax2GLAccountID = account(taxAccounts_, OptionalInt(s, 13));
            inv.POSBankGLAccountID = account(bankAccounts_, inv.POSPmtBankID);
            if (auto currency = OptionalInt(s, 24))
                if (auto it = currencies_.find(*currency); it != currencies_.end()) {
                    inv.StoredRate = it->second.Rate;
                    inv.ARGLAccountID = it->second.ARGLAccountID;
                    inv.GainLossGLAccountID = it->second.GainLossGLAccountID;
                }
            invoices.push_back(std::move(inv));
        }
    }
    Statement& s = db_.Conn().Cached(
        std::string("SELECT d.ARInvoiceID, d.Seq, d.Quantity, d.UnitPrice, d.ItemID, d.TaskID "
                    "FROM main.ARInv i JOIN main.ARInvDet d ON d.ARInvoiceID = i.ARInvoiceID") +
        SelectionWhere + " ORDER BY d.ARInvoiceID, d.Seq");
    StatementRun run(s);
    BindSelection(s);
    // Both reads are in key order: the lines are dealt out to their invoices in one pass.
    std::size_t next = 0;
    while (s.Step()) {
        const std::int64_t id = s.ColumnInt(0);
        while (next < invoices.size() && invoices[next].ARInvoiceID < id)
            ++next;
        if (next == invoices.size() || invoices[next].ARInvoiceID != id) continue;
        InvoiceLineToPost line;
        line.Seq = OptionalInt(s, 1).value_or(0);
        line.Quantity = FloatAt(s, 2);
        line.UnitPrice = OptionalMoneyAt(s, 3);
        line.ItemID = OptionalInt(s, 4);
        line.TaskID = OptionalInt(s, 5);
        invoices[next].Lines.push_back(line);
    }
    // The look-ups after the reads: no statement may be stepped while another of the same
    // text is open, and the item look-up is one cached statement.
    for (auto& inv : invoices)
        for (auto& line : inv.Lines) {
            if (line.ItemID) line.Item = Item(*line.ItemID);
            if (line.TaskID && *line.TaskID > 0)
                line.TaskSalesAccountID = TaskSalesAccount(*line.TaskID);
        }
    return invoices;
}

} // namespace corvane::receivables
