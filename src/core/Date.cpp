#include "core/Date.h"

#include "core/Exception.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace corvane {

namespace {

struct CivilDate {
    int year;
    int month;
    int day;
};

// Day counts by eras of 400 years (146097 days each), with the year taken to start on
// March 1 so that the leap day falls at its end; exact for the whole proleptic calendar.
std::int32_t DaysFromCivil(int year, int month, int day) {
    year -= month <= 2 ? 1 : 0;
    const int era = (year >= 0 ? year : year - 399) / 400;
    const int yearOfEra = year - era * 400;
    const int dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

CivilDate CivilFromDays(std::int32_t days) {
    const std::int64_t z = static_cast<std::int64_t>(days) + 719468;
    const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const int dayOfEra = static_cast<int>(z - era * 146097);
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int shiftedMonth = (5 * dayOfYear + 2) / 153;
    const int day = dayOfYear - (153 * shiftedMonth + 2) / 5 + 1;
    const int month = shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9;
    const int year = static_cast<int>(yearOfEra + era * 400) + (month <= 2 ? 1 : 0);
    return {year, month, day};
}

bool IsValidYmd(int year, int month, int day) {
    return year >= 1 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
           day <= Date::DaysInMonth(year, month);
}

} // namespace

Date Date::FromYmd(int year, int month, int day) {
    if (auto date = TryFromYmd(year, month, day)) return *date;
    char text[64];
    std::snprintf(text, sizeof text, "'%04d-%02d-%02d' is not a valid date", year, month, day);
    throw Exception(text);
}

std::optional<Date> Date::TryFromYmd(int year, int month, int day) {
    if (!IsValidYmd(year, month, day)) return std::nullopt;
    return Date(DaysFromCivil(year, month, day));
}

std::optional<Date> Date::FromIso(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    int parts[3] = {0, 0, 0};
    const std::size_t starts[3] = {0, 5, 8};
    const std::size_t lengths[3] = {4, 2, 2};
    for (int p = 0; p < 3; ++p) {
        for (std::size_t i = starts[p]; i < starts[p] + lengths[p]; ++i) {
            if (text[i] < '0' || text[i] > '9') return std::nullopt;
            parts[p] = parts[p] * 10 + (text[i] - '0');
        }
    }
    return TryFromYmd(parts[0], parts[1], parts[2]);
}

Date Date::Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return FromYmd(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

bool Date::IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int Date::DaysInMonth(int year, int month) {
    static constexpr int lengths[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12) return 0;
    return month == 2 && IsLeapYear(year) ? 29 : lengths[month - 1];
}

int Date::Year() const {
    return CivilFromDays(days_).year;
}
int Date::Month() const {
    return CivilFromDays(days_).month;
}
int Date::Day() const {
    return CivilFromDays(days_).day;
}

int Date::DayOfWeek() const {
    // Day 0, 1970-01-01, was a Thursday: 4 when Sunday counts as 0.
    const int sundayBased = ((days_ % 7) + 7 + 4) % 7;
    return sundayBased + 1;
}

Date Date::AddMonths(int months) const {
    const CivilDate civil = CivilFromDays(days_);
    const long long monthIndex =
        static_cast<long long>(civil.year) * 12 + (civil.month - 1) + months;
    const long long year = monthIndex >= 0 ? monthIndex / 12 : (monthIndex - 11) / 12;
    const int month = static_cast<int>(monthIndex - year * 12) + 1;
    if (year < 1 || year > 9999) throw Exception("The date is outside the years 1 to 9999.");
    const int y = static_cast<int>(year);
    return FromYmd(y, month, std::min(civil.day, DaysInMonth(y, month)));
}

std::string Date::ToIso() const {
    const CivilDate civil = CivilFromDays(days_);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", civil.year, civil.month, civil.day);
    return text;
}

} // namespace corvane
