#include "store/ValueConversion.h"

#include "store/DataSet.h"
#include "store/EngineError.h"
#include "store/Field.h"
#include "store/FilterExpression.h"
#include "store/Table.h"
#include "support/CompanyFixture.h"

#include <cmath>
#include <limits>

using namespace corvane;
using namespace corvane::store;

namespace {

TEST(ValueConversion, NumbersAreReadTheSameWhateverTheLocale) {
    EXPECT_EQ(ParseNumber("12.5"), 12.5);
    EXPECT_EQ(ParseNumber(" +0.25 "), 0.25);
    EXPECT_EQ(ParseNumber("-1e3"), -1000.0);
    for (const char* bad : {"", " ", "12,5", "1.2.3", "12x", "inf", "nan", "1e999", "0x10"})
        EXPECT_FALSE(ParseNumber(bad)) << bad;
    EXPECT_EQ(ParseInteger(" +42 "), 42);
    EXPECT_EQ(ParseInteger("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    for (const char* bad : {"", "4 2", "42.0", "9223372036854775808", "--1"})
        EXPECT_FALSE(ParseInteger(bad)) << bad;
}

TEST(ValueConversion, FloatsBecomeIntegersOnlyWhenTheyFit) {
    EXPECT_EQ(WholeNumber(7.0), 7);
    EXPECT_EQ(WholeNumber(-9223372036854775808.0), std::numeric_limits<std::int64_t>::min());
    for (double bad :
         {2.5, 9223372036854775808.0, -9.3e18, 1e300, std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()})
        EXPECT_FALSE(WholeNumber(bad)) << bad;
    EXPECT_EQ(RoundedInteger(2.5), 3);
    EXPECT_EQ(RoundedInteger(-2.5), -3);
    EXPECT_EQ(RoundedInteger(2.4999), 2);
    EXPECT_FALSE(RoundedInteger(9.3e18));
    EXPECT_FALSE(RoundedInteger(std::numeric_limits<double>::quiet_NaN()));
}

class FieldConversion : public corvane::testing::CompanyTest {};

// A field and a filter literal read the same text alike: what one takes the other takes, and
// what one refuses the other refuses.
TEST_F(FieldConversion, FieldsAndFiltersAgreeOnBooleansAndNumbers) {
    Table t(db_, "Currency");
    t.Open();
    t.Append();
    Field& rate = t.FieldByName("ExchangeRate");
    Field& ap = t.FieldByName("APGLAccountID");
    for (const char* text : {"1.25", " 1.25", "+1.25", "1.25e0"}) {
        rate.SetAsString(text);
        EXPECT_EQ(rate.AsFloat(), 1.25) << text;
        EXPECT_EQ(CoerceToField(Value(text), FieldType::Float), Value(1.25)) << text;
    }
    for (const char* bad : {"1,25", "inf", "abc"}) {
        EXPECT_THROW(rate.SetAsString(bad), EngineError) << bad;
        EXPECT_THROW(CoerceToField(Value(bad), FieldType::Float), EngineError) << bad;
    }
    // A float that is no whole number, or too large for any integer, is refused, not cut.
    for (double bad : {2.5, 1e30, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(ap.SetValue(Value(bad)), EngineError) << bad;
        EXPECT_THROW(CoerceToField(Value(bad), FieldType::Integer), EngineError) << bad;
    }
    ap.SetValue(Value(7.0));
    EXPECT_EQ(ap.AsInteger(), 7);

    TableDef def{"Flags", {{"Id", FieldType::Integer}, {"Done", FieldType::Boolean}}, {}};
    CreateTable(def);
    Table flags(db_, "Flags");
    flags.Open();
    flags.Append();
    Field& done = flags.FieldByName("Done");
    for (auto [text, value] : {std::pair{"Yes", true}, std::pair{"t", true}, std::pair{"1", true},
                               std::pair{" false ", false}, std::pair{"N", false}}) {
        done.SetAsString(text);
        EXPECT_EQ(done.AsBoolean(), value) << text;
        EXPECT_EQ(CoerceToField(Value(text), FieldType::Boolean), Value(value)) << text;
    }
    EXPECT_THROW(done.SetAsString("maybe"), EngineError);

    // Reading a float field as an integer rounds half away from zero, and refuses what does not
    // fit rather than making up a number.
    rate.SetValue(Value(2.5));
    EXPECT_EQ(rate.AsInteger(), 3);
    rate.SetValue(Value(-2.5));
    EXPECT_EQ(rate.AsInteger(), -3);
    rate.SetValue(Value(1e300));
    EXPECT_THROW(rate.AsInteger(), EngineError);
}

} // namespace
