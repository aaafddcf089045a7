#pragma once

#include "core/Date.h"
#include "core/Money.h"
#include "ledger/posting/VoucherPosting.h"
#include "receivables/posting/InvoicePosting.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::receivables {

// One line of a payment as posting reads it, in order of Seq.
struct PaymentLineToPost {
    std::int64_t Seq = 0;
    std::int64_t ARInvoiceID = 0;
    bool InvoiceExists = true; // a line whose invoice has gone is passed over
    Money PaymentAmount, DiscTakenAmount, WriteOffAmount;
    ledger::AccountKey WriteOffAccount;
};

// A payment with the accounts of its currency and bank as they stand at posting.
struct PaymentToPost {
    std::int64_t PaymentID = 0;
    std::string ChequeNo;
    std::int64_t CustomerID = 0;
    int GLYear = 0, GLPeriod = 0;
    Date PaymentDate;
    Money ChequeAmount;
    std::optional<int> PaidBy;
    double StoredRate = 0; // the currency's present rate
    std::optional<std::int64_t> ARGLAccountID, GainLossGLAccountID, ARDiscGLAccountID,
        BankGLAccountID;
    std::vector<PaymentLineToPost> Lines;
};

// What one line adds to its invoice's paid, discount and write-off totals.
struct InvoiceSettlement {
    std::int64_t ARInvoiceID = 0;
    Money Paid, Discount, WriteOff;
};

// Everything posting one payment changes, computed before anything is written.
struct PaymentPostingEffect {
    VoucherToWrite Voucher;
    Money BalanceChange; // added to the customer's balance: less all the lines settle
    std::vector<InvoiceSettlement> Invoices;
};

// The voucher and the other effects of posting one payment. The receivable and the bank stand in
// the customer's currency, as the customer's balance does; discount and write-offs are converted
// to home currency, and the exchange row takes up the difference so the voucher balances.
PaymentPostingEffect PaymentPosting(const PaymentToPost& payment, bool checkWording);

} // namespace corvane::receivables
