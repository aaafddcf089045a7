#pragma once

#include "core/Money.h"

#include <cstdint>

namespace corvane::banking {

// A currency's present rate, home-currency units for one unit of the currency, as a decimal of
// twelve places. The Currency row keeps the rate as a float; it is read into this decimal once, and
// every product with an amount is then exact integer arithmetic, so that no amount, however large,
// passes through floating point.
class ExchangeRate {
public:
    static constexpr int Places = 12;
    static constexpr std::int64_t Scale = 1'000'000'000'000;

    constexpr ExchangeRate() = default;
    // The rate as the Currency row holds it, to the nearest twelfth decimal, half away from zero.
    // A rate beyond what twelve places can hold (some nine million) is refused.
    static ExchangeRate FromStored(double stored);
    // The rate from its count of 10^-12.
    static constexpr ExchangeRate FromScaled(std::int64_t scaled) { return ExchangeRate(scaled); }

    constexpr std::int64_t Scaled() const { return scaled_; }
    // A rate of 0 or 1 marks the home currency, or a currency taken at par: amounts stand as they
    // are and no exchange difference arises.
    constexpr bool Converts() const { return scaled_ != 0 && scaled_ != Scale; }

    // The home amount of a foreign one: the amount itself when the rate does not convert, else
    // a x rate in whole cents. The rounding is the program's money rounding, first to seven
    // decimals of a cent and then to the cent, both half away from zero, carried out on the exact
    // product.
    Money ToHome(Money foreign) const;

    constexpr bool operator==(const ExchangeRate&) const = default;

private:
    constexpr explicit ExchangeRate(std::int64_t scaled) : scaled_(scaled) {}
    std::int64_t scaled_ = 0;
};

} // namespace corvane::banking
