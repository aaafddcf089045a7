#pragma once

#include "core/Money.h"

#include <array>
#include <string>
#include <string_view>

namespace corvane::receivables {

// One of a document's three taxable buckets: a tax code and the running total of the extended
// amounts of the lines that carry that code. A bucket without a code is free.
struct TaxBucket {
    std::string Code; // one letter, or empty while the bucket is free
    Money Amount;
    bool operator==(const TaxBucket&) const = default;
};

// Buckets 1 to 3 in the order they are searched and filled. They hold codes whether or not the
// document's taxes use them, so a change of customer never has to rebuild them.
using TaxBuckets = std::array<TaxBucket, 3>;

// A line as the buckets see it: its extended amount and the tax codes it carries (up to three
// letters; a blank position carries no code).
struct TaxedLine {
    Money Amount;
    std::string TaxCodes;
};

// The outcome of moving amounts between buckets. On a fourth distinct code FailingCode names
// it; the buckets then keep every change made before that code.
struct BucketVerdict {
    char FailingCode = 0;
    bool Ok() const { return FailingCode == 0; }
};

inline constexpr std::string_view TooManyTaxesMessage =
    "Too many taxes...\nMore than 3 tax codes were encountered while processing the items on "
    "this invoice. \nPlease check the items to ensure the tax codes are correct";

// Adds the amount (which may be negative) to the bucket of the code, freeing the bucket when it
// comes back to exactly 0, or takes the first free bucket for a new code. False, with the
// buckets unchanged, when all three hold other codes.
bool AddToBucket(TaxBuckets& buckets, char code, Money amount);

// Moves one line from what it was to what it is: the old amount leaves the buckets of the old
// codes, then the present amount joins the buckets of the present codes. A new line was
// {0, ""}; a deleted line becomes {0, ""}.
BucketVerdict ApplyLineChange(TaxBuckets& buckets, const TaxedLine& before, const TaxedLine& after);

// The tax on the bucket of the code at the rate in per cent, rounded once on the bucket's
// total: RoundHalfAway(amount x rate) / 100. A code held by no bucket, or an empty code,
// yields 0.
Money TaxAmount(const TaxBuckets& buckets, std::string_view code, double rate);

} // namespace corvane::receivables
