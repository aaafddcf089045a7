#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::shell {

// What a user types in a text criterion of a filter dialog, made into a LIKE pattern: a leading
// and a trailing "*" and the first three inner ones become "%", a "%" closes the pattern unless
// it ends with one, and the whole is upper case. So "ca" means "begins with CA" and "*ca" means
// "contains CA". Quotes are not touched here; see QuoteFilterText.
std::string LikePatternOf(std::string_view typed);

// A text literal of the filter language: in single quotes, a quote inside doubled.
std::string QuoteFilterText(std::string_view text);

// The terms of a filter dialog, one per criterion that is set, each in parentheses.
std::string LookupTerm(std::string_view field, std::int64_t id);
std::string YesNoTerm(std::string_view field, bool yes);
std::string TextTerm(std::string_view field, std::string_view typed);

// The terms joined with " AND "; empty when there are none.
std::string JoinTerms(const std::vector<std::string>& terms);

} // namespace corvane::shell
