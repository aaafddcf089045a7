#include "core/DisplayFormat.h"

#include "core/FormatSettings.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace corvane {

namespace {

// A magnitude as decimal digits: the whole part without leading zeros ("" for zero) and the
// fraction. Both money and floating point values are brought to this form and rounded on the
// digits, so that what is shown is the decimal figure and not its binary neighbour.
struct DecimalDigits {
    std::string whole;
    std::string fraction;

    bool IsZero() const {
        return whole.find_first_not_of('0') == std::string::npos &&
               fraction.find_first_not_of('0') == std::string::npos;
    }
};

// Rounds half away from zero (on a magnitude: half up) to exactly |decimals| fraction digits.
DecimalDigits RoundDigits(DecimalDigits digits, std::size_t decimals) {
    if (digits.fraction.size() > decimals) {
        const bool up = digits.fraction[decimals] >= '5';
        digits.fraction.resize(decimals);
        if (up) {
            std::string all = digits.whole + digits.fraction;
            std::size_t i = all.size();
            while (i > 0 && all[i - 1] == '9')
                all[--i] = '0';
            if (i == 0)
                all.insert(all.begin(), '1');
            else
                ++all[i - 1];
            digits.whole = all.substr(0, all.size() - decimals);
            digits.fraction = all.substr(all.size() - decimals);
        }
    }
    digits.fraction.append(decimals - digits.fraction.size(), '0');
    const std::size_t firstSignificant = digits.whole.find_first_not_of('0');
    digits.whole.erase(0, firstSignificant == std::string::npos ? digits.whole.size()
                                                                : firstSignificant);
    return digits;
}

DecimalDigits MoneyDigits(Money value) {
    const std::int64_t units = value.Units();
    const std::uint64_t magnitude =
        units < 0 ? 0 - static_cast<std::uint64_t>(units) : static_cast<std::uint64_t>(units);
    char fraction[8];
    std::snprintf(fraction, sizeof fraction, "%04llu",
                  static_cast<unsigned long long>(magnitude % Money::Scale));
    return {std::to_string(magnitude / Money::Scale), fraction};
}

// A double carries about 15 significant decimal digits; the digits beyond are binary noise.
// The value is written with 15 significant digits (correctly rounded by the C library) and
// only then rounded to the pattern's decimals on the digits. So 1.005, held as
// 1.00499999999999989..., is first 1.00500000000000 and then shows as 1.01 under "0.00", as
// the user who typed 1.005 expects; rounding the binary value directly would give 1.00.
DecimalDigits FloatDigits(double magnitude) {
    char text[40];
    std::snprintf(text, sizeof text, "%.14e", magnitude);
    std::string mantissa;
    const char* p = text;
    for (; *p != 'e' && *p != '\0'; ++p)
        if (*p >= '0' && *p <= '9') mantissa += *p;
    const int exponent = *p == 'e' ? std::atoi(p + 1) : 0;
    const int wholeCount = exponent + 1;
    if (wholeCount <= 0)
        return {"", std::string(static_cast<std::size_t>(-wholeCount), '0') + mantissa};
    if (static_cast<std::size_t>(wholeCount) >= mantissa.size())
        return {mantissa + std::string(wholeCount - mantissa.size(), '0'), ""};
    return {mantissa.substr(0, wholeCount), mantissa.substr(wholeCount)};
}

struct PatternToken {
    enum class Kind { WholeDigit, FractionDigit, Point, Literal };
    Kind kind;
    std::string text; // the literal's text
};

// One section of a pattern, read once into tokens and the counts the layout needs.
struct Section {
    std::vector<PatternToken> tokens;
    bool grouping = false;
    std::size_t wholePlaceholders = 0;
    std::size_t minWholeDigits = 0; // placeholders from the first '0' to the point
    std::size_t fractionPlaceholders = 0;
    std::size_t minFractionDigits = 0; // placeholders up to the last '0' after the point
    bool hasPoint = false;
};

Section ParseSection(std::string_view text) {
    Section section;
    bool zeroSeen = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"' || c == '\'') {
            const std::size_t close = text.find(c, i + 1);
            const std::size_t end = close == std::string_view::npos ? text.size() : close;
            section.tokens.push_back(
                {PatternToken::Kind::Literal, std::string(text.substr(i + 1, end - i - 1))});
            i = end;
        } else if (c == '0' || c == '#') {
            if (section.hasPoint) {
                ++section.fractionPlaceholders;
                if (c == '0') section.minFractionDigits = section.fractionPlaceholders;
                section.tokens.push_back({PatternToken::Kind::FractionDigit, {}});
            } else {
                ++section.wholePlaceholders;
                zeroSeen = zeroSeen || c == '0';
                if (zeroSeen) ++section.minWholeDigits;
                section.tokens.push_back({PatternToken::Kind::WholeDigit, {}});
            }
        } else if (c == '.') {
            // Only the first point places the decimals; a second one has no meaning.
            if (!section.hasPoint) section.tokens.push_back({PatternToken::Kind::Point, {}});
            section.hasPoint = true;
        } else if (c == ',') {
            section.grouping = true;
        } else {
            section.tokens.push_back({PatternToken::Kind::Literal, std::string(1, c)});
        }
    }
    return section;
}

