#include "receivables/taxes/TaxBuckets.h"

namespace corvane::receivables {

namespace {

// A blank in the codes is a position the user left empty, not a code.
bool IsCode(char c) {
    return c != 0 && c != ' ';
}

BucketVerdict AddCodes(TaxBuckets& buckets, std::string_view codes, Money amount) {
    for (std::size_t i = 0; i < codes.size() && i < 3; ++i) {
        if (!IsCode(codes[i])) continue;
        if (!AddToBucket(buckets, codes[i], amount)) return {codes[i]};
    }
    return {};
}

} // namespace

bool AddToBucket(TaxBuckets& buckets, char code, Money amount) {
    for (TaxBucket& bucket : buckets) {
        if (bucket.Code.size() == 1 && bucket.Code[0] == code) {
            bucket.Amount += amount;
            // Lines that cancel out give the bucket back, so that a fourth code can use it.
            if (bucket.Amount.IsZero()) bucket.Code.clear();
            return true;
        }
    }
    for (TaxBucket& bucket : buckets) {
        if (bucket.Code.empty()) {
            bucket.Code = std::string(1, code);
            bucket.Amount = amount;
            return true;
        }
    }
    return false;
}

BucketVerdict ApplyLineChange(TaxBuckets& buckets, const TaxedLine& before,
                              const TaxedLine& after) {
    if (BucketVerdict v = AddCodes(buckets, before.TaxCodes, -before.Amount); !v.Ok()) return v;
    return AddCodes(buckets, after.TaxCodes, after.Amount);
}

Money TaxAmount(const TaxBuckets& buckets, std::string_view code, double rate) {
    // An empty code would meet the first free bucket, whose amount is 0 or was never set.
    if (code.empty()) return Money();
    for (const TaxBucket& bucket : buckets)
        if (bucket.Code == code) return bucket.Amount.PercentRounded(rate);
    return Money();
}

} // namespace corvane::receivables
