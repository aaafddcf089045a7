#pragma once

namespace corvane {

// The one rounding routine for amounts. The value is first cleaned of floating point noise at
// seven decimals, then rounded to a whole number, both times half away from zero. Callers scale
// the value themselves: a money product is RoundHalfAway(a * b * 100) / 100.
double RoundHalfAway(double value);

} // namespace corvane
