#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// A calendar date (no time of day), proleptic Gregorian, years 1 to 9999.
class Date {
public:
    constexpr Date() = default;
    // Throws Exception for a day that does not exist (February 30, month 13...).
    static Date FromYmd(int year, int month, int day);
    static std::optional<Date> TryFromYmd(int year, int month, int day);
    // Days counted from 1970-01-01 (day 0).
    static constexpr Date FromDayNumber(std::int32_t days) { return Date(days); }
    // "yyyy-mm-dd", the form dates are stored and written in filters and queries.
    static std::optional<Date> FromIso(std::string_view text);
    static Date Today();

    static bool IsLeapYear(int year);
    static int DaysInMonth(int year, int month);

    constexpr std::int32_t DayNumber() const { return days_; }
    int Year() const;
    int Month() const;
    int Day() const;
    // 1 = Sunday ... 7 = Saturday.
    int DayOfWeek() const;

    Date AddDays(int days) const { return Date(days_ + days); }
    // Same day in a month |months| away, cut back to the month's last day where needed.
    Date AddMonths(int months) const;
    constexpr int operator-(Date other) const { return days_ - other.days_; }

    std::string ToIso() const;
    constexpr auto operator<=>(const Date&) const = default;

private:
    constexpr explicit Date(std::int32_t days) : days_(days) {}
    std::int32_t days_ = 0;
};

} // namespace corvane
