#include "core/Date.h"
#include "core/Exception.h"

#include <gtest/gtest.h>

#include <ctime>

using corvane::Date;

TEST(DateTest, DayNumbersCountFrom1970) {
    EXPECT_EQ(Date::FromYmd(1970, 1, 1).DayNumber(), 0);
    EXPECT_EQ(Date::FromYmd(1969, 12, 31).DayNumber(), -1);
    EXPECT_EQ(Date::FromYmd(2000, 1, 1).DayNumber(), 10957);
    EXPECT_EQ(Date::FromYmd(2000, 3, 1).DayNumber(), 11017);
    EXPECT_EQ(Date::FromYmd(2017, 3, 5) - Date::FromYmd(2016, 3, 5), 365);
    EXPECT_EQ(Date::FromYmd(2016, 3, 5) - Date::FromYmd(2015, 3, 5), 366);
}

TEST(DateTest, ConsecutiveDaysWalkTheCalendar) {
    // Every day from 1899 to 2101 (three century years, leap and not) follows the one before.
    Date previous = Date::FromYmd(1898, 12, 31);
    for (int year = 1899; year <= 2101; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= Date::DaysInMonth(year, month); ++day) {
                const Date date = Date::FromYmd(year, month, day);
                ASSERT_EQ(date.DayNumber(), previous.DayNumber() + 1) << date.ToIso();
                ASSERT_EQ(date.Year(), year);
                ASSERT_EQ(date.Month(), month);
                ASSERT_EQ(date.Day(), day);
                previous = date;
            }
        }
    }
}

TEST(DateTest, LeapYearsFollowTheGregorianRule) {
    EXPECT_FALSE(Date::IsLeapYear(1900));
    EXPECT_TRUE(Date::IsLeapYear(2000));
    EXPECT_TRUE(Date::IsLeapYear(2004));
    EXPECT_FALSE(Date::IsLeapYear(2100));
    EXPECT_FALSE(Date::IsLeapYear(2017));
    EXPECT_EQ(Date::DaysInMonth(2000, 2), 29);
    EXPECT_EQ(Date::DaysInMonth(1900, 2), 28);
    EXPECT_FALSE(Date::TryFromYmd(1900, 2, 29).has_value());
    EXPECT_TRUE(Date::TryFromYmd(2000, 2, 29).has_value());
    EXPECT_THROW(Date::FromYmd(2017, 2, 29), corvane::Exception);
}

TEST(DateTest, RangeIsYearsOneTo9999) {
    EXPECT_EQ(Date::FromYmd(1, 1, 1).ToIso(), "0001-01-01");
    EXPECT_EQ(Date::FromYmd(9999, 12, 31).ToIso(), "9999-12-31");
    EXPECT_FALSE(Date::TryFromYmd(0, 12, 31).has_value());
    EXPECT_FALSE(Date::TryFromYmd(10000, 1, 1).has_value());
    EXPECT_FALSE(Date::TryFromYmd(2017, 13, 1).has_value());
    EXPECT_FALSE(Date::TryFromYmd(2017, 4, 31).has_value());
    EXPECT_FALSE(Date::TryFromYmd(2017, 1, 0).has_value());
    EXPECT_EQ(Date::FromYmd(1, 1, 1).Year(), 1);
    EXPECT_EQ(Date::FromYmd(9999, 12, 31).Day(), 31);
}

TEST(DateTest, IsoTextIsStrict) {
    EXPECT_EQ(Date::FromIso("2017-03-05"), Date::FromYmd(2017, 3, 5));
    EXPECT_EQ(Date::FromIso("2000-02-29"), Date::FromYmd(2000, 2, 29));
    for (const char* text : {"", "2017-3-05", "2017-03-5", "20170305", "2017/03/05", "2017-02-30",
                             "1900-02-29", "0000-01-01", " 2017-03-05", "2017-03-05 ",
                             "2017-03-05T00", "2017-0a-05", "+017-03-05"}) {
        EXPECT_FALSE(Date::FromIso(text).has_value()) << text;
    }
    EXPECT_EQ(Date::FromYmd(987, 6, 5).ToIso(), "0987-06-05");
}

TEST(DateTest, DayOfWeekCountsFromSunday) {
    EXPECT_EQ(Date::FromYmd(1970, 1, 1).DayOfWeek(), 5);   // Thursday
    EXPECT_EQ(Date::FromYmd(1969, 12, 28).DayOfWeek(), 1); // Sunday, before day 0
    EXPECT_EQ(Date::FromYmd(1969, 12, 31).DayOfWeek(), 4);
    EXPECT_EQ(Date::FromYmd(2017, 3, 5).DayOfWeek(), 1);
    EXPECT_EQ(Date::FromYmd(2000, 1, 1).DayOfWeek(), 7); // Saturday
    EXPECT_EQ(Date::FromYmd(1, 1, 1).DayOfWeek(), 2);    // Monday
}

TEST(DateTest, AddMonthsCutsToTheMonthEnd) {
    EXPECT_EQ(Date::FromYmd(2017, 1, 31).AddMonths(1), Date::FromYmd(2017, 2, 28));
    EXPECT_EQ(Date::FromYmd(2016, 1, 31).AddMonths(1), Date::FromYmd(2016, 2, 29));
    EXPECT_EQ(Date::FromYmd(2017, 3, 31).AddMonths(-1), Date::FromYmd(2017, 2, 28));
    EXPECT_EQ(Date::FromYmd(2017, 5, 31).AddMonths(1), Date::FromYmd(2017, 6, 30));
    EXPECT_EQ(Date::FromYmd(2016, 2, 29).AddMonths(12), Date::FromYmd(2017, 2, 28));
    EXPECT_EQ(Date::FromYmd(2017, 12, 15).AddMonths(1), Date::FromYmd(2018, 1, 15));
    EXPECT_EQ(Date::FromYmd(2017, 1, 15).AddMonths(-1), Date::FromYmd(2016, 12, 15));
    EXPECT_EQ(Date::FromYmd(2017, 1, 15).AddMonths(-13), Date::FromYmd(2015, 12, 15));
    EXPECT_EQ(Date::FromYmd(2017, 1, 15).AddMonths(0), Date::FromYmd(2017, 1, 15));
    EXPECT_THROW(Date::FromYmd(9999, 12, 31).AddMonths(1), corvane::Exception);
    EXPECT_THROW(Date::FromYmd(1, 1, 1).AddMonths(-1), corvane::Exception);
}

TEST(DateTest, TodayFollowsTheClock) {
    // The tests run with TZ=UTC, where a local day is a whole count of 86400 seconds.
    const auto before = static_cast<std::int32_t>(std::time(nullptr) / 86400);
    const Date today = Date::Today();
    const auto after = static_cast<std::int32_t>(std::time(nullptr) / 86400);
    EXPECT_TRUE(today.DayNumber() == before || today.DayNumber() == after);
}
