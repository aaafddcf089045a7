#include "core/Rounding.h"

#include <cmath>

namespace corvane {

namespace {

// Ties go away from zero: truncating value + 0.5 above zero and value - 0.5 at or below it.
// std::round is that rule on the exact value, without the rounding error of the addition
// itself (0.49999999999999994 + 0.5 is already 1.0 in a double).
double HalfAwayToWhole(double value) {
    // Adding 0.0 turns a -0.0 result into 0.0, so that nothing ever shows as "-0".
    return std::round(value) + 0.0;
}

} // namespace

double RoundHalfAway(double value) {
    // Products such as 33.33 * 1.5 land a hair below the half (49.994999...); cleaning at seven
    // decimals puts them back on it, so that they round the way the decimal figures say.
    constexpr double noiseScale = 10000000.0;
    const double cleaned = HalfAwayToWhole(value * noiseScale) / noiseScale;
    return HalfAwayToWhole(cleaned);
}

} // namespace corvane
