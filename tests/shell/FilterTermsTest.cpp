#include "shell/patterns/FilterTerms.h"

#include <gtest/gtest.h>

using namespace corvane::shell;

TEST(LikePattern, PlainTextMeansBeginsWithAndIsUpperCased) {
    EXPECT_EQ(LikePatternOf("ca"), "CA%");
    EXPECT_EQ(LikePatternOf("ca%"), "CA%") << "no second % when the pattern ends with one";
}

TEST(LikePattern, LeadingTrailingAndInnerStarsBecomePercent) {
    EXPECT_EQ(LikePatternOf("*ca"), "%CA%");
    EXPECT_EQ(LikePatternOf("ca*"), "CA%");
    EXPECT_EQ(LikePatternOf("a*b"), "A%B%");
    EXPECT_EQ(LikePatternOf("*"), "%");
    EXPECT_EQ(LikePatternOf(""), "%");
}

TEST(LikePattern, OnlyThreeInnerStarsAreTurned) {
    EXPECT_EQ(LikePatternOf("a*b*c*d*e"), "A%B%C%D*E%");
    EXPECT_EQ(LikePatternOf("*a*b*c*d*"), "%A%B%C%D%");
    EXPECT_EQ(LikePatternOf("*a*b*c*d*e*"), "%A%B%C%D*E%");
}

TEST(FilterTerms, EachKindOfCriterionGivesItsParenthesisedTerm) {
    EXPECT_EQ(LookupTerm("CurrencyID", 3), "(CurrencyID = 3)");
    EXPECT_EQ(YesNoTerm("Suspended", true), "(Suspended = true)");
    EXPECT_EQ(YesNoTerm("Suspended", false), "(Suspended <> true)");
    EXPECT_EQ(TextTerm("Country", "*can"), "(UPPER(Country) LIKE '%CAN%')");
}

TEST(FilterTerms, QuotesInTypedTextAreDoubled) {
    EXPECT_EQ(TextTerm("UserName", "o'brien"), "(UPPER(UserName) LIKE 'O''BRIEN%')");
    EXPECT_EQ(QuoteFilterText("''"), "''''''");
}

TEST(FilterTerms, TermsAreJoinedWithAnd) {
    EXPECT_EQ(JoinTerms({}), "");
    EXPECT_EQ(JoinTerms({"(A = 1)"}), "(A = 1)");
    EXPECT_EQ(JoinTerms({"(A = 1)", "(B <> true)", "(C = 2)"}),
              "(A = 1) AND (B <> true) AND (C = 2)");
}
