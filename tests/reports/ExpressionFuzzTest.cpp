#include "reports/engine/Expression.h"
#include "reports/engine/ExpressionError.h"
#include "support/FuzzText.h"

#include "core/ExpressionDepth.h"

#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

using reports::Expression;
using reports::ExpressionError;

reports::FieldResolver NoFields() {
    return [](std::string_view, std::string_view) -> store::Field* { return nullptr; };
}

// The message of what reading and computing the expression raised; "" when both worked.
std::string Outcome(const std::string& text) {
    try {
        Expression e(text, NoFields());
        e.Accumulate();
        e.Evaluate();
    } catch (const ExpressionError& e) {
        return e.what();
    } catch (const std::exception& e) {
        ADD_FAILURE() << "not an expression error: " << e.what()
                      << "\n  for: " << text.substr(0, 200);
        return e.what();
    }
    return "";
}

TEST(ExpressionFuzz, DeepExpressionsAreRefusedWithAMessage) {
    std::string chain = "1";
    for (int i = 0; i < 8000; ++i)
        chain += "+1";
    EXPECT_NE(Outcome(chain).find(ExpressionTooDeep), std::string::npos);
    EXPECT_NE(
        Outcome(std::string(10000, '(') + "1" + std::string(10000, ')')).find(ExpressionTooDeep),
        std::string::npos);
    EXPECT_NE(Outcome(std::string(10000, '-') + "1").find(ExpressionTooDeep), std::string::npos);
    EXPECT_EQ(Outcome(std::string(50, '(') + "1+2*3" + std::string(50, ')')), "");
    EXPECT_NE(Outcome("99999999999999999999999").find("out of range"), std::string::npos);
}

TEST(ExpressionFuzz, RandomExpressionsAreReadOrRefusedNeverCrash) {
    FuzzText fuzz(20172, {"1",        "2.5", "'a'", "\"b\"", "SUM(", "COUNT", "MAX(",  "MIN(",
                          "AVERAGE(", "AND", "OR",  "NOT",   "TRUE", "FALSE", "+",     "-",
                          "*",        "/",   "=",   "<>",    "(",    ")",     "Field", "T.Field"});
    const int inputs = FuzzInputs(3000);
    int accepted = 0;
    for (int i = 0; i < inputs; ++i)
        if (Outcome(fuzz.Next()).empty()) ++accepted;
    EXPECT_GT(accepted, 0);
}

} // namespace
} // namespace corvane::testing
