#pragma once

#include "core/Date.h"

#include <string>
#include <string_view>

namespace corvane {

// Reads a date with the process's short date rules: parts in the order of the short date
// format, separated by DateSeparator; a one- or two-digit year is read as 19yy. Throws
// Exception ("'<text>' is not a valid date") when the text is not a date.
Date StrToDate(std::string_view text);

// The reading of every date the user types: as StrToDate, but "02/29/00" means the year 2000,
// years 1900 to 1949 move forward by a century and years from 2051 move back by one, so "49"
// is 2049 and "50" is 1950.
Date ParseEnteredDate(std::string_view text);

// Delphi-style date patterns: d dd ddd dddd, m mm mmm mmmm, yy yyyy; '/' is DateSeparator,
// text in quotes is literal. "dd mmm yy" gives "05 Mar 17"; "MMMM, YYYY" gives "March, 2017".
std::string FormatDate(std::string_view pattern, Date date);

// The date in the process's short date format.
std::string DateToStr(Date date);

} // namespace corvane
