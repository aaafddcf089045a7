#include "core/Exception.h"
#include "core/FormatSettings.h"
#include "store/Table.h"
#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::store;
using corvane::testing::CompanyTest;

namespace {

// A date typed into any box bound to a date field reads by the one entry rule: "00" in a 29th of
// February is 2000, and two- and four-digit years move into 1950 to 2050.
class DateText : public CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        saved_ = ProcessFormatSettings();
        ProcessFormatSettings().ShortDateFormat = "M/d/yyyy";
        ProcessFormatSettings().DateSeparator = '/';
        jv_.Open();
        jv_.Append();
    }
    void TearDown() override {
        jv_.Cancel();
        ProcessFormatSettings() = saved_;
        CompanyTest::TearDown();
    }
    Date Typed(const std::string& text) {
        jv_.FieldByName("TransDate").SetText(text);
        return jv_.FieldByName("TransDate").AsDate();
    }
    Table jv_{db_, "JV"};
    FormatSettings saved_;
};

TEST_F(DateText, TypedDatesFollowTheEntryRule) {
    EXPECT_EQ(Typed("02/29/00"), Date::FromYmd(2000, 2, 29));
    EXPECT_EQ(Typed("1/1/49"), Date::FromYmd(2049, 1, 1));
    EXPECT_EQ(Typed("1/1/50"), Date::FromYmd(1950, 1, 1));
    EXPECT_EQ(Typed("1/1/2051"), Date::FromYmd(1951, 1, 1));
    EXPECT_EQ(Typed("3/4/1917"), Date::FromYmd(2017, 3, 4));
    EXPECT_THROW(Typed("02/29/1900"), Exception);
    EXPECT_EQ(jv_.FieldByName("TransDate").AsDate(), Date::FromYmd(2017, 3, 4));
}

TEST_F(DateText, DayFirstOrdersReadTheDayFirst) {
    ProcessFormatSettings().ShortDateFormat = "dd/MM/yyyy";
    EXPECT_EQ(Typed("29/02/00"), Date::FromYmd(2000, 2, 29));
    EXPECT_EQ(Typed("3/4/49"), Date::FromYmd(2049, 4, 3));
}

} // namespace
