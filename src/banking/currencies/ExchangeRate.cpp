#include "banking/currencies/ExchangeRate.h"

#include "core/Exception.h"
#include "core/Rounding.h"

#include <cmath>
#include <limits>

namespace corvane::banking {

namespace {

using Wide = __int128;

// numerator / divisor to the nearest whole number, ties away from zero; divisor above 0.
Wide DivideHalfAway(Wide numerator, Wide divisor) {
    Wide quotient = numerator / divisor;
    Wide rest = numerator % divisor;
    if (rest < 0) rest = -rest;
    if (rest * 2 >= divisor) quotient += numerator < 0 ? -1 : 1;
    return quotient;
}

constexpr Wide kTenMillion = 10'000'000;

} // namespace

ExchangeRate ExchangeRate::FromStored(double stored) {
    const double scaled = stored * static_cast<double>(Scale);
    if (!std::isfinite(scaled) || std::fabs(scaled) >= 9.2e18)
        throw Exception("The exchange rate is too large.");
    return ExchangeRate(static_cast<std::int64_t>(RoundHalfAway(scaled)));
}

Money ExchangeRate::ToHome(Money foreign) const {
    if (!Converts()) return foreign;
    // Money has four places and the rate twelve: the product counts 10^-16 of a unit, which is
    // 10^-14 of a cent. Seven places of a cent first, as the rounding routine cleans a product,
    // then the cent.
    const Wide product = static_cast<Wide>(foreign.Units()) * scaled_;
    const Wide cleaned = DivideHalfAway(product, kTenMillion);
    const Wide cents = DivideHalfAway(cleaned, kTenMillion);
    constexpr Wide maxCents = std::numeric_limits<std::int64_t>::max() / 100;
    if (cents > maxCents || cents < -maxCents) throw Exception("The amount is too large.");
    return Money::FromCents(static_cast<std::int64_t>(cents));
}

} // namespace corvane::banking
