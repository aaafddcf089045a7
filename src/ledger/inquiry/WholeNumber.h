#pragma once

#include <string>

namespace corvane::ledger {

// The number a user typed in a year or period box; anything but digits (with a sign) is refused
// with the system's conversion message, so that only numbers reach a condition.
int WholeNumberOf(const std::string& typed);

} // namespace corvane::ledger
