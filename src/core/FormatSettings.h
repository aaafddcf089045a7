#pragma once

#include <string>
#include <string_view>

namespace corvane {

// The process's regional settings: how dates and numbers are typed and shown. The desktop host
// fills them from the user's locale at start; tests set them explicitly.
struct FormatSettings {
    char DateSeparator = '/';
    // Letters d, m, y with '/' standing for DateSeparator; the first letter gives the order in
    // which the parts of a typed date are read (D day first, Y year first, else month first).
    std::string ShortDateFormat = "M/d/yyyy";
    char DecimalSeparator = '.';
    char ThousandSeparator = ',';
};

FormatSettings& ProcessFormatSettings();

// The short date format with month and weekday names turned back into numbers by one letter:
// one "M" comes out of "MMM" and one "d" out of "ddd", so dd-MMM-yyyy becomes dd-MM-yyyy and dddd
// becomes ddd. Letters are matched without regard to case, as dates are formatted.
std::string NumericShortDateFormat(std::string_view format);

// Applies NumericShortDateFormat to the settings' short date format: at start-up, so that dates
// on screen and in entry are typed and shown as numbers, whatever the user's locale names.
void MakeShortDateNumeric(FormatSettings& settings);

} // namespace corvane
