#include "receivables/taxes/DocumentTaxes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <vector>

using namespace corvane;
using namespace corvane::receivables;

namespace {

Money M(const char* text) {
    return Money::Parse(text).value();
}

DocumentTax Tax(const char* code, double rate, const char* description) {
    DocumentTax tax;
    tax.TaxID = 1;
    tax.Code = code;
    tax.Rate = rate;
    tax.Description = description;
    return tax;
}

// G 5% and P 8%, the two taxes most tests run under.
DocumentTaxSet GstPst() {
    return {Tax("G", 5, "GST"), Tax("P", 8, "PST")};
}

// The reference: amount x rate / 100 in whole integers, for amounts of four decimals and rates
// of three, rounded to the cent half away from zero. No floating point at all.
std::int64_t ExactTaxUnits(std::int64_t amountUnits, std::int64_t rateThousandths) {
    const std::int64_t product = amountUnits * rateThousandths; // tax in 1e-9 of a unit
    const std::int64_t centScale = 10000000;                    // 1e-9 units per cent
    const std::int64_t cents = (std::llabs(product) + centScale / 2) / centScale;
    return (product < 0 ? -cents : cents) * 100;
}

} // namespace

namespace corvane::receivables {
void PrintTo(const TaxBucket& b, std::ostream* os) {
    *os << "'" << b.Code << "' " << b.Amount.ToString();
}
} // namespace corvane::receivables

TEST(DocumentTaxes, WorkedExampleRoundsEachTaxOnceOnItsBucket) {
    const std::vector<TaxedLine> lines{{M("10.01"), "GP"}, {M("10.01"), "G"}};
    const DocumentTotals totals = ComputeDocumentTaxes(lines, GstPst());
    ASSERT_TRUE(totals.Verdict.Ok());
    EXPECT_EQ(totals.Buckets[0], (TaxBucket{"G", M("20.02")}));
    EXPECT_EQ(totals.Buckets[1], (TaxBucket{"P", M("10.01")}));
    EXPECT_EQ(totals.Buckets[2], TaxBucket{});
    EXPECT_EQ(totals.Taxes.Tax1, M("1.00")); // 100.1 cents
    EXPECT_EQ(totals.Taxes.Tax2, M("0.80")); // 80.08 cents
    EXPECT_EQ(totals.DocumentAmount, M("21.82"));
    EXPECT_EQ(totals.TaxLine, "GST: 1.00     PST: 0.80     ");
    // Rounded line by line the first tax would be 0.50 + 0.50 and the second 0.80: the same
    // here, but three lines of 0.10 at 5% show the difference (0.015 rounds once to 0.02).
    const std::vector<TaxedLine> small{{M("0.10"), "G"}, {M("0.10"), "G"}, {M("0.10"), "G"}};
    EXPECT_EQ(ComputeDocumentTaxes(small, GstPst()).Taxes.Tax1, M("0.02"));
}

TEST(DocumentTaxes, LinesEnteredOneByOneReachTheSameTotalsAsTheWholeDocument) {
    const DocumentTaxSet taxes = GstPst();
    TaxBuckets buckets;
    TaxAmounts old;
    Money amount;
    // Enter, change and delete lines the way an entry form does.
    auto step = [&](TaxedLine before, TaxedLine after) {
        const TaxUpdate u = UpdateDocumentTaxes(buckets, taxes, amount, old, before, after);
        ASSERT_TRUE(u.Verdict.Ok());
        old = u.Taxes;
        amount = u.DocumentAmount;
    };
    step({}, {M("10.01"), "GP"});
    step({}, {M("99.99"), "P"});
    step({}, {M("10.01"), "G"});
    step({M("99.99"), "P"}, {M("5.00"), "PG"}); // amount and codes changed
    step({M("5.00"), "PG"}, {});                // deleted
    const std::vector<TaxedLine> remaining{{M("10.01"), "GP"}, {M("10.01"), "G"}};
    const DocumentTotals whole = ComputeDocumentTaxes(remaining, taxes);
    EXPECT_EQ(buckets, whole.Buckets);
    EXPECT_EQ(old, whole.Taxes);
    EXPECT_EQ(amount, M("21.82"));
}

