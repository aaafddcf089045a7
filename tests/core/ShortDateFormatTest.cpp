#include "core/DateEntry.h"
#include "core/FormatSettings.h"

#include "FormatSettingsFixture.h"

#include <gtest/gtest.h>

using corvane::NumericShortDateFormat;

namespace {

TEST(ShortDateFormat, AMonthNameBecomesItsNumber) {
    EXPECT_EQ(NumericShortDateFormat("dd-MMM-yyyy"), "dd-MM-yyyy");
    EXPECT_EQ(NumericShortDateFormat("d/mmm/yy"), "d/mm/yy");
    // A long month name loses one letter only.
    EXPECT_EQ(NumericShortDateFormat("MMMM d, yyyy"), "MMM d, yyyy");
}

TEST(ShortDateFormat, AWeekdayShrinksByOneLetter) {
    EXPECT_EQ(NumericShortDateFormat("ddd dd/MM/yyyy"), "dd dd/MM/yyyy");
    EXPECT_EQ(NumericShortDateFormat("dddd, MMMM d, yyyy"), "ddd, MMM d, yyyy");
    // Only the first long run shrinks; short runs before it stay.
    EXPECT_EQ(NumericShortDateFormat("dd/MM/yyyy dddd"), "dd/MM/yyyy ddd");
}

TEST(ShortDateFormat, NumericFormatsStayAsTheyAre) {
    for (const char* format : {"M/d/yyyy", "dd/MM/yyyy", "yyyy-MM-dd", "d.M.yy", ""})
        EXPECT_EQ(NumericShortDateFormat(format), format);
}

class ShortDateSettings : public FormatSettingsFixture {};

TEST_F(ShortDateSettings, TheProcessShowsDatesAsNumbersAfterwards) {
    Settings().ShortDateFormat = "dd-MMM-yyyy";
    corvane::MakeShortDateNumeric(Settings());
    EXPECT_EQ(Settings().ShortDateFormat, "dd-MM-yyyy");
    EXPECT_EQ(corvane::DateToStr(corvane::Date::FromYmd(2017, 3, 5)), "05-03-2017");
}

} // namespace
