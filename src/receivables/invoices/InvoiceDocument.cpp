#include "receivables/invoices/InvoiceDocument.h"

#include "core/Exception.h"
#include "ledger/periods/PeriodCheck.h"
#include "receivables/invoices/InvoiceTexts.h"
#include "receivables/posting/InvoicePosting.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Query.h"
#include "store/Table.h"

#include <string_view>

namespace corvane::receivables {

using store::Value;
namespace text = invoice_text;

namespace {

Value Opt(const std::optional<std::int64_t>& v) {
    return v ? Value(*v) : Value();
}
Value OptText(const std::string& s) {
    return s.empty() ? Value() : Value(s);
}
Value OptMoney(Money m) {
    return m.IsZero() ? Value() : Value(m);
}

// The one column of the rows of a query by one id; each row's value, nulls included.
std::vector<Value> ColumnOf(store::Database& db, const std::string& sql, std::int64_t id) {
    store::Query q(db, sql);
    q.ParamByName("ID").SetAsInteger(id);
    q.Open();
    std::vector<Value> values;
    for (q.First(); !q.Eof(); q.Next())
        values.push_back(q.Fields().front()->AsValue());
    return values;
}

bool Exists(store::Database& db, const std::string& sql, std::int64_t id) {
    return !ColumnOf(db, sql, id).empty();
}

void WriteHeader(store::Table& t, const InvoiceHeader& h) {
    auto set = [&](std::string_view name, const Value& v) { t.FieldByName(name).SetValue(v); };
    set("ARInvoiceID", Value(h.ARInvoiceID));
    set("CustomerID", Opt(h.CustomerID));
    set("InvoiceNo", Value(h.InvoiceNo));
    set("WarehouseID", Opt(h.WarehouseID));
    set("Description", OptText(h.Description));
    set("InvoiceDate", Value(h.InvoiceDate));
    set("InvoiceAmount", Value(h.InvoiceAmount));
    set("PaidAmount", Value(h.PaidAmount));
    set("DiscTakenAmount", Value(h.DiscTakenAmount));
    set("WriteOffAmount", Value(h.WriteOffAmount));
    set("Owing", Value(h.Owing()));
    set("DiscPC", h.Terms.DiscPC ? Value(*h.Terms.DiscPC) : Value());
    set("DiscDays", h.Terms.DiscDays ? Value(*h.Terms.DiscDays) : Value());
    set("NetDays", h.Terms.NetDays ? Value(*h.Terms.NetDays) : Value());
    set("COD", Value(h.Terms.COD));
    set("Prepayment", Value(h.Terms.Prepayment));
    set("TermsText", OptText(h.Terms.TermsText));
    set("PurchaseOrderNo", OptText(h.PurchaseOrderNo));
    set("GLPeriod", Value(h.GLPeriod));
    set("GLYear", Value(h.GLYear));
    set("Printed", Value(h.Printed));
    set("Posted", Value(h.Posted));
    const DocumentTax* taxes[] = {&h.Taxes.Tax1, &h.Taxes.Tax2};
    for (int n = 1; n <= 2; ++n) {
        const DocumentTax& tax = *taxes[n - 1];
        const std::string k = std::to_string(n);
        set("Tax" + k + "ID", Opt(tax.TaxID));
        set("Tax" + k + "Code", tax.TaxID ? OptText(tax.Code) : Value());
        set("Tax" + k + "Rate", tax.TaxID ? Value(tax.Rate) : Value());
    }
    for (std::size_t b = 0; b < h.Buckets.size(); ++b) {
        const std::string k = std::to_string(b + 1);
        set("TaxableAmtCode" + k, OptText(h.Buckets[b].Code));
        set("TaxableAmount" + k, h.Buckets[b].Code.empty() && h.Buckets[b].Amount.IsZero()
                                     ? Value()
                                     : Value(h.Buckets[b].Amount));
    }
    set("TimeInvoice", Value(h.TimeInvoice));
    set("CurrencyID", Opt(h.CurrencyID));
    // A payment of 0 is no payment: amount, paid by, reference and bank are all cleared.
    const bool paid = !h.Payment.Amount.IsZero();
    set("POSPmtAmount", OptMoney(h.Payment.Amount));
    set("POSPmtPaidBy", paid && h.Payment.PaidBy ? Value(*h.Payment.PaidBy) : Value());
    set("POSPmtReference", paid ? OptText(h.Payment.Reference) : Value());
    set("POSPmtBankID", paid ? Opt(h.Payment.BankID) : Value());
}

} // namespace

InvoiceVerdict ValidateInvoice(store::Database& db, const InvoiceHeader& inv,
                               PassedWarnings passed) {
    if (inv.Posted) return {};
    if (!inv.CustomerID) return InvoiceVerdict::Refuse(text::CustomerMissing, "CustomerID");
    const ledger::PeriodVerdict period = ledger::JudgePeriod(
        ledger::CompanyPeriods::Read(db), ledger::Period{inv.GLYear, inv.GLPeriod});
    if (period.Verdict == ledger::PeriodVerdict::Kind::Refused)
        return InvoiceVerdict::Refuse(period.Message, "GLPeriod");
    if (period.Verdict == ledger::PeriodVerdict::Kind::Warning && !passed.Period)
        return InvoiceVerdict::Warn(period.Message, "GLPeriod");
    const std::vector<Value> lineItems =
        ColumnOf(db, "SELECT ItemID FROM ARInvDet WHERE ARInvoiceID = :ID", inv.ARInvoiceID);
    if (lineItems.empty()) return InvoiceVerdict::Refuse(text::NoLines, "Lines");
    if (inv.Terms.COD && inv.InvoiceAmount != inv.Payment.Amount)
        return InvoiceVerdict::Refuse(inv.Payment.Amount.IsZero() ? text::CodNoPayment
                                                                  : text::CodPaymentDiffers,
                                      "POSPmtAmount", true);
    if (!Exists(db, "SELECT CustomerID FROM Customer WHERE CustomerID = :ID", *inv.CustomerID))
        return InvoiceVerdict::Refuse(text::CustomerGone, "CustomerID");
    if (!inv.WarehouseID) {
        // A time invoice of time alone draws nothing from stock and needs no warehouse.
        bool anyItem = false;
        for (const Value& item : lineItems)
            anyItem = anyItem || !item.IsNull();
        if (!inv.TimeInvoice || anyItem)
            return InvoiceVerdict::Refuse(text::WarehouseMissing, "WarehouseID");
    } else if (!Exists(db, "SELECT WarehouseID FROM Warehse WHERE WarehouseID = :ID",
                       *inv.WarehouseID)) {
        return InvoiceVerdict::Refuse(text::WarehouseGone, "WarehouseID");
    }
    if (!inv.Payment.Amount.IsZero() && inv.Payment.BankID) {
        const std::vector<Value> currency =
            ColumnOf(db, "SELECT CurrencyID FROM Bank WHERE BankID = :ID", *inv.Payment.BankID);
        if (currency.empty())
            return InvoiceVerdict::Refuse(text::PaymentBankGone, "POSPmtAmount", true);
        const std::optional<std::int64_t> bankCurrency =
            currency.front().IsNull() ? std::nullopt
                                      : std::optional<std::int64_t>(currency.front().Int());
        if (bankCurrency != inv.CurrencyID)
            return InvoiceVerdict::Refuse(text::PaymentBankCurrency, "POSPmtAmount", true);
    }
    if (inv.InvoiceAmount.IsZero() && !passed.ZeroAmount)
        return InvoiceVerdict::Warn(text::ZeroAmount, "Lines");
    return {};
}

namespace {

// The header's row, new or changed, inside the caller's transaction.
InvoiceVerdict WriteInvoiceRow(store::Database& db, const InvoiceHeader& inv) {
    store::Table t(db, "ARInv");
    t.Open();
    if (t.Locate("ARInvoiceID", {Value(inv.ARInvoiceID)}))
        t.Edit();
    else
        t.Append();
    WriteHeader(t, inv);
    try {
        t.Post();
    } catch (const store::EngineError& e) {
        if (e.ErrorCode() != store::errKeyViolation) throw;
        t.Cancel();
        return InvoiceVerdict::Refuse(text::NumberNotUnique, "InvoiceNo");
    }
    return {};
}

} // namespace

InvoiceVerdict SaveInvoice(store::Database& db, const InvoiceHeader& inv) {
    store::Transaction save(db, {"ARInv"});
    const InvoiceVerdict verdict = WriteInvoiceRow(db, inv);
    if (verdict.Accepted()) save.Commit();
    return verdict;
}

InvoiceVerdict DeleteInvoice(store::Database& db, std::int64_t arInvoiceId) {
    const std::optional<InvoiceHeader> inv = ReadInvoice(db, arInvoiceId);
    if (!inv) return {};
    if (inv->TimeInvoice)
        return InvoiceVerdict::Refuse("Unable to delete invoice '" + inv->InvoiceNo + "'...\n" +
                                          text::TimeInvoiceNoDelete,
                                      "");
    if (inv->Posted) return InvoiceVerdict::Refuse(text::PostedCannotDelete, "");
    store::Transaction removal(db, {"ARInv", "ARInvDet"});
    store::Table lines(db, "ARInvDet");
    lines.Open();
    lines.SetRange({Value(arInvoiceId)}, {Value(arInvoiceId)});
    while (!lines.IsEmpty()) {
        lines.First();
        lines.Delete();
    }
    store::Table header(db, "ARInv");
    header.Open();
    if (header.Locate("ARInvoiceID", {Value(arInvoiceId)})) header.Delete();
    removal.Commit();
    return {};
}

std::optional<InvoiceHeader> ReadInvoice(store::Database& db, std::int64_t arInvoiceId) {
    store::Table t(db, "ARInv");
    t.ReadOnly = true;
    t.Open();
    if (!t.Locate("ARInvoiceID", {Value(arInvoiceId)})) return std::nullopt;
    auto f = [&](std::string_view name) -> store::Field& { return t.FieldByName(name); };
    auto optInt = [&](std::string_view name) -> std::optional<std::int64_t> {
        if (f(name).IsNull()) return std::nullopt;
        return f(name).AsInteger();
    };
    InvoiceHeader h;
    h.ARInvoiceID = arInvoiceId;
    h.InvoiceNo = f("InvoiceNo").AsString();
    h.CustomerID = optInt("CustomerID");
    h.WarehouseID = optInt("WarehouseID");
    h.CurrencyID = optInt("CurrencyID");
    h.Description = f("Description").AsString();
    h.PurchaseOrderNo = f("PurchaseOrderNo").AsString();
    h.InvoiceDate = f("InvoiceDate").AsDate();
    h.GLYear = static_cast<int>(f("GLYear").AsInteger());
    h.GLPeriod = static_cast<int>(f("GLPeriod").AsInteger());
    h.InvoiceAmount = f("InvoiceAmount").AsMoney();
    h.PaidAmount = f("PaidAmount").AsMoney();
    h.DiscTakenAmount = f("DiscTakenAmount").AsMoney();
    h.WriteOffAmount = f("WriteOffAmount").AsMoney();
    if (!f("DiscPC").IsNull()) h.Terms.DiscPC = f("DiscPC").AsFloat();
    if (auto d = optInt("DiscDays")) h.Terms.DiscDays = static_cast<int>(*d);
    if (auto d = optInt("NetDays")) h.Terms.NetDays = static_cast<int>(*d);
    h.Terms.COD = f("COD").AsBoolean();
    h.Terms.Prepayment = f("Prepayment").AsBoolean();
    h.Terms.TermsText = f("TermsText").AsString();
    h.Printed = f("Printed").AsBoolean();
    h.Posted = f("Posted").AsBoolean();
    h.TimeInvoice = f("TimeInvoice").AsBoolean();
    DocumentTax* taxes[] = {&h.Taxes.Tax1, &h.Taxes.Tax2};
    for (int n = 1; n <= 2; ++n) {
        const std::string k = std::to_string(n);
        taxes[n - 1]->TaxID = optInt("Tax" + k + "ID");
        taxes[n - 1]->Code = f("Tax" + k + "Code").AsString();
        taxes[n - 1]->Rate = f("Tax" + k + "Rate").AsFloat();
    }
    for (std::size_t b = 0; b < h.Buckets.size(); ++b) {
        const std::string k = std::to_string(b + 1);
        h.Buckets[b] = {f("TaxableAmtCode" + k).AsString(), f("TaxableAmount" + k).AsMoney()};
    }
    h.Payment.Amount = f("POSPmtAmount").AsMoney();
    if (auto p = optInt("POSPmtPaidBy")) h.Payment.PaidBy = static_cast<int>(*p);
    h.Payment.Reference = f("POSPmtReference").AsString();
    h.Payment.BankID = optInt("POSPmtBankID");
    return h;
}

InvoiceKeys CreateInvoice(store::Database& db, InvoiceHeader header,
                          const std::vector<InvoiceLine>& lines,
                          const std::function<bool(const std::string&)>& askRetry) {
    const std::optional<InvoiceKeys> keys = DrawInvoiceKeys(db, askRetry);
    if (!keys) Abort();
    header.ARInvoiceID = keys->ARInvoiceID;
    header.InvoiceNo = keys->InvoiceNo;
    std::vector<TaxedLine> taxed;
    for (const InvoiceLine& line : lines)
        taxed.push_back({ExtendedAmount(line.Quantity,
                                        AdjustedPrice(line.UnitPriceB4Disc, line.PercentDiscount)),
                         line.TaxCodes});
    const DocumentTotals totals = ComputeDocumentTaxes(taxed, header.Taxes);
    if (!totals.Verdict.Ok()) throw Exception(std::string(TooManyTaxesMessage));
    header.Buckets = totals.Buckets;
    header.InvoiceAmount = totals.DocumentAmount;
    header.PaidAmount = header.Payment.Amount;

    store::Transaction save(db, {"ARInv", "ARInvDet"});
    store::Table det(db, "ARInvDet");
    det.Open();
    int seq = 0;
    for (const InvoiceLine& line : lines) {
        det.Append();
        auto set = [&](std::string_view name, const Value& v) {
            det.FieldByName(name).SetValue(v);
        };
        set("ARInvoiceID", Value(header.ARInvoiceID));
        set("Seq", Value(++seq));
        set("Quantity", line.Quantity ? Value(*line.Quantity) : Value());
        set("ItemID", Opt(line.ItemID));
        set("UnitPriceB4Disc", line.UnitPriceB4Disc ? Value(*line.UnitPriceB4Disc) : Value());
        set("PercentDiscount", line.PercentDiscount ? Value(*line.PercentDiscount) : Value());
        const std::optional<Money> price =
            AdjustedPrice(line.UnitPriceB4Disc, line.PercentDiscount);
        set("UnitPrice", price ? Value(*price) : Value());
        set("TaxCodes", OptText(line.TaxCodes));
        set("Notes", OptText(line.Notes));
        set("JobID", Opt(line.JobID));
        set("TaskID", Opt(line.TaskID));
        det.Post();
    }
    // The lines stand in the table now, as entry leaves them, for the checks to see.
    InvoiceVerdict verdict = ValidateInvoice(db, header, {true, true});
    if (verdict.Accepted()) verdict = WriteInvoiceRow(db, header);
    if (!verdict.Accepted()) throw Exception(verdict.Message);
    save.Commit();
    return *keys;
}

} // namespace corvane::receivables