TEST(DocumentTaxes, MixedCodesOnOneLineFillOneBucketEachInAnyOrder) {
    const DocumentTaxSet taxes = GstPst();
    const std::vector<TaxedLine> lines{{M("100.00"), "PG"}, {M("50.00"), "GPH"}};
    const DocumentTotals totals = ComputeDocumentTaxes(lines, taxes);
    ASSERT_TRUE(totals.Verdict.Ok());
    EXPECT_EQ(totals.Buckets[0], (TaxBucket{"P", M("150.00")}));
    EXPECT_EQ(totals.Buckets[1], (TaxBucket{"G", M("150.00")}));
    // H names no tax of the document: it takes a bucket and yields nothing.
    EXPECT_EQ(totals.Buckets[2], (TaxBucket{"H", M("50.00")}));
    EXPECT_EQ(totals.Taxes.Tax1, M("7.50"));
    EXPECT_EQ(totals.Taxes.Tax2, M("12.00"));
    EXPECT_EQ(totals.DocumentAmount, M("169.50"));
    // Blank positions, as a new item's "   " codes leave them, are no codes at all.
    const std::vector<TaxedLine> blanks{{M("10.00"), " G "}, {M("10.00"), "   "}};
    const DocumentTotals b = ComputeDocumentTaxes(blanks, taxes);
    EXPECT_EQ(b.Buckets[0], (TaxBucket{"G", M("10.00")}));
    EXPECT_EQ(b.Buckets[1], TaxBucket{});
}

TEST(DocumentTaxes, ExemptCustomerPaysNoTaxButTheBucketsAreStillFilled) {
    const DocumentTaxSet exempt; // both taxes unset
    const std::vector<TaxedLine> lines{{M("10.01"), "GP"}, {M("10.01"), "G"}};
    const DocumentTotals totals = ComputeDocumentTaxes(lines, exempt);
    EXPECT_EQ(totals.Taxes, TaxAmounts{});
    EXPECT_EQ(totals.DocumentAmount, M("20.02"));
    EXPECT_EQ(totals.TaxLine, "Tax exempt customer");
    EXPECT_EQ(totals.Buckets[0], (TaxBucket{"G", M("20.02")}));

    // Exempt from the first tax only: its part of the line goes, the other stays.
    DocumentTaxSet half = GstPst();
    half.Tax1 = DocumentTax{};
    const DocumentTotals h = ComputeDocumentTaxes(lines, half);
    EXPECT_EQ(h.Taxes.Tax1, Money());
    EXPECT_EQ(h.Taxes.Tax2, M("0.80"));
    EXPECT_EQ(h.TaxLine, "PST: 0.80     ");

    // A change of customer keeps the buckets and re-applies the new customer's taxes.
    TaxBuckets buckets = totals.Buckets;
    const TaxUpdate u = UpdateDocumentTaxes(buckets, GstPst(), totals.DocumentAmount, totals.Taxes,
                                            TaxedLine{}, TaxedLine{});
    EXPECT_EQ(buckets, totals.Buckets);
    EXPECT_EQ(u.DocumentAmount, M("21.82"));
}

TEST(DocumentTaxes, AFourthCodeIsRefusedAndLeavesWhatCameBeforeIt) {
    const DocumentTaxSet taxes = GstPst();
    TaxBuckets buckets;
    const std::vector<TaxedLine> lines{{M("10.00"), "GPH"}};
    const DocumentTotals first = ComputeDocumentTaxes(lines, taxes);
    buckets = first.Buckets;
    const TaxUpdate u = UpdateDocumentTaxes(buckets, taxes, first.DocumentAmount, first.Taxes,
                                            TaxedLine{}, TaxedLine{M("5.00"), "GX"});
    EXPECT_FALSE(u.Verdict.Ok());
    EXPECT_EQ(u.Verdict.FailingCode, 'X');
    EXPECT_EQ(std::string(TooManyTaxesMessage),
              "Too many taxes...\nMore than 3 tax codes were encountered while processing the "
              "items on this invoice. \nPlease check the items to ensure the tax codes are "
              "correct");
    // G was added before X failed; the amount and taxes wait for the corrected line.
    EXPECT_EQ(buckets[0], (TaxBucket{"G", M("15.00")}));
    EXPECT_EQ(u.DocumentAmount, first.DocumentAmount);
    EXPECT_EQ(u.Taxes, first.Taxes);
    // The whole-document routine stops at the same place and says so.
    const std::vector<TaxedLine> four{{M("10.00"), "GPH"}, {M("1.00"), "Q"}};
    EXPECT_EQ(ComputeDocumentTaxes(four, taxes).Verdict.FailingCode, 'Q');
}

