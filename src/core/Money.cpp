#include "core/Money.h"
#include "core/Text.h"

#include "core/Exception.h"
#include "core/FormatSettings.h"
#include "core/Rounding.h"

#include <cmath>
#include <cstdio>
#include <limits>

namespace corvane {

namespace {

constexpr std::int64_t maxUnits = std::numeric_limits<std::int64_t>::max();

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool EndsWithCredit(std::string_view text) {
    if (text.size() < 2) return false;
    const char c = text[text.size() - 2];
    const char r = text[text.size() - 1];
    return (c == 'C' || c == 'c') && (r == 'R' || r == 'r');
}

// Appends the digits of |text| to |value|; false on anything but digits or on overflow.
bool AccumulateDigits(std::string_view text, std::int64_t& value) {
    for (char c : text) {
        if (!IsDigit(c)) return false;
        const int digit = c - '0';
        if (value > (maxUnits - digit) / 10) return false;
        value = value * 10 + digit;
    }
    return true;
}

// The whole part as typed: plain digits, or groups of three behind a first group of one to
// three when thousands separators are used. A misplaced separator ("1,23") is more likely a
// typing slip than a number, so it is refused rather than guessed at.
bool ParseWholePart(std::string_view text, char thousands, std::int64_t& whole) {
    whole = 0;
    if (text.find(thousands) == std::string_view::npos) return AccumulateDigits(text, whole);
    bool first = true;
    while (true) {
        const std::size_t sep = text.find(thousands);
        const std::string_view group = text.substr(0, sep);
        const bool sizeOk = first ? (!group.empty() && group.size() <= 3) : group.size() == 3;
        if (!sizeOk || !AccumulateDigits(group, whole)) return false;
        if (sep == std::string_view::npos) return true;
        text.remove_prefix(sep + 1);
        first = false;
    }
}

Money CheckedFromUnits(double units) {
    if (!std::isfinite(units) || std::fabs(units) >= 9.2e18)
        throw Exception("The amount is too large.");
    return Money::FromUnits(static_cast<std::int64_t>(units));
}

Money CheckedFromCents(double cents) {
    if (!std::isfinite(cents) || std::fabs(cents) >= 9.2e16)
        throw Exception("The amount is too large.");
    return Money::FromCents(static_cast<std::int64_t>(cents));
}

} // namespace

Money Money::FromDouble(double value) {
    return CheckedFromUnits(RoundHalfAway(value * Scale));
}

std::optional<Money> Money::Parse(std::string_view text) {
    const FormatSettings& settings = ProcessFormatSettings();
    text = TrimBlanks(text);

    bool negative = false;
    if (text.size() >= 2 && text.front() == '(' && text.back() == ')') {
        negative = true;
        text = TrimBlanks(text.substr(1, text.size() - 2));
    } else if (EndsWithCredit(text)) {
        negative = true;
        text = TrimBlanks(text.substr(0, text.size() - 2));
    }
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        if (negative) // "-(12)" or "-12CR": two signs are a typing error, not a double negative
            return std::nullopt;
        negative = text.front() == '-';
        text.remove_prefix(1);
    }

    std::string_view wholeText = text;
    std::string_view fractionText;
    if (const std::size_t point = text.find(settings.DecimalSeparator);
        point != std::string_view::npos) {
        wholeText = text.substr(0, point);
        fractionText = text.substr(point + 1);
    }
    if (wholeText.empty() && fractionText.empty()) return std::nullopt;
    if (fractionText.size() > 4) return std::nullopt;

    std::int64_t whole = 0;
    if (!wholeText.empty() && !ParseWholePart(wholeText, settings.ThousandSeparator, whole))
        return std::nullopt;
    std::int64_t fraction = 0;
    if (!AccumulateDigits(fractionText, fraction)) return std::nullopt;
    for (std::size_t i = fractionText.size(); i < 4; ++i)
        fraction *= 10;
    if (whole > (maxUnits - fraction) / Scale) return std::nullopt;

    const std::int64_t units = whole * Scale + fraction;
    return Money(negative ? -units : units);
}

Money Money::TimesRounded(double factor) const {
    return CheckedFromCents(RoundHalfAway(ToDouble() * factor * 100.0));
}

Money Money::PercentRounded(double percent) const {
    return CheckedFromCents(RoundHalfAway(ToDouble() * percent));
}

Money Money::RoundedToCents() const {
    const std::int64_t rest = units_ % 100;
    std::int64_t cents = units_ - rest;
    if (rest >= 50)
        cents += 100;
    else if (rest <= -50)
        cents -= 100;
    return Money(cents);
}

std::string Money::ToString() const {
    // Through the unsigned magnitude, so that the most negative amount prints too.
    const std::uint64_t magnitude =
        units_ < 0 ? 0 - static_cast<std::uint64_t>(units_) : static_cast<std::uint64_t>(units_);
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%s%llu.%04llu", units_ < 0 ? "-" : "",
                  static_cast<unsigned long long>(magnitude / Scale),
                  static_cast<unsigned long long>(magnitude % Scale));
    return buffer;
}

} // namespace corvane
