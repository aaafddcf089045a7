#include "core/Rounding.h"
#include "core/Money.h"

#include "core/Exception.h"

#include <gtest/gtest.h>

#include <cmath>

using corvane::Money;
using corvane::RoundHalfAway;

TEST(RoundHalfAwayTest, TiesGoAwayFromZeroOnBothSides) {
    EXPECT_EQ(RoundHalfAway(2.5), 3.0);
    EXPECT_EQ(RoundHalfAway(-2.5), -3.0);
    EXPECT_EQ(RoundHalfAway(0.5), 1.0);
    EXPECT_EQ(RoundHalfAway(-0.5), -1.0);
    EXPECT_EQ(RoundHalfAway(3.5), 4.0); // not to even
    EXPECT_EQ(RoundHalfAway(2.4999), 2.0);
    EXPECT_EQ(RoundHalfAway(-2.4999), -2.0);
    EXPECT_EQ(RoundHalfAway(-0.4), 0.0);
    EXPECT_FALSE(std::signbit(RoundHalfAway(-0.4)));
}

TEST(RoundHalfAwayTest, NoiseBeyondSevenDecimalsIsCleanedFirst) {
    EXPECT_EQ(RoundHalfAway(2.49999999999), 3.0);
    EXPECT_EQ(RoundHalfAway(-2.49999999999), -3.0);
    EXPECT_EQ(RoundHalfAway(2.4999999), 2.0); // seven decimals are not noise
    EXPECT_EQ(RoundHalfAway(0.49999999999999994), 1.0);
    EXPECT_EQ(RoundHalfAway(-0.49999999999999994), -1.0);
}

TEST(RoundHalfAwayTest, MoneyProductsRoundOnTheDecimalFigure) {
    // 2.675 * 100 is 267.49999999999997 in a double; cleaning brings it back to the half.
    EXPECT_EQ(Money::FromUnits(26750).TimesRounded(1.0), Money::FromCents(268));
    EXPECT_EQ(Money::FromUnits(-26750).TimesRounded(1.0), Money::FromCents(-268));
    // Each line rounds on its own: 0.01 at a rate of 1.5 is 0.02.
    EXPECT_EQ(Money::FromCents(1).TimesRounded(1.5), Money::FromCents(2));
    EXPECT_EQ(Money::FromCents(-1).TimesRounded(1.5), Money::FromCents(-2));
    EXPECT_EQ(Money::FromCents(1000).TimesRounded(3.0), Money::FromCents(3000));
    // Quantity 3 at 0.3333 is 0.9999, which rounds to the cent.
    EXPECT_EQ(Money::FromUnits(3333).TimesRounded(3.0), Money::FromCents(100));
}

TEST(RoundHalfAwayTest, PercentagesGiveCents) {
    EXPECT_EQ(Money::FromCents(3333).PercentRounded(1.5), Money::FromCents(50)); // 49.995
    EXPECT_EQ(Money::FromCents(-3333).PercentRounded(1.5), Money::FromCents(-50));
    EXPECT_EQ(Money::FromCents(2002).PercentRounded(5.0), Money::FromCents(100)); // 100.1
    EXPECT_EQ(Money::FromCents(1001).PercentRounded(8.0), Money::FromCents(80));  // 80.08
    EXPECT_EQ(Money::FromCents(0).PercentRounded(8.0), Money::FromCents(0));
}

TEST(RoundHalfAwayTest, RoundingAmountsToCentsAndFromDoubles) {
    EXPECT_EQ(Money::FromUnits(12350).RoundedToCents(), Money::FromUnits(12400));
    EXPECT_EQ(Money::FromUnits(-12350).RoundedToCents(), Money::FromUnits(-12400));
    EXPECT_EQ(Money::FromUnits(12349).RoundedToCents(), Money::FromUnits(12300));
    EXPECT_EQ(Money::FromUnits(-12349).RoundedToCents(), Money::FromUnits(-12300));
    EXPECT_EQ(Money::FromDouble(1.00005), Money::FromUnits(10001));
    EXPECT_EQ(Money::FromDouble(-1.00005), Money::FromUnits(-10001));
    EXPECT_EQ(Money::FromDouble(0.1 + 0.2), Money::FromUnits(3000));
    EXPECT_THROW(Money::FromDouble(1e300), corvane::Exception);
}
