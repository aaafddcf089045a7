#include "timebilling/domain/TimeSheetTimer.h"

#include <cmath>
#include <ctime>

namespace corvane::timebilling {

std::chrono::nanoseconds BootClock() {
    timespec ts{};
    clock_gettime(CLOCK_BOOTTIME, &ts);
    return std::chrono::seconds(ts.tv_sec) + std::chrono::nanoseconds(ts.tv_nsec);
}

double TimerHours(double baseHours, std::chrono::nanoseconds elapsed) {
    const double hours = std::chrono::duration<double, std::ratio<3600>>(elapsed).count();
    return std::nearbyint(100.0 * (baseHours + hours)) / 100.0;
}

void TimeSheetTimer::Start(double baseHours) {
    base_ = baseHours;
    start_ = clock_();
}

double TimeSheetTimer::Hours() const {
    if (!start_) return base_;
    return TimerHours(base_, clock_() - *start_);
}

double TimeSheetTimer::Stop() {
    double hours = Hours();
    start_.reset();
    base_ = hours;
    return hours;
}

} // namespace corvane::timebilling
