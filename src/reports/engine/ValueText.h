#pragma once

#include "store/Value.h"

#include <string>

namespace corvane::reports {

// A computed value as a report prints it: through the mask when there is one (a number pattern
// for amounts and numbers, a date pattern for dates), otherwise amounts with two decimals and
// thousands, dates in the short date format.
std::string FormatReportValue(const store::Value& value, const std::string& mask);

} // namespace corvane::reports
