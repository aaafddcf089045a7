#include "reports/export/SheetFormat.h"

#include "core/Date.h"
#include "core/FormatSettings.h"

#include <cctype>

namespace corvane::reports {

namespace {

// Literal text of a format, in quotes; a quote inside it cannot be said and is left out.
void AppendQuoted(std::string& format, std::string_view text) {
    std::string quoted;
    for (char c : text)
        if (c != '"') quoted.push_back(c);
    if (!quoted.empty()) format += '"' + quoted + '"';
}

// Characters a spreadsheet's format shows as they are without quotes.
bool PlainLiteral(char c) {
    return std::string_view("$-+/():! ").find(c) != std::string_view::npos;
}

// The quoted text at `at` ("'CR'" or "\"CR\""), moving `at` past its closing quote.
std::string_view QuotedRun(std::string_view pattern, std::size_t& at) {
    const char quote = pattern[at];
    const std::size_t start = at + 1;
    std::size_t end = pattern.find(quote, start);
    if (end == std::string_view::npos) end = pattern.size();
    at = end + 1;
    return pattern.substr(start, end - start);
}

} // namespace

std::string SheetNumberFormat(std::string_view pattern) {
    std::string format;
    std::string literal;
    auto flush = [&] {
        AppendQuoted(format, literal);
        literal.clear();
    };
    for (std::size_t at = 0; at < pattern.size();) {
        const char c = pattern[at];
        if (c == '"' || c == '\'') {
            literal += QuotedRun(pattern, at);
            continue;
        }
        const bool exponent = (c == 'E' || c == 'e') && at + 1 < pattern.size() &&
                              (pattern[at + 1] == '+' || pattern[at + 1] == '-');
        if (std::string_view("0#.,;%").find(c) != std::string_view::npos || exponent) {
            flush();
            format.push_back(c);
            if (exponent) format.push_back(pattern[++at]);
        } else if (PlainLiteral(c) && literal.empty()) {
            format.push_back(c);
        } else {
            literal.push_back(c);
        }
        ++at;
    }
    flush();
    return format;
}

std::string SheetDateFormat(std::string_view pattern) {
    std::string fallback;
    if (pattern.empty()) {
        fallback = ProcessFormatSettings().ShortDateFormat;
        pattern = fallback;
    }
    const char separator = ProcessFormatSettings().DateSeparator;
    std::string format;
    std::string literal;
    auto flush = [&] {
        AppendQuoted(format, literal);
        literal.clear();
    };
    for (std::size_t at = 0; at < pattern.size();) {
        const char c = pattern[at];
        const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (c == '"' || c == '\'') {
            literal += QuotedRun(pattern, at);
            continue;
        }
        if (lower == 'd' || lower == 'm' || lower == 'y') {
            flush();
            format.push_back(lower);
        } else if (c == '/') {
            flush();
            if (PlainLiteral(separator) || separator == '.' || separator == ',')
                format.push_back(separator);
            else
                AppendQuoted(format, std::string(1, separator));
        } else if (PlainLiteral(c) || c == '.' || c == ',') {
            flush();
            format.push_back(c);
        } else {
            literal.push_back(c);
        }
        ++at;
    }
    flush();
    return format;
}

double SheetDateSerial(Date date) {
    // 1 January 1970 is day 25569.
    return date.DayNumber() + 25569.0;
}

} // namespace corvane::reports
