#include "receivables/payments/domain/PaymentDocument.h"

#include "core/DisplayFormat.h"
#include "core/Exception.h"
#include "ledger/domain/PeriodRules.h"
#include "receivables/payments/domain/PaymentTexts.h"
#include "store/BulkWriter.h"
#include "store/Database.h"
#include "store/NumberDraw.h"
#include "store/Query.h"
#include "store/Table.h"
#include "store/ValueConversion.h"

#include <string_view>

namespace corvane::receivables {

using store::Value;
namespace text = payment_text;

namespace {

Value Opt(const std::optional<std::int64_t>& v) {
    return v ? Value(*v) : Value();
}

// Values as the kind of field they stand for, whatever kind the query gave them.
std::optional<std::int64_t> OptInt(const Value& v) {
    if (v.IsNull()) return std::nullopt;
    return store::CoerceToField(v, store::FieldType::Integer).Int();
}
std::int64_t IntOr0(const Value& v) {
    return OptInt(v).value_or(0);
}
Money MoneyOr0(const Value& v) {
    return v.IsNull() ? Money() : store::CoerceToField(v, store::FieldType::Currency).Money();
}
double FloatOr0(const Value& v) {
    return v.IsNull() ? 0 : store::CoerceToField(v, store::FieldType::Float).Float();
}
bool Flag(const Value& v) {
    return !v.IsNull() && store::CoerceToField(v, store::FieldType::Boolean).Bool();
}
std::string TextOf(const Value& v) {
    return v.IsNull() ? std::string() : store::CoerceToField(v, store::FieldType::String).Str();
}

// The values of the first row of a query by one id; empty when there is none.
std::vector<Value> FirstRow(store::Database& db, const std::string& sql, std::int64_t id) {
    store::Query q(db, sql);
    q.ParamByName("ID").SetAsInteger(id);
    q.Open();
    std::vector<Value> values;
    if (q.IsEmpty()) return values;
    for (const auto& f : q.Fields())
        values.push_back(f->AsValue());
    return values;
}

std::string MoneyText(Money m) {
    return FormatMoney("#,###,##0.00#", m);
}

InvoiceDue DueFrom(const std::vector<Value>& row) {
    // ARInvoiceID, InvoiceNo, Posted, InvoiceDate, InvoiceAmount, Owing, DiscPC, DiscDays
    InvoiceDue due;
    due.ARInvoiceID = IntOr0(row[0]);
    due.InvoiceNo = TextOf(row[1]);
    due.Posted = Flag(row[2]);
    if (!row[3].IsNull())
        due.InvoiceDate = store::CoerceToField(row[3], store::FieldType::Date).Date();
    due.InvoiceAmount = MoneyOr0(row[4]);
    due.Owing = MoneyOr0(row[5]);
    due.DiscPC = FloatOr0(row[6]);
    due.DiscDays = static_cast<int>(IntOr0(row[7]));
    return due;
}

constexpr const char* DueColumns =
    "ARInvoiceID, InvoiceNo, Posted, InvoiceDate, InvoiceAmount, Owing, DiscPC, DiscDays";

} // namespace

PaymentVerdict ValidatePayment(store::Database& db, const PaymentHeader& p,
                               const PaymentLinesTotal& lines, bool checkWording,
                               PaymentAnswers answered) {
    if (p.Posted) return {};
    if (!p.BankID) return PaymentVerdict::Refuse(text::BankMissing, "BankID");
    if (!p.CustomerID) return PaymentVerdict::Refuse(text::CustomerMissing, "CustomerID");
    if (p.PaidBy == 2 && p.ChequeNo.empty())
        return PaymentVerdict::Refuse(
            checkWording ? text::ReferenceMissingCheck : text::ReferenceMissingCheque, "ChequeNo");
    const std::vector<Value> bank =
        FirstRow(db, "SELECT CurrencyID FROM Bank WHERE BankID = :ID", *p.BankID);
    if (bank.empty()) return PaymentVerdict::Refuse(text::BankGone, "BankID");
    const std::vector<Value> customer =
        FirstRow(db, "SELECT CurrencyID FROM Customer WHERE CustomerID = :ID", *p.CustomerID);
    const std::optional<std::int64_t> customerCurrency =
        customer.empty() ? std::nullopt : OptInt(customer[0]);
    if (OptInt(bank[0]) != customerCurrency)
        return PaymentVerdict::Refuse(text::BankCurrency, "BankID");
    if (!p.PaymentDate) return PaymentVerdict::Refuse(text::DateMissing, "PaymentDate");
    if (p.GLYear == 0) return PaymentVerdict::Refuse(text::YearMissing, "GLYear");
    if (p.GLPeriod == 0) return PaymentVerdict::Refuse(text::PeriodMissing, "GLPeriod");
    const ledger::PeriodVerdict period =
        ledger::JudgePeriod(ledger::CompanyPeriods::Read(db), ledger::Period{p.GLYear, p.GLPeriod});
    if (period.Verdict == ledger::PeriodVerdict::Kind::Refused)
        return PaymentVerdict::Refuse(period.Message, "GLPeriod");
    if (period.Verdict == ledger::PeriodVerdict::Kind::Warning && !answered.Period)
        return {PaymentVerdict::Kind::Warning, period.Message, "GLPeriod", {}};
    if (lines.Count == 0) return PaymentVerdict::Refuse(text::NoLines, "Lines");
    if (p.ChequeAmount) {
        const Money d = *p.ChequeAmount - lines.Total;
        if (!d.IsZero())
            return PaymentVerdict::Refuse(
                "Amount does not match the total of the invoice payments (Payment column): " +
                    MoneyText(lines.Total) + "\nIf the amount " + MoneyText(*p.ChequeAmount) +
                    " is correct, " +
                    (d > Money() ? "increase the invoice payment(s) by " + MoneyText(d)
                                 : "decrease the invoice payment(s) by " + MoneyText(-d)),
                "ChequeAmount");
        return {};
    }
    return {PaymentVerdict::Kind::Question,
            "Amount is " + MoneyText(lines.Total) + "\nIs this correct?", "ChequeAmount",
            lines.Total};
}

namespace {

void WriteHeader(store::Table& t, const PaymentHeader& p) {
    auto set = [&](std::string_view name, const Value& v) { t.FieldByName(name).SetValue(v); };
    set("PaymentID", Value(p.PaymentID));
    set("ChequeNo", p.ChequeNo.empty() ? Value() : Value(p.ChequeNo));
    set("CustomerID", Opt(p.CustomerID));
    set("BankID", Opt(p.BankID));
    set("GLYear", p.GLYear ? Value(p.GLYear) : Value());
    set("GLPeriod", p.GLPeriod ? Value(p.GLPeriod) : Value());
    set("PaymentDate", p.PaymentDate ? Value(*p.PaymentDate) : Value());
    set("ChequeAmount", p.ChequeAmount ? Value(*p.ChequeAmount) : Value());
    set("Posted", Value(p.Posted));
    set("Reconciled", Value(p.Reconciled));
    set("PaidBy", p.PaidBy ? Value(*p.PaidBy) : Value());
}

} // namespace

namespace {

// The header's row, new or changed, inside the caller's transaction.
void WritePaymentRow(store::Database& db, const PaymentHeader& p) {
    store::Table t(db, "ARPmt");
    t.Open();
    if (t.Locate("PaymentID", {Value(p.PaymentID)}))
        t.Edit();
    else
        t.Append();
    WriteHeader(t, p);
    t.Post();
}

} // namespace

void SavePayment(store::Database& db, const PaymentHeader& p) {
    store::Transaction save(db, {"ARPmt"});
    WritePaymentRow(db, p);
    save.Commit();
}

PaymentVerdict DeletePayment(store::Database& db, std::int64_t paymentId) {
    const std::optional<PaymentHeader> p = ReadPayment(db, paymentId);
    if (!p) return {};
    if (p->Posted) return PaymentVerdict::Refuse(text::PostedCannotDelete, "");
    store::Transaction removal(db, {"ARPmt", "ARInvPmt"});
    store::DeleteRowsWhere(db, "ARInvPmt", "PaymentID", Value(paymentId));
    store::DeleteRowsWhere(db, "ARPmt", "PaymentID", Value(paymentId));
    removal.Commit();
    return {};
}

std::optional<PaymentHeader> ReadPayment(store::Database& db, std::int64_t paymentId) {
    const std::vector<Value> r = FirstRow(db,
                                          "SELECT ChequeNo, CustomerID, BankID, GLYear, GLPeriod, "
                                          "PaymentDate, ChequeAmount, PaidBy, Posted, Reconciled "
                                          "FROM ARPmt WHERE PaymentID = :ID",
                                          paymentId);
    if (r.empty()) return std::nullopt;
    PaymentHeader p;
    p.PaymentID = paymentId;
    p.ChequeNo = TextOf(r[0]);
    p.CustomerID = OptInt(r[1]);
    p.BankID = OptInt(r[2]);
    p.GLYear = static_cast<int>(IntOr0(r[3]));
    p.GLPeriod = static_cast<int>(IntOr0(r[4]));
    if (!r[5].IsNull()) p.PaymentDate = store::CoerceToField(r[5], store::FieldType::Date).Date();
    if (!r[6].IsNull()) p.ChequeAmount = MoneyOr0(r[6]);
    p.PaidBy = r[7].IsNull() ? std::nullopt : std::optional<int>(static_cast<int>(IntOr0(r[7])));
    p.Posted = Flag(r[8]);
    p.Reconciled = Flag(r[9]);
    return p;
}

PaymentLinesTotal ReadLinesTotal(store::Database& db, std::int64_t paymentId) {
    const std::vector<Value> r =
        FirstRow(db,
                 "SELECT count(*) AS Lines, sum(PaymentAmount) AS Total FROM ARInvPmt "
                 "WHERE PaymentID = :ID",
                 paymentId);
    PaymentLinesTotal total;
    if (r.empty()) return total;
    total.Count = IntOr0(r[0]);
    total.Total = MoneyOr0(r[1]);
    return total;
}

std::optional<std::int64_t> DrawPaymentID(store::Database& db,
                                          const std::function<bool(const std::string&)>& askRetry,
                                          int tries, int pauseMs) {
    std::int64_t id = 0;
    const bool drawn = store::DrawFromControl(
        db, "ARPmtCtl", store::ControlRetry{"AR", tries, pauseMs},
        [&id](store::ControlRow& row) {
            // A company whose control row is missing or was never filled carries on after the
            // highest id.
            std::optional<std::int64_t> next = row.Peek("NextPaymentID");
            if (!next || *next < 1)
                row.Put("NextPaymentID", store::DrawMaxPlusOne(row.Db(), "ARPmt", "PaymentID"));
            id = row.Take("NextPaymentID");
        },
        askRetry);
    if (!drawn) return std::nullopt;
    return id;
}

std::optional<std::int64_t> BankForCustomer(store::Database& db, std::int64_t customerId,
                                            std::optional<std::int64_t> chosen) {
    const std::vector<Value> customer =
        FirstRow(db, "SELECT CurrencyID FROM Customer WHERE CustomerID = :ID", customerId);
    if (customer.empty() || customer[0].IsNull()) return chosen;
    const std::int64_t currency = IntOr0(customer[0]);
    if (chosen) {
        const std::vector<Value> bank =
            FirstRow(db, "SELECT CurrencyID FROM Bank WHERE BankID = :ID", *chosen);
        if (!bank.empty() && OptInt(bank[0]) == currency) return chosen;
    }
    store::Table banks(db, "Bank");
    banks.ReadOnly = true;
    banks.Open();
    for (banks.First(); !banks.Eof(); banks.Next())
        if (OptInt(banks.FieldByName("CurrencyID").AsValue()) == currency)
            return banks.FieldByName("BankID").AsInteger();
    return chosen;
}

std::optional<std::int64_t> DefaultWriteOffAccount(store::Database& db, std::int64_t customerId) {
    const std::vector<Value> r = FirstRow(db,
                                          "SELECT c.DfltWriteOffGLAccountID FROM Customer u "
                                          "JOIN Currency c ON c.CurrencyID = u.CurrencyID "
                                          "WHERE u.CustomerID = :ID",
                                          customerId);
    return r.empty() ? std::nullopt : OptInt(r[0]);
}

std::optional<InvoiceDue> ReadInvoiceDue(store::Database& db, std::int64_t arInvoiceId) {
    const std::vector<Value> r =
        FirstRow(db, std::string("SELECT ") + DueColumns + " FROM ARInv WHERE ARInvoiceID = :ID",
                 arInvoiceId);
    if (r.empty()) return std::nullopt;
    return DueFrom(r);
}

AccountExists AccountsIn(store::Database& db) {
    return [&db](int level, std::int64_t id) {
        static constexpr const char* Sql[] = {
            "SELECT GLAccountID FROM GLAccnt WHERE GLAccountID = :ID",
            "SELECT SubAccountID FROM GLAcSub1 WHERE SubAccountID = :ID",
            "SELECT SubAccountID FROM GLAcSub2 WHERE SubAccountID = :ID",
            "SELECT SubAccountID FROM GLAcSub3 WHERE SubAccountID = :ID"};
        if (level < 0 || level > 3) return false;
        return !FirstRow(db, Sql[level], id).empty();
    };
}

bool HasOutstandingInvoices(store::Database& db, std::int64_t customerId) {
    return !FirstRow(db, "SELECT ARInvoiceID FROM ARInv WHERE CustomerID = :ID AND Owing <> 0",
                     customerId)
                .empty();
}

AutoCreateResult AutoCreateLines(store::Database& db, std::int64_t paymentId,
                                 std::int64_t customerId, Date paymentDate) {
    AutoCreateResult result;
    store::Transaction write(db, {"ARInvPmt"});
    store::DeleteRowsWhere(db, "ARInvPmt", "PaymentID", Value(paymentId));
    store::BulkInsert insert(
        db, "ARInvPmt", {"ARInvoiceID", "PaymentID", "Seq", "PaymentAmount", "DiscTakenAmount"});
    store::Query open(db, std::string("SELECT ") + DueColumns +
                              " FROM ARInv WHERE CustomerID = :CustomerID AND Owing <> 0 "
                              "ORDER BY InvoiceNo");
    open.ParamByName("CustomerID").SetAsInteger(customerId);
    open.ForEachRow([&](const std::vector<Value>& row) {
        const InvoiceDue due = DueFrom(row);
        if (!due.Posted) {
            result.Notices.push_back("Invoice no. '" + due.InvoiceNo +
                                     "' was not included because it has not been posted yet.");
            return;
        }
        AllocationLine line;
        line.ARInvoiceID = due.ARInvoiceID;
        PayDiscountIfEligible(line, due, paymentDate);
        line.Seq = ++result.Lines;
        insert.Add({Value(due.ARInvoiceID), Value(paymentId), Value(*line.Seq),
                    line.PaymentAmount ? Value(*line.PaymentAmount) : Value(),
                    line.DiscTakenAmount ? Value(*line.DiscTakenAmount) : Value()});
        result.Total += line.Paid();
    });
    write.Commit();
    return result;
}

std::int64_t CreatePayment(store::Database& db, PaymentHeader header,
                           std::vector<AllocationLine> lines,
                           const std::function<bool(const std::string&)>& askRetry) {
    const std::optional<std::int64_t> id = DrawPaymentID(db, askRetry);
    if (!id) throw Exception(text::ControlBusy);
    header.PaymentID = *id;
    const AccountExists exists = AccountsIn(db);
    PaymentLinesTotal total;
    std::vector<std::int64_t> seen;
    for (AllocationLine& line : lines) {
        line.Seq = ++total.Count;
        const std::optional<InvoiceDue> due =
            line.ARInvoiceID ? ReadInvoiceDue(db, *line.ARInvoiceID) : std::nullopt;
        const LineVerdict v = ValidateLine(line, due, exists, {true, true});
        if (v.Verdict == LineVerdict::Kind::Refused) throw Exception(v.Message);
        for (std::int64_t other : seen)
            if (other == *line.ARInvoiceID)
                throw Exception(InvoiceAlreadyOnMessage(db, *line.ARInvoiceID));
        seen.push_back(*line.ARInvoiceID);
        total.Total += line.Paid();
    }
    if (!header.ChequeAmount) header.ChequeAmount = total.Total;
    const PaymentVerdict v = ValidatePayment(db, header, total, false, {true});
    if (!v.Accepted()) throw Exception(v.Message);

    store::Transaction save(db, {"ARPmt", "ARInvPmt"});
    store::BulkInsert insert(db, "ARInvPmt",
                             {"ARInvoiceID", "PaymentID", "Seq", "PaymentAmount", "DiscTakenAmount",
                              "WriteOffAmount", "WriteOffGLAccountID", "WriteOffSubAccount1ID",
                              "WriteOffSubAccount2ID", "WriteOffSubAccount3ID"});
    auto money = [](const std::optional<Money>& m) { return m ? Value(*m) : Value(); };
    for (const AllocationLine& line : lines)
        insert.Add({Opt(line.ARInvoiceID), Value(header.PaymentID), Opt(line.Seq),
                    money(line.PaymentAmount), money(line.DiscTakenAmount),
                    money(line.WriteOffAmount), Opt(line.WriteOffGLAccountID),
                    Opt(line.WriteOffSubAccountIDs[0]), Opt(line.WriteOffSubAccountIDs[1]),
                    Opt(line.WriteOffSubAccountIDs[2])});
    WritePaymentRow(db, header);
    save.Commit();
    return header.PaymentID;
}

std::string InvoiceAlreadyOnMessage(store::Database& db, std::int64_t arInvoiceId) {
    const std::vector<Value> r =
        FirstRow(db, "SELECT InvoiceNo FROM ARInv WHERE ARInvoiceID = :ID", arInvoiceId);
    if (r.empty() || r[0].IsNull()) return text::InvoiceAlreadyOn;
    return "Invoice '" + TextOf(r[0]) + "' is already on this payment";
}

std::string DeleteQuestion(store::Database& db, std::int64_t paymentId) {
    const std::optional<PaymentHeader> p = ReadPayment(db, paymentId);
    if (p && !p->ChequeNo.empty()) return "Delete payment '" + p->ChequeNo + "'?";
    std::string name;
    if (p && p->CustomerID) {
        const std::vector<Value> c = FirstRow(
            db, "SELECT CustomerName FROM Customer WHERE CustomerID = :ID", *p->CustomerID);
        if (!c.empty()) name = TextOf(c[0]);
    }
    return "Delete payment for '" + name + "'?";
}

} // namespace corvane::receivables
