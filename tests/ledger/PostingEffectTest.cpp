#include "ledger/posting/VoucherPosting.h"

#include <gtest/gtest.h>

namespace corvane::ledger {
namespace {

const AccountKey A{1, std::nullopt, std::nullopt, std::nullopt};
const AccountKey B{2, 7, std::nullopt, 9};

Voucher Accrual(int year, int period, bool autoReverse) {
    Voucher v;
    v.JVID = 5;
    v.GLYear = year;
    v.GLPeriod = period;
    v.Source = "GL";
    v.TransType = "JV";
    v.AutoReverse = autoReverse;
    v.Lines = {{1, A, Money::FromWhole(100)}, {2, B, Money::FromWhole(-100)}};
    return v;
}

TEST(PostingEffect, AutoReverseAtYearEndWritesFourRowsAndFourTotals) {
    const VoucherEffect e = PostingEffect(Accrual(2017, 12, true));
    const std::vector<HistoryRow> history{
        {A, 2017, 12, "JV", Money::FromWhole(100), true},
        {A, 2018, 1, "JVR", Money::FromWhole(-100), true},
        {B, 2017, 12, "JV", Money::FromWhole(-100), true},
        {B, 2018, 1, "JVR", Money::FromWhole(100), true},
    };
    EXPECT_EQ(e.History, history);
    const std::vector<BalanceDelta> totals{
        {A, 2017, 12, Money::FromWhole(100)},
        {A, 2018, 1, Money::FromWhole(-100)},
        {B, 2017, 12, Money::FromWhole(-100)},
        {B, 2018, 1, Money::FromWhole(100)},
    };
    EXPECT_EQ(e.Balances, totals);
}

TEST(PostingEffect, PlainVoucherStaysInItsPeriodAndKeepsItsType) {
    Voucher v = Accrual(2018, 3, false);
    v.Source = "AP";
    v.TransType = "Chq";
    const VoucherEffect e = PostingEffect(v);
    ASSERT_EQ(e.History.size(), 2u);
    EXPECT_EQ(e.History[0].TransType, "Chq");
    EXPECT_EQ(e.History[1].GLPeriod, 3);
    ASSERT_EQ(e.Balances.size(), 2u);
    EXPECT_EQ(e.Balances[1], (BalanceDelta{B, 2018, 3, Money::FromWhole(-100)}));
}

TEST(PostingEffect, PeriodsOutsideTheYearFollowTheSameRule) {
    int year = 0, period = 0;
    NextPeriod(2018, 0, year, period);
    EXPECT_EQ(year * 100 + period, 201801);
    NextPeriod(2018, 13, year, period);
    EXPECT_EQ(year * 100 + period, 201901);
    NextPeriod(2018, 11, year, period);
    EXPECT_EQ(year * 100 + period, 201812);
}

TEST(PostingEffect, AnEmptyVoucherWritesNothing) {
    Voucher v = Accrual(2018, 2, true);
    v.Lines.clear();
    const VoucherEffect e = PostingEffect(v);
    EXPECT_TRUE(e.History.empty());
    EXPECT_TRUE(e.Balances.empty());
}

TEST(UnpostingEffect, MirrorsPostingAndItsRowsCarryNoVoucherId) {
    const Voucher v = Accrual(2017, 12, true);
    const VoucherEffect posted = PostingEffect(v);
    const VoucherEffect unposted = UnpostingEffect(v);
    ASSERT_EQ(posted.Balances.size(), unposted.Balances.size());
    for (std::size_t i = 0; i < posted.Balances.size(); ++i) {
        EXPECT_EQ(unposted.Balances[i].Account, posted.Balances[i].Account);
        EXPECT_EQ(unposted.Balances[i].GLYear, posted.Balances[i].GLYear);
        EXPECT_EQ(unposted.Balances[i].GLPeriod, posted.Balances[i].GLPeriod);
        EXPECT_EQ(unposted.Balances[i].Amount, -posted.Balances[i].Amount);
    }
    ASSERT_EQ(unposted.History.size(), 4u);
    EXPECT_EQ(unposted.History[0], (HistoryRow{A, 2017, 12, "JV", Money::FromWhole(-100), false}));
    EXPECT_EQ(unposted.History[1], (HistoryRow{A, 2018, 1, "JVR", Money::FromWhole(100), false}));
}

} // namespace
} // namespace corvane::ledger
