#include "receivables/domain/AddressLines.h"

namespace corvane::receivables {

std::string CityLine(const PostalAddress& a) {
    std::string line = a.City;
    if (!a.StateProv.empty()) line += (line.empty() ? "" : ", ") + a.StateProv;
    if (!a.ZipCode.empty()) line += (line.empty() ? "" : "  ") + a.ZipCode;
    return line;
}

std::vector<std::string> AddressLines(const PostalAddress& a) {
    std::vector<std::string> lines{a.Line1};
    if (!a.Line2.empty()) lines.push_back(a.Line2);
    lines.push_back(CityLine(a));
    lines.push_back(a.Country);
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines;
}

} // namespace corvane::receivables
