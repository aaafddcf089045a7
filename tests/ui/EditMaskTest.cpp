#include "ui/EditMask.h"

#include <gtest/gtest.h>

using corvane::ui::EditMask;

namespace {

TEST(EditMask, TypesLiteralsByItselfAndRefusesWhatDoesNotFit) {
    EditMask phone("!(999) 000-0000;1;_");
    auto text = phone.Apply("6135551234");
    ASSERT_TRUE(text);
    EXPECT_EQ(*text, "(613) 555-1234");
    // Typing the literal itself is accepted too.
    EXPECT_EQ(phone.Apply("(613) 555-1234"), "(613) 555-1234");
    EXPECT_EQ(phone.Apply("61a"), std::nullopt);
    EXPECT_EQ(phone.Apply("61355512345"), std::nullopt) << "past the end of the mask";
}

TEST(EditMask, ConvertsCaseAndKnowsWhenRequiredPositionsAreFilled) {
    EditMask postal(">L0L 0L0");
    EXPECT_EQ(postal.Apply("k1a0b1"), "K1A 0B1");
    EXPECT_FALSE(postal.Complete("K1A 0"));
    EXPECT_TRUE(postal.Complete("K1A 0B1"));
    EXPECT_TRUE(postal.Complete("")) << "an empty text is no value, not a wrong one";

    EditMask optional("000-99");
    EXPECT_TRUE(optional.Complete("123-"));
    EXPECT_FALSE(optional.Complete("12"));
    EXPECT_EQ(EditMask("\\L00").Apply("12"), "L12") << "an escaped mask character is a literal";
}

} // namespace
