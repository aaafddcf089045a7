#include "receivables/posting/InvoicePostingWriter.h"

#include "ledger/domain/VoucherNumbering.h"
#include "ledger/posting/StatementColumns.h"
#include "store/Database.h"
#include "store/Value.h"
#include "store/sql/Connection.h"

#include <cstdlib>

namespace corvane::receivables {

using ledger::OptionalInt;
using store::Statement;
using store::StatementRun;
using store::Value;

namespace {

Value Optional(const std::optional<std::int64_t>& v) {
    return v ? Value(*v) : Value();
}

void Run(store::Database& db, const std::string& sql, const std::vector<Value>& values) {
    Statement& s = db.Conn().Cached(sql);
    StatementRun run(s);
    s.BindAll(values);
    s.Step();
}

} // namespace

InvoicePostingWriter::InvoicePostingWriter(store::Database& db)
    : db_(db), vouchers_(db, "JV",
                         {"JVID", "GLYear", "GLPeriod", "JVNumber", "Source", "TransType",
                          "TransDate", "TransDescription", "CustomerID", "ARInvoiceID", "PaymentID",
                          "JVAmount", "Posted", "AutoReverse"}),
      voucherLines_(db, "JVDet",
                    {"JVID", "Seq", "GLAccountID", "SubAccount1ID", "SubAccount2ID",
                     "SubAccount3ID", "GLAmount"}),
      stockHistory_(db, "IHist",
                    {"IHistID", "ItemID", "WarehouseID", "GLYear", "GLPeriod", "TransType",
                     "TransDate", "Quantity", "TransDescription", "ARInvoiceID"}) {
    {
        Statement& s = db_.Conn().Cached("SELECT NextJVID, NextJVNumber FROM main.JVCtl LIMIT 1");
        StatementRun run(s);
        if (s.Step()) {
            jvCtlExists_ = true;
            jvId_.Next = OptionalInt(s, 0);
            jvNumber_.Next = OptionalInt(s, 1);
        }
    }
    Statement& s = db_.Conn().Cached("SELECT NextPaymentID FROM main.ARPmtCtl LIMIT 1");
    StatementRun run(s);
    if (s.Step()) {
        pmtCtlExists_ = true;
        paymentId_.Next = OptionalInt(s, 0);
    }
}

std::int64_t InvoicePostingWriter::MaxPlusOne(const char* sql) {
    Statement& s = db_.Conn().Cached(sql);
    StatementRun run(s);
    s.Step();
    return s.ColumnIsNull(0) ? 1 : s.ColumnInt(0) + 1;
}

std::int64_t InvoicePostingWriter::NextJVID() {
    // A company whose control row is missing or was never filled carries on after the highest.
    std::int64_t id =
        jvId_.Next && *jvId_.Next >= 1 ? *jvId_.Next : MaxPlusOne("SELECT max(JVID) FROM main.JV");
    jvId_.Next = id + 1;
    jvId_.Changed = true;
    return id;
}

std::int64_t InvoicePostingWriter::NextJVNumber(int year, int period) {
    std::int64_t number = ledger::VoucherNumberToUse(jvNumber_.Next.value_or(0));
    Statement& s = db_.Conn().Cached(
        "SELECT 1 FROM main.JV WHERE GLYear = ? AND GLPeriod = ? AND JVNumber = ?");
    // A number already taken in the period, by hand or by an earlier run, is passed over. The
    // vouchers of this run still waiting in the batch hold numbers below the next, never it,
    // unless the numbers have just started again from the first: then they must be seen.
    if (number != jvNumber_.Next.value_or(0)) vouchers_.Flush();
    for (;; ++number) {
        StatementRun run(s);
        s.BindAll({Value(year), Value(period), Value(number)});
        if (!s.Step()) break;
    }
    jvNumber_.Next = number + 1;
    jvNumber_.Changed = true;
    return number;
}

std::int64_t InvoicePostingWriter::NextPaymentID() {
    std::int64_t id = paymentId_.Next && *paymentId_.Next >= 1
                          ? *paymentId_.Next
                          : MaxPlusOne("SELECT max(PaymentID) FROM main.ARPmt");
    paymentId_.Next = id + 1;
    paymentId_.Changed = true;
    return id;
}

std::int64_t InvoicePostingWriter::WriteVoucher(const VoucherToWrite& v, const InvoiceToPost& inv,
                                                std::optional<std::int64_t> arInvoiceId,
                                                std::optional<std::int64_t> paymentId) {
    return WriteVoucher(v, VoucherPlace{inv.GLYear, inv.GLPeriod, inv.InvoiceDate, inv.CustomerID},
                        arInvoiceId, paymentId);
}

std::int64_t InvoicePostingWriter::WriteVoucher(const VoucherToWrite& v, const VoucherPlace& at,
                                                std::optional<std::int64_t> arInvoiceId,
                                                std::optional<std::int64_t> paymentId) {
    const std::int64_t jvid = NextJVID();
    const std::int64_t number = NextJVNumber(at.GLYear, at.GLPeriod);
    vouchers_.Queue({Value(jvid), Value(at.GLYear), Value(at.GLPeriod), Value(number), Value("AR"),
                     Value(v.TransType), Value(at.TransDate), Value(v.TransDescription),
                     Value(at.CustomerID), Optional(arInvoiceId), Optional(paymentId),
                     Value(v.JVAmount), Value(false), Value(false)});
    for (const ledger::VoucherLine& line : v.Lines)
        voucherLines_.Queue({Value(jvid), Value(line.Seq), Optional(line.Account.GLAccountID),
                             Optional(line.Account.SubAccount1ID),
                             Optional(line.Account.SubAccount2ID),
                             Optional(line.Account.SubAccount3ID), Value(line.GLAmount)});
    return jvid;
}

void InvoicePostingWriter::MarkPosted(std::int64_t arInvoiceId, double rate) {
    Run(db_, "UPDATE main.ARInv SET Posted = ?, ExchangeRate = ? WHERE ARInvoiceID = ?",
        {Value(true), Value(rate), Value(arInvoiceId)});
}

void InvoicePostingWriter::SetUnitCost(std::int64_t arInvoiceId, std::int64_t seq,
                                       std::optional<Money> cost) {
    Run(db_, "UPDATE main.ARInvDet SET UnitCost = ? WHERE ARInvoiceID = ? AND Seq = ?",
        {cost ? Value(*cost) : Value(), Value(arInvoiceId), Value(seq)});
}

void InvoicePostingWriter::AddToCustomerBalance(std::int64_t customerId, Money amount) {
    auto [it, fresh] = customers_.try_emplace(customerId);
    Balance& b = it->second;
    if (fresh) {
        Statement& s = db_.Conn().Cached("SELECT Balance FROM main.CBalance WHERE CustomerID = ?");
        StatementRun run(s);
        s.Bind(1, Value(customerId));
        if (s.Step()) {
            b.Exists = true;
            b.Amount = ledger::MoneyAt(s, 0);
        }
    }
    b.Amount += amount;
    b.Changed = true;
}

void InvoicePostingWriter::SellStock(const StockMove& move, const InvoiceToPost& inv) {
    lastHistoryId_ = lastHistoryId_
                         ? *lastHistoryId_ + 1
                         : db_.NextAutoInc(store::Database::MainSchema, "IHist", "IHistID");
    stockHistory_.Queue({Value(*lastHistoryId_), Value(move.ItemID), Optional(inv.WarehouseID),
                         Value(inv.GLYear), Value(inv.GLPeriod), Value(2), Value(inv.InvoiceDate),
                         move.Quantity ? Value(*move.Quantity) : Value(),
                         Value("AR Invoice: " + inv.InvoiceNo), Value(inv.ARInvoiceID)});
    auto [it, fresh] = stock_.try_emplace({move.ItemID, inv.WarehouseID});
    Balance& b = it->second;
    if (fresh) {
        Statement& s = db_.Conn().Cached(
            "SELECT QtyOnHand FROM main.IBalance WHERE ItemID = ? AND WarehouseID IS ?");
        StatementRun run(s);
        s.BindAll({Value(move.ItemID), Optional(inv.WarehouseID)});
        if (s.Step()) {
            b.Exists = true;
            Value q = s.ColumnValue(0, store::FieldType::Float);
            if (!q.IsNull()) b.Quantity = q.Float();
        }
    }
    const double sold = move.Quantity.value_or(0);
    // A warehouse that never held the item starts from the sale alone.
    b.Quantity = b.Exists || b.Changed ? StockAfterSale(b.Quantity.value_or(0), sold) : -sold;
    b.Changed = true;
}

std::int64_t InvoicePostingWriter::WritePayment(const InvoiceToPost& inv) {
    const std::int64_t id = NextPaymentID();
    Run(db_,
        "INSERT INTO main.ARPmt (PaymentID, ChequeNo, CustomerID, BankID, GLYear, GLPeriod, "
        "PaymentDate, ChequeAmount, Posted, Reconciled, PaidBy) "
        "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
        {Value(id), inv.POSPmtReference.empty() ? Value() : Value(inv.POSPmtReference),
         Value(inv.CustomerID), Optional(inv.POSPmtBankID), Value(inv.GLYear), Value(inv.GLPeriod),
         Value(inv.InvoiceDate), Value(inv.POSPmtAmount), Value(true), Value(false),
         inv.POSPmtPaidBy ? Value(*inv.POSPmtPaidBy) : Value()});
    Run(db_,
        "INSERT INTO main.ARInvPmt (ARInvoiceID, PaymentID, Seq, PaymentAmount) "
        "VALUES (?, ?, ?, ?)",
        {Value(inv.ARInvoiceID), Value(id), Value(1), Value(inv.POSPmtAmount)});
    return id;
}

void InvoicePostingWriter::Flush() {
    vouchers_.Flush();
    voucherLines_.Flush();
    stockHistory_.Flush();
    if (lastHistoryId_)
        db_.NoteAutoIncValue(store::Database::MainSchema, "IHist", "IHistID", *lastHistoryId_);
    for (auto& [customer, b] : customers_) {
        if (!b.Changed) continue;
        if (b.Exists)
            Run(db_, "UPDATE main.CBalance SET Balance = ? WHERE CustomerID = ?",
                {Value(b.Amount), Value(customer)});
        else
            Run(db_, "INSERT INTO main.CBalance (CustomerID, Balance) VALUES (?, ?)",
                {Value(customer), Value(b.Amount)});
        b.Exists = true;
        b.Changed = false;
    }
    for (auto& [key, b] : stock_) {
        if (!b.Changed) continue;
        const Value quantity = b.Quantity ? Value(*b.Quantity) : Value();
        if (b.Exists)
            Run(db_, "UPDATE main.IBalance SET QtyOnHand = ? WHERE ItemID = ? AND WarehouseID IS ?",
                {quantity, Value(key.first), Optional(key.second)});
        else
            Run(db_, "INSERT INTO main.IBalance (ItemID, WarehouseID, QtyOnHand) VALUES (?, ?, ?)",
                {Value(key.first), Optional(key.second), quantity});
        b.Exists = true;
        b.Changed = false;
    }
    if (jvId_.Changed || jvNumber_.Changed) {
        const std::vector<Value> values{Optional(jvId_.Next), Optional(jvNumber_.Next)};
        if (jvCtlExists_)
            Run(db_, "UPDATE main.JVCtl SET NextJVID = ?, NextJVNumber = ?", values);
        else
            Run(db_, "INSERT INTO main.JVCtl (NextJVID, NextJVNumber) VALUES (?, ?)", values);
        jvCtlExists_ = true;
        jvId_.Changed = jvNumber_.Changed = false;
    }
    if (paymentId_.Changed) {
        if (pmtCtlExists_)
            Run(db_, "UPDATE main.ARPmtCtl SET NextPaymentID = ?", {Optional(paymentId_.Next)});
        else
            Run(db_, "INSERT INTO main.ARPmtCtl (NextPaymentID) VALUES (?)",
                {Optional(paymentId_.Next)});
        pmtCtlExists_ = true;
        paymentId_.Changed = false;
    }
}

} // namespace corvane::receivables
