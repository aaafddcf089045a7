#pragma once

#include <string>
#include <string_view>

namespace corvane::store {
class Table;
}

namespace corvane::shell {

// A salesman's name as lists show it: first name, a blank and last name when both are set, else
// the one that is set.
std::string SalesmanFullName(std::string_view firstName, std::string_view lastName);

// A customer's or vendor's address on one line: the parts that are set, joined by ", ", with state
// and postal code kept together by two blanks ("Toronto, ON  M5V 2T6, Canada").
std::string OneLineAddress(std::string_view line1, std::string_view line2, std::string_view city,
                           std::string_view state, std::string_view postalCode,
                           std::string_view country);

// Adds the calculated FullName to a Salesman cursor; before it is opened.
void AddSalesmanFullName(store::Table& salesman);
// Adds the calculated Address to a Customer or Vendor cursor; before it is opened.
void AddOneLineAddress(store::Table& customerOrVendor);

} // namespace corvane::shell
