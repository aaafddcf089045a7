#pragma once

#include "banking/currencies/ExchangeRate.h"
#include "core/Money.h"
#include "ledger/posting/VoucherPosting.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace corvane::banking {

// How a line of a document in a foreign currency reaches its voucher.
enum class LineCurrency {
    // In the document's currency, converted to home currency at the rate (sales, expenses,
    // discounts, write-offs).
    Converted,
    // Written as it stands: the control account's line (payables, receivables, the bank), which
    // the ledger holds in the document's currency, or a line already in home currency (cost of
    // goods sold).
    AsIs,
};

// One line of a document as a posting run would write it, before conversion. Amount is signed as
// on the voucher: a debit is positive.
struct DocumentLine {
    std::int64_t Seq = 0;
    ledger::AccountKey Account;
    Money Amount;
    LineCurrency Currency = LineCurrency::Converted;
};

// The voucher lines of a document in a currency of the given rate. Converted lines take their home
// amount; the others stand as given. The sum of (home - foreign) over the converted lines is the
// exchange difference, and when it is not 0 one more line takes its negation to the currency's
// gain or loss account, so that the voucher balances exactly as the document did. Its Seq is
// exchangeSeq when given, else one past the highest Seq of the lines. An empty gain or loss
// account still gets the line, without an account, for the voucher's posting to refuse.
std::vector<ledger::VoucherLine>
ConvertedVoucherLines(std::span<const DocumentLine> lines, ExchangeRate rate,
                      std::optional<std::int64_t> gainLossAccountId,
                      std::optional<std::int64_t> exchangeSeq = std::nullopt);

// The sum of (home - foreign) over the converted lines: what the exchange line takes up.
Money ExchangeDifference(std::span<const DocumentLine> lines, ExchangeRate rate);

// The sum of the positive amounts of the lines, a voucher's JVAmount.
Money DebitTotal(std::span<const ledger::VoucherLine> lines);

} // namespace corvane::banking
