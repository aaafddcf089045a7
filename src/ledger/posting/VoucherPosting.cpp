#include "ledger/posting/VoucherPosting.h"

namespace corvane::ledger {

namespace {

constexpr std::string_view ReversingType = "JVR";

// sign is +1 for posting and -1 for the mirror image that unposting applies.
VoucherEffect Effect(const Voucher& v, int sign, bool carriesVoucherId) {
    VoucherEffect effect;
    int reverseYear = 0, reversePeriod = 0;
    NextPeriod(v.GLYear, v.GLPeriod, reverseYear, reversePeriod);
    for (const auto& line : v.Lines) {
        Money amount = sign > 0 ? line.GLAmount : -line.GLAmount;
        effect.History.push_back(
            {line.Account, v.GLYear, v.GLPeriod, v.TransType, amount, carriesVoucherId});
        if (v.AutoReverse)
            effect.History.push_back({line.Account, reverseYear, reversePeriod,
                                      std::string(ReversingType), -amount, carriesVoucherId});
    }
    // The totals are a second pass over the lines, so that a voucher's changes come in the
    // same order as its history rows were written.
    for (const auto& line : v.Lines) {
        Money amount = sign > 0 ? line.GLAmount : -line.GLAmount;
        effect.Balances.push_back({line.Account, v.GLYear, v.GLPeriod, amount});
        if (v.AutoReverse)
            effect.Balances.push_back({line.Account, reverseYear, reversePeriod, -amount});
    }
    return effect;
}

} // namespace

void NextPeriod(int year, int period, int& nextYear, int& nextPeriod) {
    if (period < 12) {
        nextYear = year;
        nextPeriod = period + 1;
    } else {
        nextYear = year + 1;
        nextPeriod = 1;
    }
}

VoucherEffect PostingEffect(const Voucher& voucher) {
    return Effect(voucher, +1, true);
}

VoucherEffect UnpostingEffect(const Voucher& voucher) {
    return Effect(voucher, -1, false);
}

} // namespace corvane::ledger
