#pragma once

#include <string>
#include <string_view>

namespace corvane {
class Date;
}

namespace corvane::reports {

// The program's display patterns as a spreadsheet's formats, so that a cell holds the number and
// shows it as the report or the list did.

// A number pattern ("#,###,##0.00;#,###,##0.00CR") as a number format
// ("#,###,##0.00;#,###,##0.00\"CR\""). The pattern's characters that are not digits or separators
// become quoted text.
std::string SheetNumberFormat(std::string_view pattern);
// A date pattern ("dd mmm yy"); with none, the process's short date format.
std::string SheetDateFormat(std::string_view pattern);
// The day as spreadsheets count days: 1 is 1 January 1900, and 30 December 1899 is day 0.
double SheetDateSerial(Date date);

} // namespace corvane::reports
