#include "timebilling/domain/TimeCalculator.h"

#include <cctype>
#include <cmath>

namespace corvane::timebilling {

std::optional<ClockTime> ReadClockTime(std::string_view text) {
    int digits[4];
    int n = 0;
    for (char c : text) {
        if (std::isdigit(static_cast<unsigned char>(c))) {
            if (n == 4) return std::nullopt;
            digits[n++] = c - '0';
        }
    }
    if (n != 4) return std::nullopt;
    ClockTime t{digits[0] * 10 + digits[1], digits[2] * 10 + digits[3]};
    if (t.Hour > 23 || t.Minute > 59) return std::nullopt;
    return t;
}

int ElapsedMinutes(ClockTime start, ClockTime stop) {
    int elapsed = stop.Minutes() - start.Minutes();
    if (elapsed >= 0) return elapsed;
    if (start.Hour < 13 && stop.Hour != 0) return elapsed + 12 * 60;
    return elapsed + 24 * 60;
}

std::string ShowElapsed(int minutes, char separator) {
    if (minutes <= 0) return {};
    std::string mm = std::to_string(minutes % 60);
    if (mm.size() < 2) mm = "0" + mm;
    return std::to_string(minutes / 60) + separator + mm;
}

double DecimalHours(int minutes) {
    // nearbyint rounds in the process's mode, which is to nearest with ties to even.
    return std::nearbyint(100.0 * (minutes / 60 + (minutes % 60) / 60.0)) / 100.0;
}

int MinutesOfHours(double hours) {
    return static_cast<int>(std::lround(hours * 60.0));
}

} // namespace corvane::timebilling
