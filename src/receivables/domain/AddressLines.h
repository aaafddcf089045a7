#pragma once

#include <string>
#include <vector>

namespace corvane::receivables {

// The lines of a postal address with no empty line between: the first line, then the second when
// there is one, then "City, State  Zip", then the country. Blank lines at the end are left out.
struct PostalAddress {
    std::string Line1, Line2, City, StateProv, ZipCode, Country;
};
std::string CityLine(const PostalAddress& address);
std::vector<std::string> AddressLines(const PostalAddress& address);

} // namespace corvane::receivables
