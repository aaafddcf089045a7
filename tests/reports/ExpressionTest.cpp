#include "reports/engine/Expression.h"
#include "EngineTestTables.h"
#include "reports/engine/ExpressionError.h"

#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

using reports::Expression;
using reports::ExpressionError;
using store::Value;

// Expressions with no fields at all.
reports::FieldResolver NoFields() {
    return [](std::string_view, std::string_view) -> store::Field* { return nullptr; };
}

Value Eval(const std::string& text) {
    return Expression(text, NoFields()).Evaluate();
}

std::string ErrorOf(const std::string& text, const reports::FieldResolver& resolver = NoFields()) {
    try {
        Expression e(text, resolver);
        e.Evaluate();
    } catch (const ExpressionError& error) {
        return error.what();
    }
    return "no error";
}

TEST(Expression, ArithmeticFollowsPrecedenceAndKeepsKinds) {
    EXPECT_EQ(Eval("2 + 3 * 4"), Value(std::int64_t{14}));
    EXPECT_EQ(Eval("(2 + 3) * 4"), Value(std::int64_t{20}));
    EXPECT_EQ(Eval("10 - 4 - 3"), Value(std::int64_t{3}));
    EXPECT_EQ(Eval("10 / 4"), Value(2.5));
    EXPECT_EQ(Eval("-2 * -3"), Value(std::int64_t{6}));
    EXPECT_EQ(Eval("1.5 + 1"), Value(2.5));
    EXPECT_EQ(Eval("'Page' + ' ' + \"one\""), Value("Page one"));
    EXPECT_EQ(Eval("'it''s'"), Value("it's"));
    // No comments in an expression: two minus signs are two minus signs.
    EXPECT_EQ(Eval("2--1"), Value(std::int64_t{3}));
}

TEST(Expression, ComparisonsAndLogic) {
    EXPECT_EQ(Eval("1 < 2 AND 2 <= 2 AND 3 > 2 AND 3 >= 4"), Value(false));
    EXPECT_EQ(Eval("1 = 1 OR 1 <> 1"), Value(true));
    EXPECT_EQ(Eval("NOT 1 = 2"), Value(true));
    EXPECT_EQ(Eval("not (1 = 1) or false"), Value(false));
    EXPECT_EQ(Eval("'abc' < 'abd'"), Value(true));
    // AND binds tighter than OR.
    EXPECT_EQ(Eval("TRUE OR FALSE AND FALSE"), Value(true));
}

TEST(Expression, BadTextGivesAClearError) {
    EXPECT_EQ(ErrorOf("SUM(Amount"),
              "Error in expression 'SUM(Amount': expected ')' but found end of expression at the "
              "end");
    EXPECT_EQ(ErrorOf("SUM(Amount)"), "Error in expression 'SUM(Amount)': unknown field 'Amount'");
    EXPECT_EQ(ErrorOf("(1 + 2"),
              "Error in expression '(1 + 2': expected ')' but found end of expression at the end");
    EXPECT_EQ(ErrorOf("1 +"),
              "Error in expression '1 +': expected an expression but found end of expression at "
              "the end");
    EXPECT_EQ(ErrorOf("1 2"), "Error in expression '1 2': unexpected '2' at position 3");
    EXPECT_EQ(ErrorOf("'open"),
              "Error in expression ''open': unterminated string at position 1");
    EXPECT_EQ(ErrorOf("FOO(1)"),
              "Error in expression 'FOO(1)': unknown function 'FOO' at position 1");
    EXPECT_EQ(ErrorOf("1 # 2"),
              "Error in expression '1 # 2': unexpected character '#' at position 3");
    // The store's SQL reads more than a report computes: what it cannot is refused by place.
    EXPECT_EQ(ErrorOf("1 || 2"),
              "Error in expression '1 || 2': this operator cannot stand in a report expression at "
              "position 3");
    EXPECT_EQ(ErrorOf("CASE WHEN 1 = 1 THEN 2 END"),
              "Error in expression 'CASE WHEN 1 = 1 THEN 2 END': this cannot stand in a report "
              "expression at position 1");
    EXPECT_EQ(ErrorOf("COUNT(1)"),
              "Error in expression 'COUNT(1)': COUNT takes no value at position 1");
    EXPECT_EQ(ErrorOf("SUM(SUM(1))"),
              "Error in expression 'SUM(SUM(1))': an aggregate cannot hold another at position 5");
    EXPECT_EQ(ErrorOf("'a' * 2"), "Error in expression ''a' * 2': Cannot multiply text and number");
    EXPECT_EQ(ErrorOf("1 / 0"), "Error in expression '1 / 0': Division by zero");
}

class ExpressionOnRows : public SalesReportTest {
protected:
    void SetUp() override {
        SalesReportTest::SetUp();
        sales_.Name = "tblSales";
    }

    reports::FieldResolver Resolver() {
        return [this](std::string_view qualifier, std::string_view name) -> store::Field* {
            if (!qualifier.empty() && qualifier != "Sales" && qualifier != "tblSales")
                return nullptr;
            return sales_.FindField(name);
        };
    }

    // Hands each row of the table to the expression's aggregates.
    void AccumulateAll(Expression& e) {
        for (sales_.First(); !sales_.Eof(); sales_.Next())
            e.Accumulate();
    }

    store::Table sales_{db_, "Sales"};
};

