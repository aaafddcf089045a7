#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// A money amount as a whole count of ten-thousandths. Sums are exact; only products and
// percentages pass through floating point, and they round with RoundHalfAway.
class Money {
public:
    static constexpr std::int64_t Scale = 10000;

    constexpr Money() = default;
    static constexpr Money FromUnits(std::int64_t units) { return Money(units); }
    static constexpr Money FromCents(std::int64_t cents) { return Money(cents * 100); }
    static constexpr Money FromWhole(std::int64_t whole) { return Money(whole * Scale); }
    // Rounds to the nearest ten-thousandth, half away from zero.
    static Money FromDouble(double value);
    // Reads an amount as typed: "1,234.56", "-12", "(12.00)", "12.00CR". Empty for bad text.
    static std::optional<Money> Parse(std::string_view text);

    constexpr std::int64_t Units() const { return units_; }
    double ToDouble() const { return static_cast<double>(units_) / Scale; }
    bool IsZero() const { return units_ == 0; }

    // The system's money product: RoundHalfAway(amount * factor * 100) / 100, in cents.
    Money TimesRounded(double factor) const;
    // The system's percentage: RoundHalfAway(amount * percent) / 100, in cents.
    Money PercentRounded(double percent) const;
    // Rounds this amount to whole cents, half away from zero.
    Money RoundedToCents() const;

    // Every sum, difference and multiple is checked: one past the largest amount either way
    // throws MoneyOverflow (core/MoneyLimit.h) rather than wrapping round to the other sign.
    constexpr Money operator-() const { return Money(0) - *this; }
    constexpr Money operator+(Money o) const {
        std::int64_t r = 0;
        if (__builtin_add_overflow(units_, o.units_, &r)) ThrowOverflow();
        return Checked(r);
    }
    constexpr Money operator-(Money o) const {
        std::int64_t r = 0;
        if (__builtin_sub_overflow(units_, o.units_, &r)) ThrowOverflow();
        return Checked(r);
    }
    constexpr Money operator*(std::int64_t n) const {
        std::int64_t r = 0;
        if (__builtin_mul_overflow(units_, n, &r)) ThrowOverflow();
        return Checked(r);
    }
    Money& operator+=(Money o) { return *this = *this + o; }
    Money& operator-=(Money o) { return *this = *this - o; }
    constexpr auto operator<=>(const Money&) const = default;

    // Plain text with four decimals and no separators, as stored in text: "-1234.5000".
    std::string ToString() const;

private:
    constexpr explicit Money(std::int64_t units) : units_(units) {}
    [[noreturn]] static void ThrowOverflow();
    // The largest amount is the same either way: the one unit more below it is out of range.
    static constexpr Money Checked(std::int64_t units) {
        if (units == INT64_MIN) ThrowOverflow();
        return Money(units);
    }
    std::int64_t units_ = 0;
};

} // namespace corvane
