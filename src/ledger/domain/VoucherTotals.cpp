#include "ledger/domain/VoucherTotals.h"

#include "core/DisplayFormat.h"
#include "core/MoneyLimit.h"

namespace corvane::ledger {

namespace {
constexpr const char* kDebitFormat = "#,###,##0.00#;(#,###,##0.00#)";
// Credits are held negative: the negative section prints them plain with the letters CR.
constexpr const char* kCreditFormat = "#,###,##0.00#;#,###,##0.00#CR";
} // namespace

void VoucherTotals::StartFrom(Money voucherAmount) {
    debits_ = voucherAmount;
    credits_ = -voucherAmount;
}

void VoucherTotals::Clear() {
    debits_ = Money();
    credits_ = Money();
}

void VoucherTotals::Remove(Money amount) {
    if (amount > Money())
        debits_ -= amount;
    else
        credits_ -= amount;
}

void VoucherTotals::LineSaved(Money before, Money after) {
    Remove(before);
    // A total past the largest amount throws rather than turning negative.
    if (after > Money())
        debits_ += after;
    else
        credits_ += after;
}

void VoucherTotals::LineDeleted(Money amount) {
    Remove(amount);
}

std::string VoucherTotals::StatusText() const {
    std::string text = "Debits: " + FormatMoney(kDebitFormat, debits_) +
                       "   Credits: " + FormatMoney(kCreditFormat, credits_);
    if (!Difference().IsZero()) text += "   Diff: " + FormatMoney(kCreditFormat, Difference());
    return text;
}

} // namespace corvane::ledger
