#include "banking/currencies/CurrencyConversion.h"
#include "banking/currencies/ExchangeRate.h"
#include "core/Exception.h"

#include <gtest/gtest.h>

#include <random>

using namespace corvane;
using namespace corvane::banking;

namespace {

Money M(const char* text) {
    return Money::Parse(text).value();
}

ledger::AccountKey Account(std::int64_t id) {
    ledger::AccountKey key;
    key.GLAccountID = id;
    return key;
}

Money Sum(const std::vector<ledger::VoucherLine>& lines) {
    Money sum;
    for (const auto& line : lines)
        sum += line.GLAmount;
    return sum;
}

} // namespace

TEST(ExchangeRate, ZeroAndOneLeaveEveryDecimalOfTheAmountAlone) {
    for (double stored : {0.0, 1.0}) {
        ExchangeRate rate = ExchangeRate::FromStored(stored);
        EXPECT_FALSE(rate.Converts()) << stored;
        // A converting rate would round these to the cent.
        EXPECT_EQ(rate.ToHome(M("10.0051")), M("10.0051")) << stored;
        EXPECT_EQ(rate.ToHome(M("-0.0049")), M("-0.0049")) << stored;
    }
    EXPECT_TRUE(ExchangeRate::FromStored(1.0001).Converts());
    EXPECT_TRUE(ExchangeRate::FromStored(0.99).Converts());
}

TEST(ExchangeRate, RoundsToTheCentHalfAwayFromZeroInBothSigns) {
    const ExchangeRate rate = ExchangeRate::FromStored(1.5);
    EXPECT_EQ(rate.ToHome(M("0.01")), M("0.02"));   // 0.015
    EXPECT_EQ(rate.ToHome(M("-0.01")), M("-0.02")); // -0.015
    EXPECT_EQ(rate.ToHome(M("0.0099")), M("0.01")); // 0.01485
    EXPECT_EQ(rate.ToHome(M("-0.0099")), M("-0.01"));
    EXPECT_EQ(ExchangeRate::FromStored(1.4).ToHome(M("0.01")), M("0.01")); // 0.014
    EXPECT_EQ(ExchangeRate::FromStored(1.25).ToHome(M("100.00")), M("125.00"));
    // 33.33 x 1.5 is 49.995 exactly; in floating point it lands a hair below the half.
    EXPECT_EQ(rate.ToHome(M("33.33")), M("50.00"));
    EXPECT_EQ(rate.ToHome(M("-33.33")), M("-50.00"));
}

TEST(ExchangeRate, RoundsAsTheMoneyRoutineDoesFirstToSevenPlacesOfACent) {
    // 1.00 x 0.0049999999 is 0.49999999 of a cent: seven places make it the half, which goes
    // up; 0.4999999 is already at seven places and stays below it.
    EXPECT_EQ(ExchangeRate::FromStored(0.0049999999).ToHome(M("1.00")), M("0.01"));
    EXPECT_EQ(ExchangeRate::FromStored(0.0049999999).ToHome(M("-1.00")), M("-0.01"));
    EXPECT_EQ(ExchangeRate::FromStored(0.004999999).ToHome(M("1.00")), M("0.00"));
    EXPECT_EQ(ExchangeRate::FromStored(0.004999999).ToHome(M("-1.00")), M("0.00"));
}

