#include "core/RegionalSettings.h"
#include "FormatSettingsFixture.h"
#include "core/DateEntry.h"
#include "core/DisplayFormat.h"
#include "core/Money.h"

#include <cstdlib>

using namespace corvane;

namespace {

using RegionalSettingsTest = FormatSettingsFixture;

TEST_F(RegionalSettingsTest, ALocaleGivesItsDatesNumbersAndCountry) {
    auto gb = RegionalSettingsOf("en_GB.UTF-8");
    ASSERT_TRUE(gb);
    EXPECT_EQ(gb->Format.ShortDateFormat, "dd/MM/yy");
    EXPECT_EQ(gb->Format.DateSeparator, '/');
    EXPECT_EQ(gb->CountryName, "United Kingdom");
    auto de = RegionalSettingsOf("de_DE");
    ASSERT_TRUE(de);
    EXPECT_EQ(de->Format.ShortDateFormat, "dd/MM/yyyy");
    EXPECT_EQ(de->Format.DateSeparator, '.');
    EXPECT_EQ(de->Format.DecimalSeparator, ',');
    EXPECT_EQ(de->Format.ThousandSeparator, '.');
    EXPECT_EQ(de->CountryName, "Germany");
    EXPECT_EQ(RegionalSettingsOf("en_US")->CountryName, "United States");
    auto c = RegionalSettingsOf("C");
    ASSERT_TRUE(c);
    EXPECT_EQ(c->Format.ShortDateFormat, "M/d/yyyy");
    EXPECT_EQ(c->CountryName, "");
    EXPECT_FALSE(RegionalSettingsOf("xx_QQ"));
}

TEST_F(RegionalSettingsTest, TheSystemsLocaleIsReadFromItsVariables) {
    const char* saved = std::getenv("LC_ALL");
    std::string keep = saved ? saved : "";
    unsetenv("LC_ALL");
    setenv("LC_TIME", "en_GB.UTF-8", 1);
    setenv("LC_NUMERIC", "de_DE.UTF-8", 1);
    RegionalSettings system = SystemRegionalSettings();
    EXPECT_EQ(system.Format.ShortDateFormat, "dd/MM/yy");
    EXPECT_EQ(system.Format.DecimalSeparator, ',');
    EXPECT_EQ(system.CountryName, "United Kingdom");
    ApplyRegionalSettings(system);
    EXPECT_EQ(ParseEnteredDate("29/02/00"), Date::FromYmd(2000, 2, 29));
    EXPECT_EQ(DateToStr(Date::FromYmd(2017, 3, 4)), "04/03/17");
    EXPECT_EQ(FormatMoney("#,###,##0.00#", Money::FromCents(123456789)), "1.234.567,89");
    unsetenv("LC_TIME");
    unsetenv("LC_NUMERIC");
    if (saved) setenv("LC_ALL", keep.c_str(), 1);
}

TEST_F(RegionalSettingsTest, ANamedMonthInTheShortDateBecomesANumber) {
    FormatSettings format;
    ReadStrftimeDate("%d-%b-%Y", format);
    EXPECT_EQ(format.ShortDateFormat, "dd/MMM/yyyy");
    EXPECT_EQ(format.DateSeparator, '-');
    RegionalSettings settings;
    settings.Format = format;
    ApplyRegionalSettings(settings);
    EXPECT_EQ(Settings().ShortDateFormat, "dd/MM/yyyy");
}

TEST(RegionalWords, ChequeIsCheckInTheUnitedStatesOnly) {
    EXPECT_EQ(RegionalWords("Cheque no. and cheque date", "United States"),
              "Check no. and check date");
    EXPECT_EQ(RegionalWords("Cheques", "United Kingdom"), "Cheques");
    EXPECT_EQ(RegionalWords("Cheques", "unknown"), "Cheques");
}

} // namespace
