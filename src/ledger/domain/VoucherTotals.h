#pragma once

#include "core/Money.h"

#include <string>

namespace corvane::ledger {

// The running debit and credit totals of a voucher being entered. Debits are positive and credits
// negative, so a balanced voucher's two totals cancel. Kept line by line as lines are saved and
// deleted, never summed through floating point.
class VoucherTotals {
public:
    // The totals of a saved voucher, which balances: its debit total and the same in credits.
    void StartFrom(Money voucherAmount);
    void Clear();
    // A line went from `before` to `after` (a new line from 0).
    void LineSaved(Money before, Money after);
    void LineDeleted(Money amount);

    Money Debits() const { return debits_; }
    Money Credits() const { return credits_; }
    // What keeps the voucher from balancing; 0 when it balances.
    Money Difference() const { return debits_ + credits_; }

    // "Debits: 10.00   Credits: 10.00CR", with "   Diff: " and the difference when they differ.
    std::string StatusText() const;

private:
    void Remove(Money amount);
    Money debits_;
    Money credits_;
};

} // namespace corvane::ledger
