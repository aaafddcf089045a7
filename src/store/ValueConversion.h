#pragma once

#include "core/Money.h"
#include "store/FieldType.h"
#include "store/Value.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane::store {

// The one conversion of values in the store: fields, filters, ranges and look-ups read text and
// numbers alike. Text is read without regard to the process's locale ("12.5" is twelve and a
// half everywhere), and a number that does not fit what it becomes is refused, never cut.

// "42", " +42 ": surrounding blanks and a leading '+' are allowed, nothing else.
std::optional<std::int64_t> ParseInteger(std::string_view text);
// "12.5", "-1e3", " +0.25 ": decimal or scientific notation; infinities and NaN are refused.
std::optional<double> ParseNumber(std::string_view text);
// "-12.34567" exactly as ten-thousandths (the fifth decimal rounds half away from zero), so that
// an amount written as text never passes through floating point.
std::optional<Money> ParseDecimalMoney(std::string_view text);
// true, t, yes, y, 1 and false, f, no, n, 0, in any case, with blanks around.
std::optional<bool> ParseBoolean(std::string_view text);

// A float that is a whole number within the 64-bit range; nothing for 2.5, 1e19 or NaN.
std::optional<std::int64_t> WholeNumber(double value);
// A float rounded half away from zero; nothing when the result leaves the 64-bit range or for
// NaN.
std::optional<std::int64_t> RoundedInteger(double value);

// A literal made the kind of a field, for comparing with it (filters, ranges, look-ups): fails
// with errInvalidValue naming the value when it cannot be.
Value CoerceToField(const Value& literal, FieldType type);

} // namespace corvane::store
