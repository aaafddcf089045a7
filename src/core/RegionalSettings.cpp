#include "core/RegionalSettings.h"

#include <array>
#include <cctype>
#include <cstdlib>
#include <langinfo.h>
#include <locale.h>

namespace corvane {

namespace {

struct KnownLocale {
    const char* Name;        // language and territory
    const char* DatePattern; // as the system's LC_TIME gives it
    char Decimal;
    char Thousands;
};

// Common locales, for systems where their data is not installed.
constexpr std::array<KnownLocale, 22> kKnown{{
    {"en_US", "%m/%d/%Y", '.', ','},  {"en_GB", "%d/%m/%y", '.', ','},
    {"en_CA", "%Y-%m-%d", '.', ','},  {"fr_CA", "%Y-%m-%d", ',', ' '},
    {"en_AU", "%d/%m/%y", '.', ','},  {"en_NZ", "%d/%m/%y", '.', ','},
    {"en_IE", "%d/%m/%y", '.', ','},  {"en_ZA", "%Y/%m/%d", '.', ','},
    {"en_IN", "%d/%m/%y", '.', ','},  {"en_SG", "%d/%m/%Y", '.', ','},
    {"de_DE", "%d.%m.%Y", ',', '.'},  {"de_AT", "%Y-%m-%d", ',', ' '},
    {"de_CH", "%d.%m.%Y", '.', '\''}, {"fr_FR", "%d/%m/%Y", ',', ' '},
    {"fr_BE", "%d/%m/%y", ',', '.'},  {"nl_NL", "%d-%m-%Y", ',', '.'},
    {"nl_BE", "%d/%m/%y", ',', '.'},  {"es_ES", "%d/%m/%y", ',', '.'},
    {"es_MX", "%d/%m/%y", '.', ','},  {"it_IT", "%d/%m/%Y", ',', '.'},
    {"sv_SE", "%Y-%m-%d", ',', ' '},  {"pt_BR", "%d/%m/%Y", ',', '.'},
}};

struct Territory {
    const char* Code;
    const char* Country;
};

constexpr std::array<Territory, 24> kTerritories{{
    {"US", "United States"}, {"GB", "United Kingdom"}, {"CA", "Canada"},
    {"AU", "Australia"},     {"NZ", "New Zealand"},    {"IE", "Ireland"},
    {"ZA", "South Africa"},  {"IN", "India"},          {"SG", "Singapore"},
    {"DE", "Germany"},       {"AT", "Austria"},        {"CH", "Switzerland"},
    {"FR", "France"},        {"BE", "Belgium"},        {"NL", "Netherlands"},
    {"ES", "Spain"},         {"MX", "Mexico"},         {"IT", "Italy"},
    {"SE", "Sweden"},        {"BR", "Brazil"},         {"NO", "Norway"},
    {"DK", "Denmark"},       {"FI", "Finland"},        {"JP", "Japan"},
}};

// "en_US.UTF-8@euro" gives "en_US".
std::string LanguageAndTerritory(std::string_view name) {
    std::size_t end = name.find_first_of(".@");
    return std::string(name.substr(0, end));
}

std::string CountryOf(std::string_view localeName) {
    std::string base = LanguageAndTerritory(localeName);
    std::size_t underscore = base.find('_');
    if (underscore == std::string::npos) return {};
    std::string code = base.substr(underscore + 1);
    for (const auto& t : kTerritories)
        if (code == t.Code) return t.Country;
    return {};
}

const KnownLocale* Known(std::string_view localeName) {
    std::string base = LanguageAndTerritory(localeName);
    for (const auto& k : kKnown)
        if (base == k.Name) return &k;
    return nullptr;
}

// The system's data of the locale, when it is installed.
bool FromSystem(const std::string& name, RegionalSettings& settings) {
    locale_t loc = newlocale(LC_TIME_MASK | LC_NUMERIC_MASK, name.c_str(), locale_t(0));
    if (loc == locale_t(0)) return false;
    ReadStrftimeDate(nl_langinfo_l(D_FMT, loc), settings.Format);
    std::string_view decimal = nl_langinfo_l(RADIXCHAR, loc);
    std::string_view thousands = nl_langinfo_l(THOUSEP, loc);
    if (decimal.size() == 1) settings.Format.DecimalSeparator = decimal[0];
    // A separator of several bytes (a narrow space) is shown as a plain one.
    if (thousands.size() == 1)
        settings.Format.ThousandSeparator = thousands[0];
    else if (!thousands.empty())
        settings.Format.ThousandSeparator = ' ';
    freelocale(loc);
    return true;
}

bool IsPlainC(std::string_view name) {
    std::string base = LanguageAndTerritory(name);
    return base.empty() || base == "C" || base == "POSIX";
}

std::string Environment(std::initializer_list<const char*> names) {
    for (const char* name : names)
        if (const char* value = std::getenv(name); value && *value) return value;
    return {};
}

} // namespace

void ReadStrftimeDate(std::string_view pattern, FormatSettings& format) {
    std::string shown;
    char separator = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '%' && i + 1 < pattern.size()) {
            switch (pattern[++i]) {
            case 'd':
                shown += "dd";
                break;
            case 'e':
                shown += "d";
                break;
            case 'm':
                shown += "MM";
                break;
            case 'Y':
                shown += "yyyy";
                break;
            case 'y':
                shown += "yy";
                break;
            case 'b':
                shown += "MMM";
                break;
            case 'B':
                shown += "MMMM";
                break;
            default:
                break;
            }
            continue;
        }
        if (!separator && !std::isalnum(static_cast<unsigned char>(pattern[i])))
            separator = pattern[i];
        shown += pattern[i] == separator ? '/' : pattern[i];
    }
    if (shown.empty()) return;
    format.ShortDateFormat = shown;
    if (separator) format.DateSeparator = separator;
}

