#include "timebilling/domain/TaxBuckets.h"

#include "core/Exception.h"

namespace corvane::timebilling {

void TaxBuckets::Add(const std::string& code, Money amount) {
    for (std::size_t k = 0; k < 3; ++k) {
        if (Codes[k] != code) continue;
        Amounts[k] += amount;
        if (Amounts[k].IsZero()) Codes[k].clear();
        return;
    }
    for (std::size_t k = 0; k < 3; ++k) {
        if (!Codes[k].empty()) continue;
        Codes[k] = code;
        Amounts[k] = amount;
        return;
    }
    throw Exception("Too many taxes...\nMore than 3 tax codes were encountered while processing "
                    "the items on this invoice. \nPlease check the items to ensure the tax codes "
                    "are correct");
}

void TaxBuckets::AddLine(const std::string& taxCodes, Money amount) {
    for (std::size_t i = 0; i < taxCodes.size() && i < 3; ++i)
        if (taxCodes[i] != ' ') Add(std::string(1, taxCodes[i]), amount);
}

Money TaxBuckets::TaxAmount(const std::string& code, double rate) const {
    // An empty code meets the first free bucket, whose total is nothing: no tax.
    for (std::size_t k = 0; k < 3; ++k)
        if (Codes[k] == code) return code.empty() ? Money() : Amounts[k].PercentRounded(rate);
    return Money();
}

} // namespace corvane::timebilling
