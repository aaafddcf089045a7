#pragma once

#include <string>

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

} // namespace corvane
