#include "receivables/posting/PaymentPostingWriter.h"

#include "store/Value.h"

namespace corvane::receivables {

using store::Value;

namespace {

Money MoneyOf(const Value& v) {
    return v.IsNull() ? Money() : v.Money();
}

} // namespace

PaymentPostingWriter::PaymentPostingWriter(store::Database& db)
    : payment_(db, "ARPmt", {"PaymentID"}, {}), posted_(db, "ARPmt", {"Posted"}),
      invoice_(db, "ARInv", {"ARInvoiceID"},
               {"InvoiceAmount", "PaidAmount", "DiscTakenAmount", "WriteOffAmount"}),
      settled_(db, "ARInv", {"PaidAmount", "DiscTakenAmount", "WriteOffAmount", "Owing"}) {}

void PaymentPostingWriter::MarkPosted(std::int64_t paymentId) {
    if (auto found = payment_.Find({Value(paymentId)})) posted_.Set(found->Row, {Value(true)});
}

void PaymentPostingWriter::Settle(const InvoiceSettlement& line) {
    auto found = invoice_.Find({Value(line.ARInvoiceID)});
    if (!found) return;
    const std::vector<Value>& was = found->Values;
    // The sums are the program's own, in whole ten-thousandths; the engine only stores them.
    const Money amount = MoneyOf(was[0]);
    const Money paid = MoneyOf(was[1]) + line.Paid;
    const Money discount = MoneyOf(was[2]) + line.Discount;
    const Money writeOff = MoneyOf(was[3]) + line.WriteOff;
    settled_.Set(found->Row, {Value(paid), Value(discount), Value(writeOff),
                              Value(amount - paid - discount - writeOff)});
}

} // namespace corvane::receivables
