#include "timebilling/domain/TimeCalculator.h"
#include "timebilling/domain/TimeSheetTimer.h"

#include <gtest/gtest.h>

using namespace corvane::timebilling;
using namespace std::chrono_literals;

namespace {

int Elapsed(const char* start, const char* stop) {
    return ElapsedMinutes(*ReadClockTime(start), *ReadClockTime(stop));
}

} // namespace

TEST(TimeCalculator, StopBeforeStartReadsTwelveOrTwentyFourHourClock) {
    // Start in the evening: the stop is on the next day.
    EXPECT_EQ(ShowElapsed(Elapsed("23:30", "00:30")), "1:00");
    // Start in the morning, stop not in the hour after midnight: a twelve-hour clock.
    EXPECT_EQ(ShowElapsed(Elapsed("09:00", "05:00")), "8:00");
    // Start in the morning, stop in the hour after midnight: the next day.
    EXPECT_EQ(ShowElapsed(Elapsed("09:00", "00:15")), "15:15");
    EXPECT_EQ(ShowElapsed(Elapsed("13:00", "12:59")), "23:59");
    EXPECT_EQ(ShowElapsed(Elapsed("08:15", "10:45")), "2:30");
}

TEST(TimeCalculator, ZeroRowShowsNothingAndCountsNothing) {
    EXPECT_EQ(Elapsed("09:00", "09:00"), 0);
    EXPECT_EQ(ShowElapsed(0), "");
    EXPECT_EQ(DecimalHours(0), 0.0);
}

TEST(TimeCalculator, BlankOrImpossibleTimesAreNoTimes) {
    EXPECT_FALSE(ReadClockTime("  :  "));
    EXPECT_FALSE(ReadClockTime("25:00"));
    EXPECT_FALSE(ReadClockTime("09:60"));
    ASSERT_TRUE(ReadClockTime("07:05"));
    EXPECT_EQ(ReadClockTime("07:05")->Minutes(), 425);
}

TEST(TimeCalculator, TotalInDecimalHoursAtTwoPlaces) {
    EXPECT_EQ(DecimalHours(20), 0.33);
    EXPECT_EQ(DecimalHours(40), 0.67);
    EXPECT_EQ(DecimalHours(15 * 60 + 15), 15.25);
    EXPECT_EQ(ShowElapsed(26 * 60 + 5), "26:05"); // days turned into hours
    EXPECT_EQ(MinutesOfHours(1.5), 90);
}

TEST(TimeSheetTimer, HoursAreBasePlusElapsedRoundedTiesToEven) {
    // An eighth of an hour is 12.5 hundredths: ties go to the even neighbour.
    EXPECT_EQ(TimerHours(0, 450s), 0.12);
    EXPECT_EQ(TimerHours(0, 1350s), 0.38);
    EXPECT_EQ(TimerHours(1.5, 90min), 3.0);
    EXPECT_EQ(TimerHours(0.25, 0s), 0.25);
}

TEST(TimeSheetTimer, ReadsTheClockSoTimeAwayAndSuspendCount) {
    std::chrono::nanoseconds now = 1000h;
    TimeSheetTimer timer([&] { return now; });
    timer.Start(1.5);
    EXPECT_TRUE(timer.Running());
    EXPECT_EQ(timer.Hours(), 1.5);
    now += 30min; // the user worked in other windows; no tick reached the timer
    EXPECT_EQ(timer.Hours(), 2.0);
    now += 8h; // the machine slept
    EXPECT_EQ(timer.Hours(), 10.0);
    now += 36s;
    EXPECT_EQ(timer.Stop(), 10.01);
    EXPECT_FALSE(timer.Running());
    now += 1h;
    EXPECT_EQ(timer.Hours(), 10.01); // stopped: no more time counts
}

TEST(TimeSheetTimer, BootClockMovesForward) {
    auto a = BootClock();
    auto b = BootClock();
    EXPECT_GE(b, a);
    EXPECT_GT(a.count(), 0);
}