TEST(DocumentTaxes, ABucketBackAtZeroIsFreedForAnotherCode) {
    const DocumentTaxSet taxes = GstPst();
    TaxBuckets buckets;
    ASSERT_TRUE(ApplyLineChange(buckets, {}, {M("10.00"), "GPH"}).Ok());
    // Two more lines that cancel each other on H free its bucket while they remain.
    ASSERT_TRUE(ApplyLineChange(buckets, {}, {M("3.00"), "H"}).Ok());
    ASSERT_TRUE(ApplyLineChange(buckets, {}, {M("-13.00"), "H"}).Ok());
    EXPECT_EQ(buckets[2], TaxBucket{});
    // So a fourth code now fits, in the freed place.
    ASSERT_TRUE(ApplyLineChange(buckets, {}, {M("2.00"), "Q"}).Ok());
    EXPECT_EQ(buckets[2], (TaxBucket{"Q", M("2.00")}));
    // Deleting the first line frees G and P the same way; its H, whose bucket the cancelling
    // lines already gave back, opens a bucket of its own at -10.00 in the first free place.
    ASSERT_TRUE(ApplyLineChange(buckets, {M("10.00"), "GPH"}, {}).Ok());
    EXPECT_EQ(buckets[0], (TaxBucket{"H", M("-10.00")}));
    EXPECT_EQ(buckets[1], TaxBucket{});
    EXPECT_EQ(buckets[2], (TaxBucket{"Q", M("2.00")}));
    EXPECT_EQ(ComputeTaxAmounts(buckets, taxes), TaxAmounts{});
}

TEST(DocumentTaxes, CreditNoteLinesGiveNegativeTaxesRoundedAwayFromZero) {
    const DocumentTaxSet taxes = GstPst();
    const std::vector<TaxedLine> credit{{M("-10.10"), "GP"}};
    const DocumentTotals totals = ComputeDocumentTaxes(credit, taxes);
    EXPECT_EQ(totals.Taxes.Tax1, M("-0.51")); // -50.5 cents
    EXPECT_EQ(totals.Taxes.Tax2, M("-0.81")); // -80.8 cents
    EXPECT_EQ(totals.DocumentAmount, M("-11.42"));
    EXPECT_EQ(totals.TaxLine, "GST: (0.51)     PST: (0.81)     ");
}

TEST(DocumentTaxes, HalfACentRoundsAwayFromZero) {
    TaxBuckets buckets;
    ASSERT_TRUE(AddToBucket(buckets, 'G', M("10.10")));
    EXPECT_EQ(TaxAmount(buckets, "G", 5), M("0.51"));  // 50.5
    EXPECT_EQ(TaxAmount(buckets, "G", 15), M("1.52")); // 151.5
    buckets = {};
    ASSERT_TRUE(AddToBucket(buckets, 'G', M("0.10")));
    EXPECT_EQ(TaxAmount(buckets, "G", 5), M("0.01")); // 0.5
    buckets = {};
    ASSERT_TRUE(AddToBucket(buckets, 'G', M("33.33")));
    EXPECT_EQ(TaxAmount(buckets, "G", 1.5), M("0.50")); // 49.995 lands a hair below in binary
    EXPECT_EQ(TaxAmount(buckets, "P", 5), Money());     // no bucket for P
    EXPECT_EQ(TaxAmount(buckets, "", 5), Money());      // unset tax meets a free bucket
}

TEST(DocumentTaxes, EveryTaxIsExactToTheCentAgainstIntegerArithmetic) {
    std::mt19937_64 random(20171);
    std::uniform_int_distribution<std::int64_t> cents(-500000, 5000000);
    std::uniform_int_distribution<std::int64_t> rates(0, 25000); // 0 to 25% in thousandths
    std::uniform_int_distribution<int> count(1, 12);
    const char* codeSets[] = {"G", "P", "GP", "PG", "", "H"};
    for (int doc = 0; doc < 2000; ++doc) {
        const std::int64_t r1 = rates(random), r2 = rates(random);
        DocumentTaxSet taxes{Tax("G", r1 / 1000.0, "A"), Tax("P", r2 / 1000.0, "B")};
        std::vector<TaxedLine> lines;
        std::int64_t g = 0, p = 0, sum = 0;
        for (int i = count(random); i > 0; --i) {
            const std::int64_t units = cents(random) * 100;
            const std::string codes = codeSets[random() % 6];
            lines.push_back({Money::FromUnits(units), codes});
            sum += units;
            if (codes.find('G') != std::string::npos) g += units;
            if (codes.find('P') != std::string::npos) p += units;
        }
        const DocumentTotals totals = ComputeDocumentTaxes(lines, taxes);
        ASSERT_TRUE(totals.Verdict.Ok());
        ASSERT_EQ(totals.Taxes.Tax1.Units(), ExactTaxUnits(g, r1)) << g << " at " << r1;
        ASSERT_EQ(totals.Taxes.Tax2.Units(), ExactTaxUnits(p, r2)) << p << " at " << r2;
        ASSERT_EQ(totals.DocumentAmount.Units(), sum + ExactTaxUnits(g, r1) + ExactTaxUnits(p, r2));
    }
}
