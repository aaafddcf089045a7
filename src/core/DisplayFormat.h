#pragma once

#include "core/Money.h"

#include <string>
#include <string_view>

namespace corvane {

// Number display patterns of the form "#,###,##0.00#;(#,###,##0.00#)": up to three sections
// (positive; negative; zero) separated by ';'. '0' is a digit always shown, '#' a digit shown
// when significant, '.' the decimal point, ',' anywhere in the integer part turns on thousands
// grouping; other characters and quoted text are copied as they stand. A negative value shown
// through the first section carries a leading '-'. Digits beyond the pattern's last decimal
// are rounded half away from zero.
std::string FormatMoney(std::string_view pattern, Money value);
std::string FormatFloat(std::string_view pattern, double value);

} // namespace corvane
