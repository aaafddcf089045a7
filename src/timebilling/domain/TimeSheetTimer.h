#pragma once

#include <chrono>
#include <functional>
#include <optional>

namespace corvane::timebilling {

// Where the timer reads the time. The program's clock counts the time the machine slept, so a
// timer left running over a suspend shows the hours really gone; tests give a clock they set.
using TimerClock = std::function<std::chrono::nanoseconds()>;
// Time since boot, suspends included (CLOCK_BOOTTIME).
std::chrono::nanoseconds BootClock();

// The time sheet's timer: hours = base + time gone since the start, at two places, ties to even.
// It never counts ticks: whatever the screen did meanwhile, it reads the clock again.
class TimeSheetTimer {
public:
    explicit TimeSheetTimer(TimerClock clock = BootClock) : clock_(std::move(clock)) {}

    void Start(double baseHours);
    // The hours now, without stopping; the base while stopped.
    double Hours() const;
    // Stops and returns the hours.
    double Stop();
    bool Running() const { return start_.has_value(); }

private:
    TimerClock clock_;
    double base_ = 0;
    std::optional<std::chrono::nanoseconds> start_;
};

// round(100 * (base + elapsed in hours)) / 100, ties to even.
double TimerHours(double baseHours, std::chrono::nanoseconds elapsed);

} // namespace corvane::timebilling
