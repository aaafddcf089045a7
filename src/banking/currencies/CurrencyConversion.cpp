#include "banking/currencies/CurrencyConversion.h"

#include <algorithm>

namespace corvane::banking {

Money ExchangeDifference(std::span<const DocumentLine> lines, ExchangeRate rate) {
    Money difference;
    for (const DocumentLine& line : lines)
        if (line.Currency == LineCurrency::Converted)
            difference += rate.ToHome(line.Amount) - line.Amount;
    return difference;
}

std::vector<ledger::VoucherLine>
ConvertedVoucherLines(std::span<const DocumentLine> lines, ExchangeRate rate,
                      std::optional<std::int64_t> gainLossAccountId,
                      std::optional<std::int64_t> exchangeSeq) {
    std::vector<ledger::VoucherLine> out;
    out.reserve(lines.size() + 1);
    std::int64_t lastSeq = 0;
    for (const DocumentLine& line : lines) {
        // Each line is rounded on its own: the voucher shows what each line converts to, and the
        // exchange line takes up whatever the roundings leave.
        Money amount =
            line.Currency == LineCurrency::Converted ? rate.ToHome(line.Amount) : line.Amount;
        out.push_back({line.Seq, line.Account, amount});
        lastSeq = std::max(lastSeq, line.Seq);
    }
    const Money difference = ExchangeDifference(lines, rate);
    if (!difference.IsZero()) {
        ledger::VoucherLine exchange;
        exchange.Seq = exchangeSeq.value_or(lastSeq + 1);
        exchange.Account.GLAccountID = gainLossAccountId;
        exchange.GLAmount = -difference;
        out.push_back(exchange);
    }
    return out;
}

Money DebitTotal(std::span<const ledger::VoucherLine> lines) {
    Money total;
    for (const ledger::VoucherLine& line : lines)
        if (line.GLAmount > Money()) total += line.GLAmount;
    return total;
}

} // namespace corvane::banking
