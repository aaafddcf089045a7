#include "core/Exception.h"
#include "ledger/inquiry/AccountLabel.h"
#include "ledger/inquiry/WholeNumber.h"

#include <gtest/gtest.h>

using namespace corvane;
using namespace corvane::ledger;

TEST(InquiryLabels, EmptyLevelsAheadOfASetOneKeepTheirPlace) {
    AccountLabelParts parts{"5100", "Rent", {}, {}};
    EXPECT_EQ(AccountNumberLabel(parts), "5100");
    EXPECT_EQ(AccountNameLabel(parts), "Rent");

    parts.SubNumbers[2] = "N";
    parts.SubNames[2] = "North";
    EXPECT_EQ(AccountNumberLabel(parts), "5100- - -N");
    EXPECT_EQ(AccountNameLabel(parts), "Rent - North");

    parts.SubNumbers[0] = "EAST";
    parts.SubNames[0] = "East";
    EXPECT_EQ(AccountNumberLabel(parts), "5100-EAST- -N");
    EXPECT_EQ(AccountNameLabel(parts), "Rent - East - North");

    // A trailing empty level leaves no mark behind.
    parts.SubNumbers[2].reset();
    parts.SubNames[2].reset();
    EXPECT_EQ(AccountNumberLabel(parts), "5100-EAST");
}

TEST(InquiryLabels, OnlyWholeNumbersPassAsYears) {
    EXPECT_EQ(WholeNumberOf("2017"), 2017);
    EXPECT_EQ(WholeNumberOf(" 1997 "), 1997);
    EXPECT_EQ(WholeNumberOf("+3"), 3);
    for (const char* bad : {"", "  ", "20x7", "2017)", "1 OR 1=1", "+"}) {
        try {
            WholeNumberOf(bad);
            ADD_FAILURE() << bad;
        } catch (const Exception& e) {
            EXPECT_EQ(std::string(e.what()),
                      "'" + std::string(bad) + "' is not a valid integer value");
        }
    }
}
