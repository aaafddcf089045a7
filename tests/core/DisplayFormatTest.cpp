#include "core/DisplayFormat.h"

#include "FormatSettingsFixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using corvane::FormatFloat;
using corvane::FormatMoney;
using corvane::Money;

namespace {

constexpr const char* parenthesesFormat = "#,###,##0.00#;(#,###,##0.00#)";
constexpr const char* creditFormat = "#,###,##0.00#;#,###,##0.00#CR";

class DisplayFormatTest : public FormatSettingsFixture {};

Money Units(std::int64_t units) {
    return Money::FromUnits(units);
}

} // namespace

TEST_F(DisplayFormatTest, AmountsInParentheses) {
    EXPECT_EQ(FormatMoney(parenthesesFormat, Money::FromWhole(1000000)), "1,000,000.00");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Money::FromWhole(-1000000)), "(1,000,000.00)");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Units(12345000)), "1,234.50");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Units(-12345000)), "(1,234.50)");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Units(12345678)), "1,234.568");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Units(-12345675)), "(1,234.568)");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Units(9999995)), "1,000.00");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Units(5)), "0.001");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Units(999)), "0.10");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Money::FromWhole(123456789)), "123,456,789.00");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Money::FromWhole(1234567890)), "1,234,567,890.00");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Money::FromWhole(100)), "100.00");
}

TEST_F(DisplayFormatTest, AmountsWithCreditMark) {
    EXPECT_EQ(FormatMoney(creditFormat, Money::FromWhole(-50)), "50.00CR");
    EXPECT_EQ(FormatMoney(creditFormat, Money::FromWhole(50)), "50.00");
    EXPECT_EQ(FormatMoney(creditFormat, Units(-12345670)), "1,234.567CR");
    EXPECT_EQ(FormatMoney(creditFormat, Money()), "0.00");
}

TEST_F(DisplayFormatTest, NegativesThatRoundToZeroShowAsZero) {
    EXPECT_EQ(FormatMoney(parenthesesFormat, Units(-4)), "0.00");
    EXPECT_EQ(FormatMoney(creditFormat, Units(-4)), "0.00");
    EXPECT_EQ(FormatMoney("0.00", Units(-49)), "0.00");
    EXPECT_EQ(FormatMoney("0.00", Units(-50)), "-0.01");
    EXPECT_EQ(FormatMoney("0.00;(0.00);Nil", Units(-49)), "Nil");
    EXPECT_EQ(FormatMoney("0.00;(0.00);Nil", Money()), "Nil");
    EXPECT_EQ(FormatFloat("0.00;(0.00)", -1e-9), "0.00");
    EXPECT_EQ(FormatFloat("0.00", -0.0), "0.00");
}

TEST_F(DisplayFormatTest, SectionsAndSigns) {
    EXPECT_EQ(FormatMoney("0.00", Units(-15000)), "-1.50");
    // An empty negative section means the first one with a minus sign.
    EXPECT_EQ(FormatMoney("0.00;;zero", Money::FromWhole(-1)), "-1.00");
    EXPECT_EQ(FormatMoney("0.00;;zero", Money()), "zero");
    EXPECT_EQ(FormatMoney("$#,##0.00", Money::FromWhole(-5)), "-$5.00");
    EXPECT_EQ(FormatMoney("\"a;b\"0;\"neg\"0", Money::FromWhole(5)), "a;b5");
    EXPECT_EQ(FormatMoney("\"a;b\"0;\"neg\"0", Money::FromWhole(-5)), "neg5");
    EXPECT_EQ(FormatMoney("'Total: '0.00", Money::FromWhole(7)), "Total: 7.00");
}

