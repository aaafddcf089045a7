#pragma once

#include "core/Money.h"

#include <array>
#include <string>

namespace corvane::timebilling {

// The three taxable buckets of an invoice: each holds a tax code and the total of the extended
// amounts of the lines carrying that code. A bucket whose total comes back to exactly 0 is free
// again.
struct TaxBuckets {
    std::array<std::string, 3> Codes; // empty: free
    std::array<Money, 3> Amounts;

    // Adds to the code's bucket, or takes the first free one; raises "Too many taxes..." when
    // a fourth code arrives.
    void Add(const std::string& code, Money amount);
    // Every code letter of a line's TaxCodes.
    void AddLine(const std::string& taxCodes, Money amount);
    // The tax of code at rate per cent: its bucket's total at the rate, rounded once.
    Money TaxAmount(const std::string& code, double rate) const;
};

} // namespace corvane::timebilling
