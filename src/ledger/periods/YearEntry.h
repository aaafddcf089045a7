#pragma once

#include <string>
#include <string_view>

namespace corvane::store {
class Field;
}

namespace corvane::ledger {

// The refusal of a badly typed year of the field the user knows as label ("Period", "Current
// Fiscal Year", "Warn Before Period"...).
std::string BadYearMessage(std::string_view label);

// A year field typed as two digits and stored as four: TwoDigitYear on the way in, with message
// on a bad year; while edited it shows its last two digits, when only shown all four.
void EnterYearAsTwoDigits(store::Field& field, std::string message);

// A period number field takes 1 to 12 only; anything else is refused, naming the field by label.
void LimitPeriodNumber(store::Field& field, std::string label);

} // namespace corvane::ledger