TEST_F(DisplayFormatTest, DigitPlaceholders) {
    EXPECT_EQ(FormatMoney("0.00", Units(10050)), "1.01"); // exact half, away from zero
    EXPECT_EQ(FormatMoney("0.00", Units(-10050)), "-1.01");
    EXPECT_EQ(FormatMoney("0.00", Units(10049)), "1.00");
    EXPECT_EQ(FormatMoney("#,##0", Units(12345675000)), "1,234,568");
    EXPECT_EQ(FormatMoney("#,##0", Units(-9995000)), "-1,000");
    EXPECT_EQ(FormatMoney("#,##0", Units(4000)), "0");
    EXPECT_EQ(FormatMoney("0.####", Units(15000)), "1.5");
    EXPECT_EQ(FormatMoney("0.####", Units(20000)), "2");
    EXPECT_EQ(FormatMoney("0.####", Units(1)), "0.0001");
    EXPECT_EQ(FormatMoney("#,###,##0.00###", Units(12345)), "1.2345");
    EXPECT_EQ(FormatMoney("000", Money::FromWhole(7)), "007");
    EXPECT_EQ(FormatMoney("0", Money::FromWhole(12345)), "12345");
    EXPECT_EQ(FormatMoney("00-00", Money::FromWhole(1234)), "12-34");
    EXPECT_EQ(FormatMoney(".00", Units(5000)), ".50");
    EXPECT_EQ(FormatMoney(".00", Units(15000)), "1.50");
}

TEST_F(DisplayFormatTest, ExtremeAmountsNeedNoFloatingPoint) {
    const auto max = std::numeric_limits<std::int64_t>::max();
    const auto min = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(FormatMoney("0.0000", Units(max)), "922337203685477.5807");
    EXPECT_EQ(FormatMoney("#,##0.00", Units(max)), "922,337,203,685,477.58");
    EXPECT_EQ(FormatMoney("0.00", Units(min)), "-922337203685477.58");
    EXPECT_EQ(FormatMoney(parenthesesFormat, Units(min)), "(922,337,203,685,477.581)");
    // One unit short of the next whole: a double would already have lost it.
    EXPECT_EQ(FormatMoney("0.0000", Units(90071992547409919)), "9007199254740.9919");
}

TEST_F(DisplayFormatTest, RegionalSeparators) {
    Settings().DecimalSeparator = ',';
    Settings().ThousandSeparator = '.';
    EXPECT_EQ(FormatMoney(parenthesesFormat, Units(-12345678910)), "(1.234.567,891)");
    EXPECT_EQ(FormatFloat("#,##0.00", 1234.5), "1.234,50");
    EXPECT_EQ(FormatMoney("", Units(15000)), "1,5");
}

TEST_F(DisplayFormatTest, FloatsRoundOnTheirDecimalFigure) {
    EXPECT_EQ(FormatFloat("0.00", 1.005), "1.01");
    EXPECT_EQ(FormatFloat("0.00", 2.675), "2.68");
    EXPECT_EQ(FormatFloat("0.00", -2.675), "-2.68");
    EXPECT_EQ(FormatFloat("0.00", 1.0049), "1.00");
    EXPECT_EQ(FormatFloat("0.####", 0.1 + 0.2), "0.3");
    EXPECT_EQ(FormatFloat("0.00#", 8.0), "8.00");
    EXPECT_EQ(FormatFloat("0.00#", 7.125), "7.125");
    EXPECT_EQ(FormatFloat("0.00#", 7.1255), "7.126");
    EXPECT_EQ(FormatFloat("0.00", 9.995), "10.00");
    EXPECT_EQ(FormatFloat("0.00", 1e-20), "0.00");
    EXPECT_EQ(FormatFloat("0.000000", 0.000001), "0.000001");
    EXPECT_EQ(FormatFloat("#,##0.00", 1234567.125), "1,234,567.13");
    EXPECT_EQ(FormatFloat("#,##0", 1e17), "100,000,000,000,000,000");
    EXPECT_EQ(FormatFloat("0.00;(0.00)", -12.5), "(12.50)");
}

TEST_F(DisplayFormatTest, EmptyPatternAndSpecialValues) {
    EXPECT_EQ(FormatMoney("", Units(-12345000)), "-1234.5");
    EXPECT_EQ(FormatMoney("", Money()), "0");
    EXPECT_EQ(FormatFloat("", 1.5), "1.5");
    EXPECT_EQ(FormatFloat("", 0.1 + 0.2), "0.3");
    EXPECT_EQ(FormatFloat("0.00", std::nan("")), "NAN");
    EXPECT_EQ(FormatFloat("0.00", -INFINITY), "-INF");
}
