#include "core/Money.h"
#include "core/MoneyLimit.h"

#include "FormatSettingsFixture.h"

#include <gtest/gtest.h>

#include <limits>

using corvane::Money;

namespace {

class MoneyParseTest : public FormatSettingsFixture {};

} // namespace

TEST_F(MoneyParseTest, ReadsTheFormsAUserTypes) {
    const std::pair<const char*, std::int64_t> cases[] = {
        {"1,234.56", 12345600},
        {"1234.56", 12345600},
        {"1,000,000.00", 10000000000},
        {"-12", -120000},
        {"+12", 120000},
        {"(12.00)", -120000},
        {"( 12.00 )", -120000},
        {"12.00CR", -120000},
        {"12.00 cr", -120000},
        {"-1,234.5", -12345000},
        {".5", 5000},
        {"5.", 50000},
        {"  7.25\t", 72500},
        {"0.0001", 1},
        {"1.2345", 12345},
        {"-0", 0},
        {"922337203685477.5807", std::numeric_limits<std::int64_t>::max()},
    };
    for (const auto& [text, units] : cases) {
        const auto parsed = Money::Parse(text);
        ASSERT_TRUE(parsed.has_value()) << text;
        EXPECT_EQ(parsed->Units(), units) << text;
    }
}

TEST_F(MoneyParseTest, RefusesWhatIsNotAnAmount) {
    for (const char* text : {"",
                             "  ",
                             "-",
                             "()",
                             "CR",
                             "abc",
                             "12a",
                             "1.23456",
                             "1.00000",
                             "12-",
                             "--1",
                             "-(12)",
                             "(-12)",
                             "12CRCR",
                             "-12CR",
                             "(12",
                             "1.2.3",
                             "1,23",
                             "1,2345",
                             ",123",
                             "1,,234",
                             "1e3",
                             "1 234",
                             "$12",
                             "922337203685477.5808",
                             "99999999999999999999"}) {
        EXPECT_FALSE(Money::Parse(text).has_value()) << '"' << text << '"';
    }
}

TEST_F(MoneyParseTest, FollowsTheRegionalSeparators) {
    Settings().DecimalSeparator = ',';
    Settings().ThousandSeparator = '.';
    EXPECT_EQ(Money::Parse("1.234,56"), Money::FromCents(123456));
    EXPECT_EQ(Money::Parse("(0,5)"), Money::FromCents(-50));
    EXPECT_FALSE(Money::Parse("1,234.56").has_value());
}

TEST(MoneyTextTest, ToStringKeepsFourDecimalsAndReadsBack) {
    EXPECT_EQ(Money::FromUnits(-12345000).ToString(), "-1234.5000");
    EXPECT_EQ(Money::FromUnits(1).ToString(), "0.0001");
    EXPECT_EQ(Money::FromUnits(-1).ToString(), "-0.0001");
    EXPECT_EQ(Money().ToString(), "0.0000");
    EXPECT_EQ(Money::FromUnits(std::numeric_limits<std::int64_t>::min()).ToString(),
              "-922337203685477.5808");
    const std::int64_t samples[] = {
        0, 1, -1, 99999, -123456789, 10000000000, std::numeric_limits<std::int64_t>::max()};
    for (std::int64_t units : samples) {
        EXPECT_EQ(Money::Parse(Money::FromUnits(units).ToString()), Money::FromUnits(units))
            << units;
    }
}

TEST(MoneyLimitTest, SumsPastTheLargestAmountThrowInsteadOfWrapping) {
    const Money largest = Money::FromUnits(corvane::LargestAmountUnits);
    const Money least = Money::FromUnits(1);
    EXPECT_EQ(largest - least + least, largest);
    EXPECT_EQ(-largest, Money::FromUnits(-corvane::LargestAmountUnits));
    EXPECT_THROW(largest + least, corvane::MoneyOverflow);
    EXPECT_THROW(-largest - least, corvane::MoneyOverflow);
    EXPECT_THROW(least - -largest, corvane::MoneyOverflow);
    EXPECT_THROW(-Money::FromUnits(std::numeric_limits<std::int64_t>::min()),
                 corvane::MoneyOverflow);
    EXPECT_THROW(largest * 2, corvane::MoneyOverflow);
    EXPECT_EQ(Money::FromUnits(-3) * 4, Money::FromUnits(-12));
    Money total = largest;
    EXPECT_THROW(total += least, corvane::MoneyOverflow);
    EXPECT_EQ(total, largest) << "a refused sum leaves the total as it was";
    try {
        (void)(largest + least);
    } catch (const corvane::MoneyOverflow& e) {
        EXPECT_STREQ(e.what(), "The amount is larger than the largest amount the system holds "
                               "(922,337,203,685,477.5807).");
    }
}

TEST_F(MoneyParseTest, TheLargestAmountReadsAndOneMoreIsTooLarge) {
    EXPECT_EQ(Money::Parse("922,337,203,685,477.5807"),
              Money::FromUnits(corvane::LargestAmountUnits));
    EXPECT_EQ(Money::Parse("-922337203685477.5807"),
              -Money::FromUnits(corvane::LargestAmountUnits));
    EXPECT_EQ(Money::Parse("922337203685477.5808"), std::nullopt);
    EXPECT_TRUE(corvane::AmountTooLarge("922337203685477.5808"));
    EXPECT_TRUE(corvane::AmountTooLarge("(99,999,999,999,999,999)"));
    EXPECT_TRUE(corvane::AmountTooLarge("-1000000000000000"));
    EXPECT_FALSE(corvane::AmountTooLarge("12x"));
    EXPECT_FALSE(corvane::AmountTooLarge("99999999999999999999.12345"));
    EXPECT_FALSE(corvane::AmountTooLarge("922337203685477.5807"));
}
