#include "timebilling/domain/Billing.h"

#include <gtest/gtest.h>

using namespace corvane;
using namespace corvane::timebilling;

namespace {

BillingRow Row(int customer, int task, Money rate, double hours, const std::string& codes = "G") {
    BillingRow r;
    r.CustomerID = customer;
    r.CustomerName = "Customer " + std::to_string(customer);
    r.JobID = 1;
    r.TaskID = task;
    r.Rate = rate;
    r.TotalHours = hours;
    r.TaxCodes = codes;
    r.Tax1ID = 1;
    r.Tax2ID = 2;
    return r;
}

const TaxRates kTaxes{{1, {"G", 5.0}}, {2, {"P", 8.0}}};

} // namespace

TEST(BillTime, OneInvoicePerCustomerOneLinePerTaskTaxRoundedOnTheBucket) {
    std::vector<BillingRow> rows{Row(1, 1, Money::FromCents(1001), 1, "GP"),
                                 Row(1, 2, Money::FromCents(1001), 1, "G"),
                                 Row(2, 3, Money::FromWhole(100), 2.5, "")};
    auto invoices = BillTime(rows, kTaxes);
    ASSERT_EQ(invoices.size(), 2u);
    const BilledInvoice& a = invoices[0];
    ASSERT_EQ(a.Lines.size(), 2u);
    EXPECT_EQ(a.Lines[1].Seq, 2);
    EXPECT_EQ(a.Buckets[0].Code, "G");
    EXPECT_EQ(a.Buckets[0].Amount, Money::FromCents(2002));
    EXPECT_EQ(a.Buckets[1].Amount, Money::FromCents(1001));
    // G: 20.02 at 5% is 1.001, rounded once: 1.00; P: 10.01 at 8% is 0.8008: 0.80.
    EXPECT_EQ(a.Taxes.Tax1, Money::FromCents(100));
    EXPECT_EQ(a.Taxes.Tax2, Money::FromCents(80));
    EXPECT_EQ(a.InvoiceAmount, Money::FromCents(2182));
    const BilledInvoice& b = invoices[1];
    EXPECT_EQ(b.Lines[0].Quantity, 2.5);
    EXPECT_EQ(b.InvoiceAmount, Money::FromWhole(250));
}

TEST(BillTime, OverrideReplacesTheRateAndZeroCounts) {
    BillingRow zero = Row(1, 1, Money::FromWhole(90), 3);
    zero.RateOverride = Money();
    BillingRow other = Row(1, 2, Money::FromWhole(90), 1);
    other.RateOverride = Money::FromWhole(120);
    auto invoices = BillTime({zero, other}, kTaxes);
    EXPECT_EQ(invoices[0].Lines[0].UnitPrice, Money());
    EXPECT_EQ(invoices[0].Lines[0].Extended, Money());
    EXPECT_EQ(invoices[0].Lines[1].UnitPrice, Money::FromWhole(120));
    EXPECT_FALSE(invoices[0].Vanishes());
}

TEST(BillTime, AnInvoiceOfNothingVanishes) {
    BillingRow zero = Row(1, 1, Money::FromWhole(90), 3);
    zero.RateOverride = Money();
    auto invoices = BillTime({zero, Row(2, 2, Money(), 4)}, kTaxes);
    ASSERT_EQ(invoices.size(), 2u);
    EXPECT_TRUE(invoices[0].Vanishes());
    EXPECT_TRUE(invoices[1].Vanishes());
}

TEST(BillTime, AnExemptCustomerPaysNoTaxButTheBucketsFill) {
    BillingRow r = Row(1, 1, Money::FromWhole(100), 1, "GP");
    r.Tax1ExemptionNo = "EX-1";
    auto invoices = BillTime({r}, kTaxes);
    EXPECT_FALSE(invoices[0].Tax1ID);
    EXPECT_EQ(invoices[0].Taxes.Tax1, Money());
    EXPECT_EQ(invoices[0].Taxes.Tax2, Money::FromWhole(8));
    EXPECT_EQ(invoices[0].Buckets[0].Amount, Money::FromWhole(100));
    EXPECT_EQ(invoices[0].InvoiceAmount, Money::FromWhole(108));
}

TEST(BillTime, HoursTimesRateRoundsHalfAwayToCents) {
    // 0.125 h at 0.20 is 0.025: half a cent goes up.
    auto invoices = BillTime({Row(1, 1, Money::FromCents(20), 0.125, "")}, kTaxes);
    EXPECT_EQ(invoices[0].Lines[0].Extended, Money::FromCents(3));
}

TEST(BillTime, AFourthCodeIsRefused) {
    EXPECT_THROW(
        BillTime({Row(1, 1, Money::FromWhole(1), 1, "ABC"), Row(1, 2, Money::FromWhole(1), 1, "D")},
                 kTaxes),
        std::exception);
}
