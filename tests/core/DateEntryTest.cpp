#include "core/DateEntry.h"
#include "core/Exception.h"

#include "FormatSettingsFixture.h"

#include <gtest/gtest.h>

using corvane::Date;
using corvane::DateToStr;
using corvane::FormatDate;
using corvane::ParseEnteredDate;
using corvane::StrToDate;

namespace {

class DateEntryTest : public FormatSettingsFixture {
protected:
    void UseDayFirst(char separator) {
        Settings().ShortDateFormat = "dd/MM/yyyy";
        Settings().DateSeparator = separator;
    }
    void UseYearFirst(char separator) {
        Settings().ShortDateFormat = "yyyy/MM/dd";
        Settings().DateSeparator = separator;
    }
};

Date Ymd(int year, int month, int day) {
    return Date::FromYmd(year, month, day);
}

std::string ErrorOf(std::string_view text) {
    try {
        StrToDate(text);
    } catch (const corvane::Exception& e) {
        return e.what();
    }
    return "no error";
}

} // namespace

TEST_F(DateEntryTest, StrToDateReadsMonthFirstByDefault) {
    EXPECT_EQ(StrToDate("3/5/2017"), Ymd(2017, 3, 5));
    EXPECT_EQ(StrToDate("03/05/2017"), Ymd(2017, 3, 5));
    EXPECT_EQ(StrToDate("  12/31/1999 "), Ymd(1999, 12, 31));
    EXPECT_EQ(StrToDate("3/5/17"), Ymd(1917, 3, 5));
    EXPECT_EQ(StrToDate("3/5/0"), Ymd(1900, 3, 5));
    EXPECT_EQ(StrToDate("2/29/2000"), Ymd(2000, 2, 29));
    EXPECT_EQ(StrToDate("1/1/0001"), Ymd(1, 1, 1));
}

TEST_F(DateEntryTest, StrToDateRefusesWhatIsNotADate) {
    for (const char* text :
         {"",          " ",         "3/5",       "3/5/2017/1", "3-5-2017",  "a/5/2017",
          "3/5/20a7",  "13/1/2017", "0/1/2017",  "1/0/2017",   "2/29/1900", "02/29/00",
          "4/31/2017", "3/5/201",   "3/5/20170", "003/5/2017", "3//2017",   "/5/2017",
          "3/5/",      "3 /5/2017", "+3/5/2017", "1/1/0000"}) {
        EXPECT_THROW(StrToDate(text), corvane::Exception) << '"' << text << '"';
    }
    EXPECT_EQ(ErrorOf(" 13/1/2017"), "' 13/1/2017' is not a valid date");
    EXPECT_EQ(ErrorOf("2/29/1900"), "'2/29/1900' is not a valid date");
}

TEST_F(DateEntryTest, StrToDateFollowsTheShortDateOrder) {
    UseDayFirst('.');
    EXPECT_EQ(StrToDate("5.3.2017"), Ymd(2017, 3, 5));
    EXPECT_EQ(StrToDate("31.12.99"), Ymd(1999, 12, 31));
    EXPECT_THROW(StrToDate("12.31.1999"), corvane::Exception);
    EXPECT_THROW(StrToDate("5/3/2017"), corvane::Exception);

    UseYearFirst('-');
    EXPECT_EQ(StrToDate("2017-3-5"), Ymd(2017, 3, 5));
    EXPECT_EQ(StrToDate("17-03-05"), Ymd(1917, 3, 5));
    EXPECT_THROW(StrToDate("5-3-2017"), corvane::Exception);
}

TEST_F(DateEntryTest, EnteredYearsMoveIntoTheCenturyAroundNow) {
    EXPECT_EQ(ParseEnteredDate("1/1/49"), Ymd(2049, 1, 1));
    EXPECT_EQ(ParseEnteredDate("1/1/50"), Ymd(1950, 1, 1));
    EXPECT_EQ(ParseEnteredDate("12/31/00"), Ymd(2000, 12, 31));
    EXPECT_EQ(ParseEnteredDate("1/1/1930"), Ymd(2030, 1, 1));
    EXPECT_EQ(ParseEnteredDate("1/1/1949"), Ymd(2049, 1, 1));
    EXPECT_EQ(ParseEnteredDate("1/1/1950"), Ymd(1950, 1, 1));
    EXPECT_EQ(ParseEnteredDate("12/31/2050"), Ymd(2050, 12, 31));
    EXPECT_EQ(ParseEnteredDate("1/1/2051"), Ymd(1951, 1, 1));
    EXPECT_EQ(ParseEnteredDate("6/15/2999"), Ymd(2899, 6, 15));
    EXPECT_EQ(ParseEnteredDate("1/1/1899"), Ymd(1899, 1, 1));
    EXPECT_EQ(ParseEnteredDate("2/29/04"), Ymd(2004, 2, 29));
    EXPECT_EQ(ParseEnteredDate("2/29/2052"), Ymd(1952, 2, 29));
}

