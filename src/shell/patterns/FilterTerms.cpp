#include "shell/patterns/FilterTerms.h"

#include <cctype>

namespace corvane::shell {

namespace {
// Inner stars past this many stay as typed: the dialogs have always turned no more than three.
constexpr int kInnerWildcards = 3;
} // namespace

std::string LikePatternOf(std::string_view typed) {
    std::string p(typed);
    if (!p.empty() && p.front() == '*') p.front() = '%';
    if (p.size() > 1 && p.back() == '*') p.back() = '%';
    int turned = 0;
    for (std::size_t i = 1; i + 1 < p.size() && turned < kInnerWildcards; ++i)
        if (p[i] == '*') {
            p[i] = '%';
            ++turned;
        }
    if (p.empty() || p.back() != '%') p += '%';
    for (char& c : p)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return p;
}

std::string QuoteFilterText(std::string_view text) {
    std::string quoted = "'";
    for (char c : text) {
        quoted += c;
        if (c == '\'') quoted += '\'';
    }
    return quoted + "'";
}

std::string LookupTerm(std::string_view field, std::int64_t id) {
    return "(" + std::string(field) + " = " + std::to_string(id) + ")";
}

std::string YesNoTerm(std::string_view field, bool yes) {
    return "(" + std::string(field) + (yes ? " = true)" : " <> true)");
}

std::string TextTerm(std::string_view field, std::string_view typed) {
    return "(UPPER(" + std::string(field) + ") LIKE " + QuoteFilterText(LikePatternOf(typed)) + ")";
}

std::string JoinTerms(const std::vector<std::string>& terms) {
    std::string joined;
    for (const std::string& term : terms) {
        if (!joined.empty()) joined += " AND ";
        joined += term;
    }
    return joined;
}

} // namespace corvane::shell