TEST_F(ExpressionOnRows, FieldsReadTheCurrentRowAndMoneyStaysMoney) {
    AddSales(3);
    sales_.Open();
    sales_.Next(); // row 1: 1.01, Qty 2, Price 1.25
    EXPECT_EQ(Expression("Amount * 2", Resolver()).Evaluate(), Value(Money::FromCents(202)));
    EXPECT_EQ(Expression("Amount * Qty", Resolver()).Evaluate(), Value(Money::FromCents(202)));
    EXPECT_EQ(Expression("Amount + 1", Resolver()).Evaluate(), Value(Money::FromCents(201)));
    // A fraction rounds the amount to the nearest ten-thousandth.
    EXPECT_EQ(Expression("Amount * Price", Resolver()).Evaluate(), Value(Money::FromUnits(12625)));
    EXPECT_EQ(Expression("Sales.Customer + '/' + tblSales.Region", Resolver()).Evaluate(),
              Value("Customer 1/R0"));
    EXPECT_EQ(Expression("qty = 2", Resolver()).Evaluate(), Value(true));
    // A null amount counts as nothing.
    sales_.Edit();
    sales_.FieldByName("Amount").Clear();
    sales_.Post();
    EXPECT_EQ(Expression("Amount + 1", Resolver()).Evaluate(), Value(Money::FromWhole(1)));
    EXPECT_EQ(ErrorOf("Sales.Nothing", Resolver()),
              "Error in expression 'Sales.Nothing': unknown field 'Sales.Nothing'");
    EXPECT_EQ(ErrorOf("Other.Amount", Resolver()),
              "Error in expression 'Other.Amount': unknown field 'Other.Amount'");
}

TEST_F(ExpressionOnRows, AggregatesCountOnlyTheRowsHandedToThemUntilReset) {
    AddSales(5); // amounts 0.00, 1.01, 2.02, 3.03, 4.04; Qty 1..5
    sales_.Open();
    Expression sum("SUM(Amount)", Resolver());
    Expression count("COUNT", Resolver());
    Expression countCall("count()", Resolver());
    Expression max("MAX(Qty)", Resolver());
    Expression min("MIN(Customer)", Resolver());
    Expression average("AVERAGE(Amount)", Resolver());
    Expression mixed("SUM(Amount) / COUNT + MAX(Qty)", Resolver());
    EXPECT_TRUE(sum.HasAggregates());
    EXPECT_FALSE(Expression("Amount", Resolver()).HasAggregates());
    // Before any row: nothing summed, nothing counted, no extreme.
    EXPECT_EQ(sum.Evaluate(), Value(std::int64_t{0}));
    EXPECT_EQ(count.Evaluate(), Value(std::int64_t{0}));
    EXPECT_TRUE(max.Evaluate().IsNull());

    for (Expression* e : {&sum, &count, &countCall, &max, &min, &average, &mixed})
        AccumulateAll(*e);
    EXPECT_EQ(sum.Evaluate(), Value(Money::FromCents(1010)));
    EXPECT_EQ(count.Evaluate(), Value(std::int64_t{5}));
    EXPECT_EQ(countCall.Evaluate(), Value(std::int64_t{5}));
    EXPECT_EQ(max.Evaluate(), Value(std::int64_t{5}));
    EXPECT_EQ(min.Evaluate(), Value("Customer 0"));
    EXPECT_EQ(average.Evaluate(), Value(Money::FromCents(202)));
    EXPECT_EQ(mixed.Evaluate(), Value(Money::FromCents(702)));

    sum.Reset();
    count.Reset();
    EXPECT_EQ(sum.Evaluate(), Value(std::int64_t{0}));
    sales_.Last();
    sum.Accumulate();
    count.Accumulate();
    EXPECT_EQ(sum.Evaluate(), Value(Money::FromCents(404)));
    EXPECT_EQ(count.Evaluate(), Value(std::int64_t{1}));
}

TEST_F(ExpressionOnRows, MoneySumsAreExactWhereFloatingPointIsNot) {
    // A large amount and three ten-thousandths: a double holding the sum would lose them.
    const Money large = Money::FromWhole(400'000'000'000'000);
    AddSales(4, 10, [&](store::Table& t, int i) {
        t.FieldByName("Amount").SetAsMoney(i == 0 ? large : Money::FromUnits(1));
    });
    sales_.Open();
    Expression sum("SUM(Amount)", Resolver());
    AccumulateAll(sum);
    ASSERT_EQ(sum.Evaluate().kind(), Value::Kind::Money);
    EXPECT_EQ(sum.Evaluate().Money(), large + Money::FromUnits(3));
}

TEST_F(ExpressionOnRows, MoneyAverageRoundsHalfAwayFromZero) {
    // One and two ten-thousandths average to one and a half, which rounds away from zero.
    AddSales(2, 10, [](store::Table& t, int i) {
        t.FieldByName("Amount").SetAsMoney(Money::FromUnits(i == 0 ? 1 : 2));
    });
    sales_.Open();
    Expression average("AVERAGE(Amount)", Resolver());
    AccumulateAll(average);
    EXPECT_EQ(average.Evaluate(), Value(Money::FromUnits(2)));
    Expression negative("AVERAGE(-Amount)", Resolver());
    AccumulateAll(negative);
    EXPECT_EQ(negative.Evaluate(), Value(Money::FromUnits(-2)));
}

} // namespace
} // namespace corvane::testing
