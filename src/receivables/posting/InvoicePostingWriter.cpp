#include "receivables/posting/InvoicePostingWriter.h"

#include "ledger/domain/VoucherNumbering.h"
#include "ledger/posting/RowColumns.h"
#include "store/Database.h"
#include "store/Query.h"
#include "store/Value.h"

#include <cstdlib>

namespace corvane::receivables {

using ledger::OptionalInt;
using ledger::QueryRow;
using store::Value;

namespace {

Value Optional(const std::optional<std::int64_t>& v) {
    return v ? Value(*v) : Value();
}

// The first row of a query, if it has one.
std::optional<QueryRow> FirstRow(store::Database& db, const std::string& sql) {
    store::Query query(db, sql);
    std::optional<QueryRow> first;
    query.ForEachRow([&](const QueryRow& row) {
        if (!first) first = row;
    });
    return first;
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
                     "TransDate", "Quantity", "TransDescription", "ARInvoiceID"}),
      payments_(db, "ARPmt",
                {"PaymentID", "ChequeNo", "CustomerID", "BankID", "GLYear", "GLPeriod",
                 "PaymentDate", "ChequeAmount", "Posted", "Reconciled", "PaidBy"}),
      paymentLinks_(db, "ARInvPmt", {"ARInvoiceID", "PaymentID", "Seq", "PaymentAmount"}),
      numberTaken_(db, "JV", {"GLYear", "GLPeriod", "JVNumber"}, {}),
      posted_(db, "ARInv", {"ARInvoiceID"}, {"Posted", "ExchangeRate"}),
      unitCost_(db, "ARInvDet", {"ARInvoiceID", "Seq"}, {"UnitCost"}),
      findCustomer_(db, "CBalance", {"CustomerID"}, {"Balance"}),
      setCustomer_(db, "CBalance", {"CustomerID"}, {"Balance"}),
      newCustomer_(db, "CBalance", {"CustomerID", "Balance"}),
      findStock_(db, "IBalance", {"ItemID", "WarehouseID"}, {"QtyOnHand"}),
      setStock_(db, "IBalance", {"ItemID", "WarehouseID"}, {"QtyOnHand"}),
      newStock_(db, "IBalance", {"ItemID", "WarehouseID", "QtyOnHand"}),
      setJVCtl_(db, "JVCtl", {}, {"NextJVID", "NextJVNumber"}),
      newJVCtl_(db, "JVCtl", {"NextJVID", "NextJVNumber"}),
      setPmtCtl_(db, "ARPmtCtl", {}, {"NextPaymentID"}),
      newPmtCtl_(db, "ARPmtCtl", {"NextPaymentID"}) {
    if (auto row = FirstRow(db_, "SELECT NextJVID, NextJVNumber FROM JVCtl")) {
        jvCtlExists_ = true;
        jvId_.Next = OptionalInt(*row, 0);
        jvNumber_.Next = OptionalInt(*row, 1);
    }
    if (auto row = FirstRow(db_, "SELECT NextPaymentID FROM ARPmtCtl")) {
        pmtCtlExists_ = true;
        paymentId_.Next = OptionalInt(*row, 0);
    }
}

std::int64_t InvoicePostingWriter::MaxPlusOne(const char* sql) {
    auto row = FirstRow(db_, sql);
    return row ? ledger::IntAt(*row, 0) + 1 : 1;
}

std::int64_t InvoicePostingWriter::NextJVID() {
    // A company whose control row is missing or was never filled carries on after the highest.
    std::int64_t id =
        jvId_.Next && *jvId_.Next >= 1 ? *jvId_.Next : MaxPlusOne("SELECT max(JVID) FROM JV");
    jvId_.Next = id + 1;
    jvId_.Changed = true;
    return id;
}

std::int64_t InvoicePostingWriter::NextJVNumber(int year, int period) {
    std::int64_t number = ledger::VoucherNumberToUse(jvNumber_.Next.value_or(0));
    // A number already taken in the period, by hand or by an earlier run, is passed over. The
    // vouchers of this run still waiting in the batch hold numbers below the next, never it,
    // unless the numbers have just started again from the first: then they must be seen.
    if (number != jvNumber_.Next.value_or(0)) vouchers_.Flush();
    while (numberTaken_.Find({Value(year), Value(period), Value(number)}))
        ++number;
    jvNumber_.Next = number + 1;
    jvNumber_.Changed = true;
    return number;
}

std::int64_t InvoicePostingWriter::NextPaymentID() {
    std::int64_t id = paymentId_.Next && *paymentId_.Next >= 1
                          ? *paymentId_.Next
                          : MaxPlusOne("SELECT max(PaymentID) FROM ARPmt");
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
    posted_.Set({Value(arInvoiceId)}, {Value(true), Value(rate)});
}

void InvoicePostingWriter::SetUnitCost(std::int64_t arInvoiceId, std::int64_t seq,
                                       std::optional<Money> cost) {
    unitCost_.Set({Value(arInvoiceId), Value(seq)}, {cost ? Value(*cost) : Value()});
}

void InvoicePostingWriter::AddToCustomerBalance(std::int64_t customerId, Money amount) {
    auto [it, fresh] = customers_.try_emplace(customerId);
    Balance& b = it->second;
    if (fresh) {
        if (auto found = findCustomer_.Find({Value(customerId)})) {
            b.Exists = true;
            const Value& balance = found->Values[0];
            if (!balance.IsNull()) b.Amount = balance.Money();
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
        if (auto found = findStock_.Find({Value(move.ItemID), Optional(inv.WarehouseID)})) {
            b.Exists = true;
            const Value& quantity = found->Values[0];
            if (!quantity.IsNull()) b.Quantity = quantity.Float();
        }
    }
    const double sold = move.Quantity.value_or(0);
    // A warehouse that never held the item starts from the sale alone.
    b.Quantity = b.Exists || b.Changed ? StockAfterSale(b.Quantity.value_or(0), sold) : -sold;
    b.Changed = true;
}

std::int64_t InvoicePostingWriter::WritePayment(const InvoiceToPost& inv) {
    const std::int64_t id = NextPaymentID();
    payments_.Add({Value(id), inv.POSPmtReference.empty() ? Value() : Value(inv.POSPmtReference),
                   Value(inv.CustomerID), Optional(inv.POSPmtBankID), Value(inv.GLYear),
                   Value(inv.GLPeriod), Value(inv.InvoiceDate), Value(inv.POSPmtAmount),
                   Value(true), Value(false),
                   inv.POSPmtPaidBy ? Value(*inv.POSPmtPaidBy) : Value()});
    paymentLinks_.Add({Value(inv.ARInvoiceID), Value(id), Value(1), Value(inv.POSPmtAmount)});
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
            setCustomer_.Set({Value(customer)}, {Value(b.Amount)});
        else
            newCustomer_.Add({Value(customer), Value(b.Amount)});
        b.Exists = true;
        b.Changed = false;
    }
    for (auto& [key, b] : stock_) {
        if (!b.Changed) continue;
        const Value quantity = b.Quantity ? Value(*b.Quantity) : Value();
        if (b.Exists)
            setStock_.Set({Value(key.first), Optional(key.second)}, {quantity});
        else
            newStock_.Add({Value(key.first), Optional(key.second), quantity});
        b.Exists = true;
        b.Changed = false;
    }
    if (jvId_.Changed || jvNumber_.Changed) {
        const std::vector<Value> values{Optional(jvId_.Next), Optional(jvNumber_.Next)};
        if (jvCtlExists_)
            setJVCtl_.Set({}, values);
        else
            newJVCtl_.Add(values);
        jvCtlExists_ = true;
        jvId_.Changed = jvNumber_.Changed = false;
    }
    if (paymentId_.Changed) {
        if (pmtCtlExists_)
            setPmtCtl_.Set({}, {Optional(paymentId_.Next)});
        else
            newPmtCtl_.Add({Optional(paymentId_.Next)});
        pmtCtlExists_ = true;
        paymentId_.Changed = false;
    }
}

} // namespace corvane::receivables
