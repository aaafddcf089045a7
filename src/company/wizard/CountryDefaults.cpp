#include "company/wizard/CountryDefaults.h"

#include <array>

namespace corvane::company {

namespace {

struct CountryRow {
    std::string_view Country;
    std::string_view CurrencyName;
    std::string_view TaxName;
};

constexpr std::array kCountries{
    CountryRow{"Canada", "Canadian Dollars", "GST"}, CountryRow{"United States", "US Dollars", ""},
    CountryRow{"United Kingdom", "Pounds", "VAT"},   CountryRow{"Australia", "AUD Dollars", "GST"},
    CountryRow{"New Zealand", "NZD Dollars", "GST"}, CountryRow{"South Africa", "Rand", "VAT"},
};

} // namespace

CountryDefaults DefaultsForCountry(std::string_view country) {
    for (const CountryRow& row : kCountries)
        if (row.Country == country)
            return {std::string(row.CurrencyName), std::string(row.TaxName)};
    return {};
}

} // namespace corvane::company
