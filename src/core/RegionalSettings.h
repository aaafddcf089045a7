#pragma once

#include "core/FormatSettings.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// What the user's locale says of dates, numbers and where the user is: the short date format and
// its separator (LC_TIME), the decimal and thousand separators (LC_NUMERIC), and the country the
// locale's territory names ("United States" for en_US).
struct RegionalSettings {
    FormatSettings Format;
    std::string CountryName; // empty when the locale names no territory
};

// The settings of a locale named as the system names them: "en_GB", "en_US.UTF-8", "de_DE@euro".
// The system's own locale data is used when it is installed, else the program's table of common
// locales; nothing for a name neither knows. "C" and "POSIX" give the defaults and no country.
std::optional<RegionalSettings> RegionalSettingsOf(std::string_view localeName);

// The user's settings: dates from LC_ALL, else LC_TIME, else LANG; numbers from LC_ALL, else
// LC_NUMERIC, else LANG; the country from the date locale's territory. What cannot be read stays
// at the defaults.
RegionalSettings SystemRegionalSettings();

// Makes the settings the process's own, with the short date made numeric as at start-up.
void ApplyRegionalSettings(const RegionalSettings& settings);
// The country of the settings applied last; empty before any.
const std::string& ProcessCountryName();

// The short date format of a strftime pattern ("%d/%m/%y" gives "dd/MM/yy" with '/' as the
// separator); '/' in the result stands for the separator, as in every short date format.
void ReadStrftimeDate(std::string_view pattern, FormatSettings& format);

// "Cheque" and "cheque" become "Check" and "check" where the country is the United States.
std::string RegionalWords(std::string text, std::string_view countryName);

} // namespace corvane
