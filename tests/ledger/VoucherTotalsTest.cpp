#include "ledger/domain/VoucherTotals.h"
#include "ledger/domain/VoucherNumbering.h"
#include "ledger/domain/VoucherTexts.h"

#include <gtest/gtest.h>

using corvane::Money;
using corvane::ledger::VoucherTotals;

TEST(VoucherTotals, ALineChangingSidesLeavesTheOldSideAndJoinsTheNew) {
    VoucherTotals t;
    t.LineSaved(Money(), Money::FromCents(1000));
    t.LineSaved(Money(), Money::FromCents(-1000));
    EXPECT_EQ(t.Debits(), Money::FromCents(1000));
    EXPECT_EQ(t.Credits(), Money::FromCents(-1000));
    EXPECT_EQ(t.StatusText(), "Debits: 10.00   Credits: 10.00CR");
    // The debit line becomes a credit of 2.50.
    t.LineSaved(Money::FromCents(1000), Money::FromCents(-250));
    EXPECT_EQ(t.Debits(), Money());
    EXPECT_EQ(t.Credits(), Money::FromCents(-1250));
    EXPECT_EQ(t.StatusText(), "Debits: 0.00   Credits: 12.50CR   Diff: 12.50CR");
}

TEST(VoucherTotals, AZeroLineCountsOnTheCreditSideAndChangesNothing) {
    VoucherTotals t;
    t.LineSaved(Money(), Money());
    EXPECT_TRUE(t.Debits().IsZero());
    EXPECT_TRUE(t.Credits().IsZero());
    EXPECT_EQ(t.StatusText(), "Debits: 0.00   Credits: 0.00");
}

TEST(VoucherTotals, DifferenceIsExactInTenThousandthsAndGrouped) {
    VoucherTotals t;
    t.LineSaved(Money(), Money::FromUnits(12345678905)); // 1,234,567.8905
    t.LineSaved(Money(), Money::FromUnits(-12345678900));
    EXPECT_EQ(t.Difference(), Money::FromUnits(5));
    EXPECT_EQ(t.StatusText(), "Debits: 1,234,567.891   Credits: 1,234,567.89CR   Diff: 0.001");
}

TEST(VoucherTotals, DeletesAndASavedVoucherStart) {
    VoucherTotals t;
    t.StartFrom(Money::FromCents(5000));
    EXPECT_EQ(t.Credits(), Money::FromCents(-5000));
    t.LineDeleted(Money::FromCents(-2000));
    t.LineDeleted(Money::FromCents(5000));
    EXPECT_EQ(t.Debits(), Money());
    EXPECT_EQ(t.Credits(), Money::FromCents(-3000));
    EXPECT_EQ(t.StatusText(), "Debits: 0.00   Credits: 30.00CR   Diff: 30.00CR");
    t.Clear();
    EXPECT_EQ(t.StatusText(), "Debits: 0.00   Credits: 0.00");
}

TEST(VoucherNumbers, OutsideTheSeriesRestartsAt1001) {
    using corvane::ledger::VoucherNumberToUse;
    EXPECT_EQ(VoucherNumberToUse(0), 1001);
    EXPECT_EQ(VoucherNumberToUse(1000), 1001);
    EXPECT_EQ(VoucherNumberToUse(1001), 1001);
    EXPECT_EQ(VoucherNumberToUse(10000000), 10000000);
    EXPECT_EQ(VoucherNumberToUse(10000001), 1001);
}

TEST(VoucherLabels, PaymentsOfPayablesAreRelabelledOnly) {
    using corvane::ledger::VoucherSourceLabel;
    EXPECT_EQ(VoucherSourceLabel("AP", "Chq"), "AP Pmt");
    EXPECT_EQ(VoucherSourceLabel("AP", "Inv"), "AP Inv");
    EXPECT_EQ(VoucherSourceLabel("AR", "Pmt"), "AR Pmt");
    EXPECT_EQ(VoucherSourceLabel("GL", "JV"), "GL JV");
    EXPECT_EQ(corvane::ledger::PeriodText(3, 2017), "03/2017");
    EXPECT_EQ(corvane::ledger::PeriodText(12, 2018), "12/2018");
}