TEST(ExchangeRate, StoredFloatIsReadOnceToTwelvePlaces) {
    EXPECT_EQ(ExchangeRate::FromStored(1.1).Scaled(), 1'100'000'000'000);
    EXPECT_EQ(ExchangeRate::FromStored(0.7512).Scaled(), 751'200'000'000);
    EXPECT_EQ(ExchangeRate::FromStored(0.0000123456789).Scaled(), 12'345'679);
    EXPECT_EQ(ExchangeRate::FromStored(15000.25).Scaled(), 15'000'250'000'000'000);
    EXPECT_THROW(ExchangeRate::FromStored(1e7), Exception);
}

TEST(ExchangeRate, AgreesWithTheMoneyProductOnOrdinaryAmounts) {
    // The program's money product in floating point is right wherever a double holds the
    // figures; there the exact conversion must give the same cents.
    for (double stored : {0.5, 0.75, 1.1, 1.25, 1.3333, 0.0001234, 125.5, 0.987654, 2.0}) {
        const ExchangeRate rate = ExchangeRate::FromStored(stored);
        for (std::int64_t units = -2'000'000; units <= 2'000'000; units += 1237) {
            const Money amount = Money::FromUnits(units);
            ASSERT_EQ(rate.ToHome(amount), amount.TimesRounded(stored))
                << amount.ToString() << " at " << stored;
        }
    }
}

TEST(ExchangeRate, LargeAmountsConvertExactly) {
    const ExchangeRate rate = ExchangeRate::FromStored(1.5);
    // Beyond what a double holds to the cent: ten thousand billion and a cent, times 1.5, is
    // 15 000 000 000 000.015, which is a half cent.
    EXPECT_EQ(rate.ToHome(M("10000000000000.01")), M("15000000000000.02"));
    EXPECT_EQ(rate.ToHome(M("-10000000000000.01")), M("-15000000000000.02"));
    // 12 345 678 901 234.5675 x 1.5 = 18 518 518 351 851.85125
    EXPECT_EQ(rate.ToHome(M("12345678901234.5675")), M("18518518351851.85"));
    EXPECT_EQ(ExchangeRate::FromStored(0.000001).ToHome(M("900000000000000")), M("900000000"));
    EXPECT_THROW(ExchangeRate::FromStored(1000000).ToHome(M("900000000000000")), Exception);
}

TEST(ConvertedVoucherLines, PayablesInvoiceCarriesTheForeignAmountOnTheControlLine) {
    const DocumentLine lines[] = {
        {1, Account(50), M("100.00"), LineCurrency::Converted},
        {2, Account(20), M("-100.00"), LineCurrency::AsIs},
    };
    auto out = ConvertedVoucherLines(lines, ExchangeRate::FromStored(1.25), 90);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_EQ(out[0].GLAmount, M("125.00"));
    EXPECT_EQ(out[1].GLAmount, M("-100.00"));
    EXPECT_EQ(out[1].Account, Account(20));
    EXPECT_EQ(out[2].Seq, 3);
    EXPECT_EQ(out[2].Account, Account(90));
    EXPECT_EQ(out[2].GLAmount, M("-25.00"));
    EXPECT_EQ(DebitTotal(out), M("125.00"));
    EXPECT_EQ(ExchangeDifference(lines, ExchangeRate::FromStored(1.25)), M("25.00"));

    // At par the voucher is the document.
    auto atPar = ConvertedVoucherLines(lines, ExchangeRate::FromStored(0), 90);
    ASSERT_EQ(atPar.size(), 2u);
    EXPECT_EQ(atPar[0].GLAmount, M("100.00"));
    EXPECT_EQ(DebitTotal(atPar), M("100.00"));
}

TEST(ConvertedVoucherLines, ReceivablesAndDiscountsTakeTheOppositeSign) {
    // An invoice: sales are credits, so a stronger currency gives a credit to sales and a debit
    // to the exchange account.
    const DocumentLine invoice[] = {
        {1, Account(40), M("-100.00"), LineCurrency::Converted},
        {2, Account(12), M("100.00"), LineCurrency::AsIs},
    };
    auto out = ConvertedVoucherLines(invoice, ExchangeRate::FromStored(1.25), 90);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_EQ(out[0].GLAmount, M("-125.00"));
    EXPECT_EQ(out[2].GLAmount, M("25.00"));

    // A cheque: only the discount converts, and the exchange line takes an explicit place.
    const DocumentLine cheque[] = {
        {1, Account(20), M("100.00"), LineCurrency::AsIs},
        {2, Account(10), M("-98.00"), LineCurrency::AsIs},
        {3, Account(60), M("-2.00"), LineCurrency::Converted},
    };
    out = ConvertedVoucherLines(cheque, ExchangeRate::FromStored(1.25), 90, 7);
    ASSERT_EQ(out.size(), 4u);
    EXPECT_EQ(out[2].GLAmount, M("-2.50"));
    EXPECT_EQ(out[3].Seq, 7);
    EXPECT_EQ(out[3].GLAmount, M("0.50"));
    EXPECT_EQ(DebitTotal(out), M("100.50"));
}

TEST(ConvertedVoucherLines, EachLineRoundsOnItsOwnAndTheExchangeLineTakesUpTheRest) {
    const DocumentLine lines[] = {
        {1, Account(50), M("0.01"), LineCurrency::Converted},
        {2, Account(51), M("0.01"), LineCurrency::Converted},
        {3, Account(20), M("-0.02"), LineCurrency::AsIs},
    };
    auto out = ConvertedVoucherLines(lines, ExchangeRate::FromStored(1.5), 90);
    ASSERT_EQ(out.size(), 4u);
    EXPECT_EQ(out[0].GLAmount, M("0.02"));
    EXPECT_EQ(out[1].GLAmount, M("0.02"));
    EXPECT_EQ(out[3].GLAmount, M("-0.02"));
    EXPECT_EQ(Sum(out), Money());
}

TEST(ConvertedVoucherLines, NoDifferenceNoLineAndAMissingAccountStillGetsTheLine) {
    // 2.00 at 0.5 is exactly 1.00 less, and -2.00 gives it back: the differences cancel.
    const DocumentLine cancelling[] = {
        {1, Account(50), M("2.00"), LineCurrency::Converted},
        {2, Account(51), M("-2.00"), LineCurrency::Converted},
    };
    EXPECT_EQ(ConvertedVoucherLines(cancelling, ExchangeRate::FromStored(0.5), 90).size(), 2u);

    const DocumentLine lines[] = {
        {4, Account(50), M("10.00"), LineCurrency::Converted},
        {2, Account(20), M("-10.00"), LineCurrency::AsIs},
    };
    auto out = ConvertedVoucherLines(lines, ExchangeRate::FromStored(2), std::nullopt);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_EQ(out[2].Seq, 5); // past the highest, not the last
    EXPECT_FALSE(out[2].Account.GLAccountID.has_value());
    EXPECT_EQ(out[2].GLAmount, M("-10.00"));
}

TEST(ConvertedVoucherLines, EveryBalancedDocumentGivesABalancedVoucher) {
    std::mt19937_64 random(4711);
    std::uniform_int_distribution<std::int64_t> amount(-5'000'000'000, 5'000'000'000);
    std::uniform_int_distribution<int> lineCount(1, 9);
    for (double stored : {0.0, 1.0, 0.73, 1.3333, 1.5, 0.0079, 143.21}) {
        const ExchangeRate rate = ExchangeRate::FromStored(stored);
        for (int document = 0; document < 300; ++document) {
            std::vector<DocumentLine> lines;
            Money total;
            const int count = lineCount(random);
            for (int i = 1; i <= count; ++i) {
                Money line = Money::FromUnits(amount(random));
                lines.push_back({i, Account(50 + i), line, LineCurrency::Converted});
                total += line;
            }
            lines.push_back({count + 1, Account(20), -total, LineCurrency::AsIs});
            auto out = ConvertedVoucherLines(lines, rate, 90);
            ASSERT_EQ(Sum(out), Money()) << stored << " document " << document;
            ASSERT_EQ(out.size(),
                      lines.size() + (ExchangeDifference(lines, rate).IsZero() ? 0 : 1));
        }
    }
}