TEST_F(DateEntryTest, LeapDayOfTwoThousandTypedWithTwoDigits) {
    EXPECT_EQ(ParseEnteredDate("02/29/00"), Ymd(2000, 2, 29));
    EXPECT_EQ(ParseEnteredDate("02/29/2000"), Ymd(2000, 2, 29));
    EXPECT_THROW(ParseEnteredDate("02/29/1900"), corvane::Exception);
    // Only the exact text is rescued; any other spelling goes through the 19yy reading.
    EXPECT_THROW(ParseEnteredDate("2/29/00"), corvane::Exception);
    EXPECT_THROW(ParseEnteredDate(" 02/29/00"), corvane::Exception);
    EXPECT_THROW(ParseEnteredDate("29/02/00"), corvane::Exception);

    UseDayFirst('-');
    EXPECT_EQ(ParseEnteredDate("29-02-00"), Ymd(2000, 2, 29));
    EXPECT_EQ(ParseEnteredDate("1-2-49"), Ymd(2049, 2, 1));
    EXPECT_THROW(ParseEnteredDate("02-29-00"), corvane::Exception);
    EXPECT_THROW(ParseEnteredDate("29/02/00"), corvane::Exception);
}

TEST_F(DateEntryTest, ShortDatesReadBackAsTheyWereShown) {
    const std::pair<const char*, char> formats[] = {
        {"M/d/yyyy", '/'}, {"dd/MM/yyyy", '.'}, {"yyyy/MM/dd", '-'}, {"d/M/yy", '/'}};
    for (const auto& [format, separator] : formats) {
        Settings().ShortDateFormat = format;
        Settings().DateSeparator = separator;
        for (Date date = Ymd(1950, 1, 1); date <= Ymd(2049, 12, 31); date = date.AddDays(97)) {
            ASSERT_EQ(ParseEnteredDate(DateToStr(date)), date) << format << ' ' << date.ToIso();
        }
    }
}

TEST_F(DateEntryTest, FormatDateTokens) {
    const Date date = Ymd(2017, 3, 5); // a Sunday
    EXPECT_EQ(FormatDate("dd mmm yy", date), "05 Mar 17");
    EXPECT_EQ(FormatDate("MMMM, YYYY", date), "March, 2017");
    EXPECT_EQ(FormatDate("dddd d mmmm yyyy", date), "Sunday 5 March 2017");
    EXPECT_EQ(FormatDate("ddd dd/mm/yyyy", date), "Sun 05/03/2017");
    EXPECT_EQ(FormatDate("m/d/y", Ymd(2005, 11, 22)), "11/22/05");
    EXPECT_EQ(FormatDate("yyyy-mm-dd", Ymd(99, 1, 2)), "0099-01-02");
    EXPECT_EQ(FormatDate("mmm dd, yyyy", Ymd(2016, 12, 31)), "Dec 31, 2016");
    EXPECT_EQ(FormatDate("dddd", Ymd(2017, 3, 11)), "Saturday");
}

TEST_F(DateEntryTest, FormatDateLiteralsAndSeparator) {
    const Date date = Ymd(2017, 3, 5);
    EXPECT_EQ(FormatDate("'Day' d", date), "Day 5");
    EXPECT_EQ(FormatDate("\"mm/yy\" mm/yy", date), "mm/yy 03/17");
    EXPECT_EQ(FormatDate("d-m (yyyy)", date), "5-3 (2017)");
    Settings().DateSeparator = '.';
    EXPECT_EQ(FormatDate("d/m/yyyy", date), "5.3.2017");
    EXPECT_EQ(FormatDate("'d/m'", date), "d/m");
}

TEST_F(DateEntryTest, DateToStrUsesTheShortDateFormat) {
    EXPECT_EQ(DateToStr(Ymd(2017, 3, 5)), "3/5/2017");
    UseDayFirst('.');
    EXPECT_EQ(DateToStr(Ymd(2017, 3, 5)), "05.03.2017");
}
