#pragma once

#include <string>
#include <string_view>

namespace corvane::company {

// The home currency's name and the usual sales tax of the user's country, offered on the
// wizard's pages; both empty for a country the program knows nothing of, and the tax name alone
// empty where there is no national sales tax.
struct CountryDefaults {
    std::string CurrencyName;
    std::string TaxName;
};

// By the country's English name, as the desktop gives it ("Canada").
CountryDefaults DefaultsForCountry(std::string_view country);

} // namespace corvane::company