std::vector<std::string_view> SplitSections(std::string_view pattern) {
    std::vector<std::string_view> sections;
    std::size_t start = 0;
    char quote = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char c = pattern[i];
        if (quote != 0) {
            if (c == quote) quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == ';') {
            sections.push_back(pattern.substr(start, i - start));
            start = i + 1;
        }
    }
    sections.push_back(pattern.substr(start));
    return sections;
}

class WholeDigitWriter {
public:
    WholeDigitWriter(std::string digits, bool grouping, std::string& out)
        : digits_(std::move(digits)), grouping_(grouping), out_(out) {}

    // Writes the digits up to and including |last|; the first placeholder takes every digit
    // the pattern has no room for.
    void WriteThrough(std::ptrdiff_t last) {
        const char separator = ProcessFormatSettings().ThousandSeparator;
        for (; next_ <= last && next_ < static_cast<std::ptrdiff_t>(digits_.size()); ++next_) {
            out_ += digits_[next_];
            const std::ptrdiff_t remaining =
                static_cast<std::ptrdiff_t>(digits_.size()) - 1 - next_;
            if (grouping_ && remaining > 0 && remaining % 3 == 0) out_ += separator;
        }
    }
    void WriteAll() { WriteThrough(static_cast<std::ptrdiff_t>(digits_.size()) - 1); }
    std::ptrdiff_t Count() const { return static_cast<std::ptrdiff_t>(digits_.size()); }

private:
    std::string digits_;
    bool grouping_;
    std::string& out_;
    std::ptrdiff_t next_ = 0;
};

std::string Render(const Section& section, DecimalDigits digits, bool leadingMinus) {
    std::string out = leadingMinus ? "-" : "";
    if (digits.whole.size() < section.minWholeDigits)
        digits.whole.insert(0, section.minWholeDigits - digits.whole.size(), '0');
    while (digits.fraction.size() > section.minFractionDigits && digits.fraction.back() == '0')
        digits.fraction.pop_back();

    WholeDigitWriter whole(digits.whole, section.grouping, out);
    const auto placeholders = static_cast<std::ptrdiff_t>(section.wholePlaceholders);
    std::ptrdiff_t wholeIndex = 0;
    std::size_t fractionIndex = 0;
    for (const PatternToken& token : section.tokens) {
        switch (token.kind) {
        case PatternToken::Kind::WholeDigit:
            // Digits are right-aligned on the placeholders.
            whole.WriteThrough(wholeIndex - (placeholders - whole.Count()));
            ++wholeIndex;
            break;
        case PatternToken::Kind::Point:
            if (placeholders == 0) // ".00": the whole part still shows when there is one
                whole.WriteAll();
            if (!digits.fraction.empty()) out += ProcessFormatSettings().DecimalSeparator;
            break;
        case PatternToken::Kind::FractionDigit:
            if (fractionIndex < digits.fraction.size()) out += digits.fraction[fractionIndex];
            ++fractionIndex;
            break;
        case PatternToken::Kind::Literal:
            out += token.text;
            break;
        }
    }
    return out;
}

// Picks the section by sign, rounds at its decimals, and falls back to the zero section when
// the rounded figure is zero, so that -0.001 under "0.00" reads "0.00" and not "-0.00".
std::string FormatDigits(std::string_view pattern, const DecimalDigits& magnitude, bool negative) {
    const std::vector<std::string_view> sections = SplitSections(pattern);
    const bool hasNegative = sections.size() > 1 && !sections[1].empty();
    const bool hasZero = sections.size() > 2 && !sections[2].empty();

    const Section first = ParseSection(sections[0]);
    const Section chosen = negative && hasNegative ? ParseSection(sections[1]) : first;
    const DecimalDigits rounded = RoundDigits(magnitude, chosen.fractionPlaceholders);
    if (rounded.IsZero()) {
        const Section zero = hasZero ? ParseSection(sections[2]) : first;
        return Render(zero, RoundDigits({}, zero.fractionPlaceholders), false);
    }
    return Render(chosen, rounded, negative && !hasNegative);
}

// An empty pattern shows the figure plainly: all its significant decimals, no grouping.
std::string PlainText(const DecimalDigits& magnitude, bool negative) {
    DecimalDigits digits = RoundDigits(magnitude, magnitude.fraction.size());
    while (!digits.fraction.empty() && digits.fraction.back() == '0')
        digits.fraction.pop_back();
    if (digits.IsZero()) return "0";
    std::string out = negative ? "-" : "";
    out += digits.whole.empty() ? "0" : digits.whole;
    if (!digits.fraction.empty()) out += ProcessFormatSettings().DecimalSeparator + digits.fraction;
    return out;
}

} // namespace

std::string FormatMoney(std::string_view pattern, Money value) {
    const DecimalDigits digits = MoneyDigits(value);
    if (pattern.empty()) return PlainText(digits, value.Units() < 0);
    return FormatDigits(pattern, digits, value.Units() < 0);
}

std::string FormatFloat(std::string_view pattern, double value) {
    if (std::isnan(value)) return "NAN";
    if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
    const DecimalDigits digits = FloatDigits(std::fabs(value));
    if (pattern.empty()) return PlainText(digits, value < 0);
    return FormatDigits(pattern, digits, value < 0);
}

} // namespace corvane
