#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane::timebilling {

// A time of day as typed in the calculator, "hh:mm".
struct ClockTime {
    int Hour = 0;
    int Minute = 0;
    int Minutes() const { return Hour * 60 + Minute; }
};

// "09:30" and the like; nothing for an empty or blank mask or a time that is no time.
std::optional<ClockTime> ReadClockTime(std::string_view text);

// The minutes from start to stop. A stop before the start is read on a clock of twelve hours
// when the start is in the morning and the stop is not in the hour after midnight (09:00 to
// 05:00 is eight hours), else on the next day (23:30 to 00:30 is one hour; 09:00 to 00:15 is
// fifteen hours and a quarter).
int ElapsedMinutes(ClockTime start, ClockTime stop);

// Minutes as hours, the separator and two-digit minutes ("15:15"); empty when not positive.
std::string ShowElapsed(int minutes, char separator = ':');

// Minutes as decimal hours at two places, ties to even: 20 minutes are 0.33 hours.
double DecimalHours(int minutes);

// Decimal hours as the calculator's total shows them when it opens.
int MinutesOfHours(double hours);

} // namespace corvane::timebilling
