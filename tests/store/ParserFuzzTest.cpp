#include "support/CompanyFixture.h"
#include "support/FuzzText.h"

#include "core/ExpressionDepth.h"
#include "store/EngineError.h"
#include "store/FilterExpression.h"
#include "store/Query.h"
#include "store/sql/Connection.h"

#include <string>

namespace corvane::testing {
namespace {

using store::EngineError;

// The message of what the input raised; "" when it was accepted. Anything but the store's own
// error fails the test, naming the input.
template <typename Run> std::string Outcome(const std::string& input, Run run) {
    try {
        run(input);
    } catch (const EngineError& e) {
        return e.what();
    } catch (const std::exception& e) {
        ADD_FAILURE() << "not an engine error: " << e.what() << "\n  for: " << input.substr(0, 200);
        return e.what();
    }
    return "";
}

class ParserFuzzTest : public CompanyTest {
protected:
    void Filter(const std::string& text) {
        const auto fragment =
            store::CompileFilter(text, db_.TableDefinition(store::Database::MainSchema, "JVDet"));
        if (fragment.Sql.empty()) return;
        store::Statement s(db_.Conn(), "SELECT count(*) FROM main.JVDet WHERE " + fragment.Sql);
        s.BindAll(fragment.Params);
        s.Step();
    }
    void Sql(const std::string& text) {
        store::Query q(db_, text);
        q.Open();
    }
};

TEST_F(ParserFuzzTest, DeepInputIsRefusedWithAMessage) {
    const std::string parens = std::string(10000, '(') + "1" + std::string(10000, ')');
    std::string chain = "1";
    for (int i = 0; i < 8000; ++i)
        chain += "+1";
    EXPECT_NE(
        Outcome("SELECT " + parens + " FROM JV", [&](auto& s) { Sql(s); }).find(ExpressionTooDeep),
        std::string::npos);
    EXPECT_NE(
        Outcome("SELECT " + chain + " FROM JV", [&](auto& s) { Sql(s); }).find(ExpressionTooDeep),
        std::string::npos);
    EXPECT_NE(Outcome("GLAmount = " + parens, [&](auto& s) { Filter(s); }).find(ExpressionTooDeep),
              std::string::npos);
    EXPECT_NE(Outcome("GLAmount = " + chain, [&](auto& s) { Filter(s); }).find(ExpressionTooDeep),
              std::string::npos);
    std::string nested = "SELECT 1 FROM JV";
    for (int i = 0; i < 2000; ++i)
        nested = "SELECT * FROM (" + nested + ") t";
    EXPECT_NE(Outcome(nested, [&](auto& s) { Sql(s); }).find(ExpressionTooDeep), std::string::npos);
    // Nesting well inside the limit still works.
    EXPECT_EQ(Outcome("SELECT " + std::string(100, '(') + "1" + std::string(100, ')') + " FROM JV",
                      [&](auto& s) { Sql(s); }),
              "");
    EXPECT_EQ(Outcome("(((GLAmount > 1))) and not not Seq = 2", [&](auto& s) { Filter(s); }), "");
}

TEST_F(ParserFuzzTest, RandomFiltersAreReadOrRefusedNeverCrash) {
    FuzzText fuzz(20171, {"GLAmount",     "Seq",  "JVID",    "GLAccountID", "and",
                          "or",           "not",  "null",    "true",        "false",
                          "like",         "in",   "is",      "upper",       "lower",
                          "trim",         "'x%'", "\"Seq\"", "[GLAmount]",  "1",
                          "'2017-01-31'", "=",    "<=",      "(",           ")"});
    const int inputs = FuzzInputs(3000);
    int accepted = 0;
    for (int i = 0; i < inputs; ++i)
        if (Outcome(fuzz.Next(), [&](auto& s) { Filter(s); }).empty()) ++accepted;
    EXPECT_GT(accepted, 0);
}

TEST_F(ParserFuzzTest, RandomSqlIsReadOrRefusedNeverCrash) {
    FuzzText fuzz(20178, {"SELECT",
                          "SELECT",
                          "FROM",
                          "JV",
                          "JVDet",
                          "GLAccnt",
                          "WHERE",
                          "AND",
                          "OR",
                          "NOT",
                          "IN",
                          "(SELECT",
                          "JVID",
                          "GLAmount",
                          "*",
                          "COUNT(*)",
                          "SUM(GLAmount)",
                          "GROUP BY",
                          "ORDER BY",
                          "DESC",
                          "NOCASE",
                          "TOP",
                          "INNER JOIN",
                          "LEFT OUTER JOIN",
                          "ON",
                          "AS",
                          "IF(",
                          "THEN",
                          "ELSE",
                          "CAST(",
                          "AS INT",
                          "COALESCE(",
                          "UNION",
                          "BETWEEN",
                          "IS NULL",
                          "=",
                          ","});
    const int inputs = FuzzInputs(3000);
    int accepted = 0;
    for (int i = 0; i < inputs; ++i) {
        std::string text = fuzz.Next();
        // Most inputs start as a query would, so that the parser gets past the first word.
        if (i % 3) text = "SELECT " + text;
        if (Outcome(text, [&](auto& s) { Sql(s); }).empty()) ++accepted;
    }
    EXPECT_GT(accepted, 0);
}

} // namespace
} // namespace corvane::testing