std::optional<RegionalSettings> RegionalSettingsOf(std::string_view localeName) {
    RegionalSettings settings;
    if (IsPlainC(localeName)) return settings;
    const std::string name(localeName);
    if (!FromSystem(name, settings)) {
        const KnownLocale* known = Known(localeName);
        if (!known) return std::nullopt;
        ReadStrftimeDate(known->DatePattern, settings.Format);
        settings.Format.DecimalSeparator = known->Decimal;
        settings.Format.ThousandSeparator = known->Thousands;
    }
    settings.CountryName = CountryOf(localeName);
    return settings;
}

RegionalSettings SystemRegionalSettings() {
    RegionalSettings settings;
    const std::string dates = Environment({"LC_ALL", "LC_TIME", "LANG"});
    const std::string numbers = Environment({"LC_ALL", "LC_NUMERIC", "LANG"});
    if (auto fromDates = RegionalSettingsOf(dates)) {
        settings.Format.ShortDateFormat = fromDates->Format.ShortDateFormat;
        settings.Format.DateSeparator = fromDates->Format.DateSeparator;
        settings.CountryName = fromDates->CountryName;
    }
    if (auto fromNumbers = RegionalSettingsOf(numbers)) {
        settings.Format.DecimalSeparator = fromNumbers->Format.DecimalSeparator;
        settings.Format.ThousandSeparator = fromNumbers->Format.ThousandSeparator;
    }
    return settings;
}

namespace {
std::string& CountryOfProcess() {
    static std::string country;
    return country;
}
} // namespace

void ApplyRegionalSettings(const RegionalSettings& settings) {
    ProcessFormatSettings() = settings.Format;
    MakeShortDateNumeric(ProcessFormatSettings());
    CountryOfProcess() = settings.CountryName;
}

const std::string& ProcessCountryName() {
    return CountryOfProcess();
}

std::string RegionalWords(std::string text, std::string_view countryName) {
    if (countryName != "United States") return text;
    for (const char* word : {"Cheque", "cheque"}) {
        const std::string replacement = word[0] == 'C' ? "Check" : "check";
        for (std::size_t at = text.find(word); at != std::string::npos;
             at = text.find(word, at + replacement.size()))
            text.replace(at, 6, replacement);
    }
    return text;
}

} // namespace corvane
