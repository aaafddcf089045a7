#include "core/MoneyLimit.h"

#include "core/FormatSettings.h"
#include "core/Text.h"

#include <string>

namespace corvane {

MoneyOverflow::MoneyOverflow()
    : Exception(std::string("The amount is larger than the largest amount the system holds (") +
                LargestAmountText + ").") {}

void Money::ThrowOverflow() {
    throw MoneyOverflow();
}

bool AmountTooLarge(std::string_view text) {
    if (Money::Parse(text)) return false;
    const FormatSettings& settings = ProcessFormatSettings();
    text = TrimBlanks(text);
    if (text.size() >= 2 && text.front() == '(' && text.back() == ')')
        text = TrimBlanks(text.substr(1, text.size() - 2));
    else if (text.size() >= 2 &&
             (text.substr(text.size() - 2) == "CR" || text.substr(text.size() - 2) == "cr"))
        text = TrimBlanks(text.substr(0, text.size() - 2));
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
    // The whole part's digits without separators, and at most four decimals.
    std::string whole;
    std::size_t i = 0;
    for (; i < text.size() && text[i] != settings.DecimalSeparator; ++i) {
        if (text[i] == settings.ThousandSeparator) continue;
        if (text[i] < '0' || text[i] > '9') return false;
        whole += text[i];
    }
    std::string fraction(i < text.size() ? text.substr(i + 1) : std::string_view());
    if (fraction.size() > 4) return false;
    for (char c : fraction)
        if (c < '0' || c > '9') return false;
    while (whole.size() > 1 && whole.front() == '0')
        whole.erase(0, 1);
    fraction.resize(4, '0');
    // Compared as digit strings: "922337203685477" and "5807" are the largest.
    const std::string digits = whole + fraction;
    const std::string largest = "9223372036854775807";
    return digits.size() > largest.size() || (digits.size() == largest.size() && digits > largest);
}

} // namespace corvane
