#pragma once

#include "core/Exception.h"
#include "core/Money.h"

#include <string_view>

namespace corvane {

// The largest amount either way that an amount field, a voucher and a ledger total hold:
// 922,337,203,685,477.5807.
inline constexpr std::int64_t LargestAmountUnits = INT64_MAX;
inline constexpr const char* LargestAmountText = "922,337,203,685,477.5807";

// A sum or a difference of amounts past the largest amount.
class MoneyOverflow : public Exception {
public:
    MoneyOverflow();
};

// True when the text is an amount written as Money::Parse reads one but larger than the
// largest amount, so that the refusal can say so rather than call it no amount at all.
bool AmountTooLarge(std::string_view text);

} // namespace corvane
