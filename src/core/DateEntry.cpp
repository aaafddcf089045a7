#include "core/DateEntry.h"
#include "core/Text.h"

#include "core/Exception.h"
#include "core/FormatSettings.h"

#include <array>
#include <cctype>
#include <cstdio>
#include <optional>

namespace corvane {

namespace {

enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

constexpr std::array<const char*, 7> shortDayNames = {"Sun", "Mon", "Tue", "Wed",
                                                      "Thu", "Fri", "Sat"};
constexpr std::array<const char*, 7> longDayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                     "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 12> shortMonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<const char*, 12> longMonthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

DateOrder ShortDateOrder() {
    const std::string& format = ProcessFormatSettings().ShortDateFormat;
    const char first = format.empty() ? 'M' : static_cast<char>(std::toupper(format[0]));
    if (first == 'D') return DateOrder::DayMonthYear;
    if (first == 'Y') return DateOrder::YearMonthDay;
    return DateOrder::MonthDayYear;
}

// Where the year, month and day stand among the three parts of a typed date.
struct PartPositions {
    std::size_t year;
    std::size_t month;
    std::size_t day;
};

PartPositions PositionsOf(DateOrder order) {
    switch (order) {
    case DateOrder::DayMonthYear:
        return {2, 1, 0};
    case DateOrder::YearMonthDay:
        return {0, 1, 2};
    case DateOrder::MonthDayYear:
        break;
    }
    return {2, 0, 1};
}

[[noreturn]] void ThrowInvalidDate(std::string_view text) {
    throw Exception("'" + std::string(text) + "' is not a valid date");
}

// A part of a typed date: 1 to |maxDigits| digits and nothing else.
std::optional<int> ReadNumber(std::string_view part, std::size_t maxDigits) {
    if (part.empty() || part.size() > maxDigits) return std::nullopt;
    int value = 0;
    for (char c : part) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

// Two digits or fewer are a year of the 1900s; four are taken as they stand.
std::optional<int> ReadYear(std::string_view part) {
    if (part.size() <= 2) {
        auto year = ReadNumber(part, 2);
        return year ? std::optional<int>(1900 + *year) : std::nullopt;
    }
    if (part.size() == 4) return ReadNumber(part, 4);
    return std::nullopt;
}

std::string Padded(int value, int width) {
    char text[16];
    std::snprintf(text, sizeof text, "%0*d", width, value);
    return text;
}

// The short date order with a four-digit year, as the century correction re-reads it.
std::string ShortDateText(int year, int month, int day) {
    const std::string sep(1, ProcessFormatSettings().DateSeparator);
    const std::string y = Padded(year, 4);
    const std::string m = std::to_string(month);
    const std::string d = std::to_string(day);
    switch (ShortDateOrder()) {
    case DateOrder::DayMonthYear:
        return d + sep + m + sep + y;
    case DateOrder::YearMonthDay:
        return y + sep + m + sep + d;
    case DateOrder::MonthDayYear:
        break;
    }
    return m + sep + d + sep + y;
}

// Runs of one pattern letter, case-insensitive: "MMmm" is a run of four.
std::size_t RunLength(std::string_view pattern, std::size_t start) {
    const int letter = std::tolower(static_cast<unsigned char>(pattern[start]));
    std::size_t end = start;
    while (end < pattern.size() && std::tolower(static_cast<unsigned char>(pattern[end])) == letter)
        ++end;
    return end - start;
}

} // namespace

Date StrToDate(std::string_view text) {
    const std::string_view trimmed = TrimBlanks(text);
    const char sep = ProcessFormatSettings().DateSeparator;

    std::array<std::string_view, 3> parts;
    std::size_t count = 0;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = trimmed.find(sep, start);
        if (count == parts.size()) ThrowInvalidDate(text);
        parts[count++] = trimmed.substr(start, end == std::string_view::npos ? end : end - start);
        if (end == std::string_view::npos) break;
        start = end + 1;
    }
    if (count != parts.size()) ThrowInvalidDate(text);

    const PartPositions at = PositionsOf(ShortDateOrder());
    const std::optional<int> year = ReadYear(parts[at.year]);
    const std::optional<int> month = ReadNumber(parts[at.month], 2);
    const std::optional<int> day = ReadNumber(parts[at.day], 2);
    if (!year || !month || !day) ThrowInvalidDate(text);
    if (auto date = Date::TryFromYmd(*year, *month, *day)) return *date;
    ThrowInvalidDate(text);
}

Date ParseEnteredDate(std::string_view text) {
    // "02/29/00" read as 1900 would be refused, 1900 having no leap day; the user means 2000.
    const std::string sep(1, ProcessFormatSettings().DateSeparator);
    const DateOrder order = ShortDateOrder();
    if ((order == DateOrder::MonthDayYear && text == "02" + sep + "29" + sep + "00") ||
        (order == DateOrder::DayMonthYear && text == "29" + sep + "02" + sep + "00"))
        return Date::FromYmd(2000, 2, 29);

    const Date typed = StrToDate(text);
    int year = typed.Year();
    if (year >= 1900 && year <= 1949)
        year += 100;
    else if (year >= 2051)
        year -= 100;
    if (year == typed.Year()) return typed;

    // The moved date goes through the same reading again, so that a day the new year lacks
    // is refused like any other.
    try {
        return StrToDate(ShortDateText(year, typed.Month(), typed.Day()));
    } catch (const Exception&) {
        ThrowInvalidDate(text);
    }
}

std::string FormatDate(std::string_view pattern, Date date) {
    const char dateSeparator = ProcessFormatSettings().DateSeparator;
    std::string out;
    std::size_t i = 0;
    while (i < pattern.size()) {
        const char c = pattern[i];
        if (c == '"' || c == '\'') {
            const std::size_t close = pattern.find(c, i + 1);
            const std::size_t end = close == std::string_view::npos ? pattern.size() : close;
            out.append(pattern.substr(i + 1, end - i - 1));
            i = end == pattern.size() ? end : end + 1;
            continue;
        }
        const char letter = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (letter != 'd' && letter != 'm' && letter != 'y') {
            out += c == '/' ? dateSeparator : c;
            ++i;
            continue;
        }
        const std::size_t run = RunLength(pattern, i);
        i += run;
        if (letter == 'd') {
            if (run == 1)
                out += std::to_string(date.Day());
            else if (run == 2)
                out += Padded(date.Day(), 2);
            else if (run == 3)
                out += shortDayNames[date.DayOfWeek() - 1];
            else
                out += longDayNames[date.DayOfWeek() - 1];
        } else if (letter == 'm') {
            if (run == 1)
                out += std::to_string(date.Month());
            else if (run == 2)
                out += Padded(date.Month(), 2);
            else if (run == 3)
                out += shortMonthNames[date.Month() - 1];
            else
                out += longMonthNames[date.Month() - 1];
        } else {
            out += run <= 2 ? Padded(date.Year() % 100, 2) : Padded(date.Year(), 4);
        }
    }
    return out;
}

std::string DateToStr(Date date) {
    return FormatDate(ProcessFormatSettings().ShortDateFormat, date);
}

} // namespace corvane
