#include "store/FilterExpression.h"
#include "store/EngineError.h"
#include "store/sql/Bind.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

using namespace corvane;
using namespace corvane::store;

namespace {

// A table stored the way the store keeps rows: money in ten-thousandths, dates as ISO text,
// booleans as 0/1, and nulls apart from '' and 0. Filters are judged by the rows they select.
class FilterExpression : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(sqlite3_open(":memory:", &db_), SQLITE_OK);
        Exec(R"(CREATE TABLE t ("Name" VARCHAR(30), "InvoiceNo" VARCHAR(10),
                  "Country" VARCHAR(20), "Completed" BOOLEAN, "Suspended" BOOLEAN,
                  "Amount" MONEY, "Qty" INTEGER, "Rate" FLOAT, "TransDate" DATE,
                  "CurrencyID" INTEGER, "Vendor Name" VARCHAR(30)))");
        Exec(R"(INSERT INTO t (rowid, Name, InvoiceNo, Country, Completed, Suspended, Amount, Qty,
                               Rate, TransDate, CurrencyID, "Vendor Name") VALUES
            (1, 'Acme', 'A100', 'Canada', 1, 0, 125000, 3, 1.5, '2017-03-01', 3, NULL),
            (2, 'acme', '', 'canada', 0, 1, 120000, 0, 0.0, '2017-02-28', 3, NULL),
            (3, NULL, NULL, 'USA', NULL, NULL, NULL, NULL, NULL, NULL, 1, NULL),
            (4, 'O''Brien', '12', 'Cameroon', 1, NULL, -50000, 12, 2.25, '2017-03-15', 3, NULL),
            (5, '', NULL, NULL, NULL, 0, 0, -1, NULL, '2016-12-31', NULL, 'Big Co'))");
        table_.Name = "t";
        table_.Fields = {
            {"Name", FieldType::String, 30},
            {"InvoiceNo", FieldType::String, 10},
            {"Country", FieldType::String, 20},
            {"Completed", FieldType::Boolean},
            {"Suspended", FieldType::Boolean},
            {"Amount", FieldType::Currency},
            {"Qty", FieldType::Integer},
            {"Rate", FieldType::Float},
            {"TransDate", FieldType::Date},
            {"CurrencyID", FieldType::Integer},
            {"Vendor Name", FieldType::String, 30},
        };
    }
    void TearDown() override { sqlite3_close(db_); }

    void Exec(const std::string& sql) {
        char* error = nullptr;
        ASSERT_EQ(sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &error), SQLITE_OK)
            << (error ? error : "");
    }

    std::vector<int> RowsFor(const SqlFragment& f) {
        const std::string sql =
            "SELECT rowid FROM t" + (f.Sql.empty() ? "" : " WHERE " + f.Sql) + " ORDER BY rowid";
        sqlite3_stmt* stmt = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(db_, sql.c_str(), -1, &stmt, nullptr), SQLITE_OK)
            << sqlite3_errmsg(db_) << " in " << sql;
        EXPECT_EQ(sqlite3_bind_parameter_count(stmt), static_cast<int>(f.Params.size()));
        for (std::size_t i = 0; i < f.Params.size(); ++i)
            BindValue(stmt, static_cast<int>(i + 1), f.Params[i]);
        std::vector<int> rows;
        while (sqlite3_step(stmt) == SQLITE_ROW)
            rows.push_back(sqlite3_column_int(stmt, 0));
        sqlite3_finalize(stmt);
        return rows;
    }

    std::vector<int> Rows(const std::string& filter) {
        return RowsFor(CompileFilter(filter, table_));
    }

    // The error a filter raises, as code and message; code 0 when it compiles.
    std::pair<int, std::string> ErrorOf(const std::string& filter) {
        try {
            CompileFilter(filter, table_);
        } catch (const EngineError& e) {
            return {e.ErrorCode(), e.what()};
        }
        return {0, ""};
    }

    sqlite3* db_ = nullptr;
    TableDef table_;
};

using R = std::vector<int>;

TEST_F(FilterExpression, NullIsItsOwnValueApartFromEmptyAndZero) {
    EXPECT_EQ(Rows("InvoiceNo = null"), (R{3, 5}));
    EXPECT_EQ(Rows("InvoiceNo <> null"), (R{1, 2, 4}));
    EXPECT_EQ(Rows("InvoiceNo = ''"), (R{2}));
    EXPECT_EQ(Rows("null = InvoiceNo"), (R{3, 5}));
    EXPECT_EQ(Rows("InvoiceNo is null"), (R{3, 5}));
    EXPECT_EQ(Rows("(InvoiceNo IS NOT NULL)"), (R{1, 2, 4}));
    EXPECT_EQ(Rows("Qty = 0"), (R{2}));
    EXPECT_EQ(Rows("Amount = 0"), (R{5}));
}

TEST_F(FilterExpression, BooleansAreTwoValuedTheWayTheFilterFormsAsk) {
    EXPECT_EQ(Rows("Completed = false"), (R{2}));
    EXPECT_EQ(Rows("Completed <> true"), (R{2, 3, 5}));
    EXPECT_EQ(Rows("not (Completed = true)"), (R{2, 3, 5}));
    EXPECT_EQ(Rows("Completed"), (R{1, 4}));
    EXPECT_EQ(Rows("NOT Completed"), (R{2, 3, 5}));
    EXPECT_EQ(Rows("not not Completed"), (R{1, 4}));
    EXPECT_EQ(Rows("(CurrencyID = 3) AND (Suspended <> true)"), (R{1, 4}));
    EXPECT_EQ(Rows("(CurrencyID = 3) AND (NOT Completed) AND (Suspended)"), (R{2}));
    EXPECT_EQ(Rows("true"), (R{1, 2, 3, 4, 5}));
    EXPECT_EQ(Rows("not true"), (R{}));
}

TEST_F(FilterExpression, NullSortsBelowEverythingInOrderComparisons) {
    EXPECT_EQ(Rows("Amount < 0"), (R{3, 4}));
    EXPECT_EQ(Rows("Amount <= -5"), (R{3, 4}));
    EXPECT_EQ(Rows("Amount > -5"), (R{1, 2, 5}));
    EXPECT_EQ(Rows("Amount >= 0"), (R{1, 2, 5}));
    EXPECT_EQ(Rows("not (Amount < 0)"), (R{1, 2, 5}));
    EXPECT_EQ(Rows("not (Amount > -5)"), (R{3, 4}));
    EXPECT_EQ(Rows("0 > Amount"), (R{3, 4}));
    EXPECT_EQ(Rows("Amount > null"), (R{1, 2, 4, 5}));
    EXPECT_EQ(Rows("Amount < null"), (R{}));

    // Two fields: row 3 has two nulls (neither is less), row 5 a null Rate below Qty -1.
    EXPECT_EQ(Rows("Rate < Qty"), (R{1, 4, 5}));
    EXPECT_EQ(Rows("Qty > Rate"), (R{1, 4, 5}));
    EXPECT_EQ(Rows("not (Rate < Qty)"), (R{2, 3}));
    EXPECT_EQ(Rows("Rate >= Qty"), (R{2, 3}));
    EXPECT_EQ(Rows("Rate = Qty"), (R{2, 3}));
    EXPECT_EQ(Rows("Rate <> Qty"), (R{1, 4, 5}));
    EXPECT_EQ(Rows("not (Qty <= Rate)"), (R{1, 4, 5}));
}

TEST_F(FilterExpression, MoneyLiteralsAreScaledToTenThousandths) {
    EXPECT_EQ(Rows("Amount = 12"), (R{2}));
    EXPECT_EQ(Rows("Amount = 12.5"), (R{1}));
    EXPECT_EQ(Rows("Amount = 12.50"), (R{1}));
    EXPECT_EQ(Rows("Amount > 12.25"), (R{1}));
    EXPECT_EQ(Rows("Amount = -5"), (R{4}));
    EXPECT_EQ(Rows("Amount + 5 = 17.5"), (R{1}));
    EXPECT_EQ(Rows("Amount - 0.5 = 12"), (R{1}));
    EXPECT_EQ(Rows("Amount * 2 = 25"), (R{1}));
    EXPECT_EQ(Rows("Amount / 2 = 6"), (R{2}));
    // An amount against an integer column compares in one scale: 12.50 > 3, 0 > -1.
    EXPECT_EQ(Rows("Amount > Qty"), (R{1, 2, 5}));
    EXPECT_EQ(Rows("Amount = Qty * 4 + 0.5"), (R{1, 3})); // row 3: null = null
    EXPECT_EQ(Rows("Amount = Qty + 1"), (R{3, 5}));

    SqlFragment f = CompileFilter("Amount = 12", table_);
    ASSERT_EQ(f.Params.size(), 1u);
    EXPECT_EQ(f.Params[0], Value(Money::FromUnits(120000)));
}

TEST_F(FilterExpression, QuotedLiteralsAgainstDatesAreDates) {
    EXPECT_EQ(Rows("TransDate = '2017-03-01'"), (R{1}));
    EXPECT_EQ(Rows("TransDate >= '2017-03-01'"), (R{1, 4}));
    EXPECT_EQ(Rows("TransDate < '2017-03-01'"), (R{2, 3, 5}));
    EXPECT_EQ(Rows("'2017-01-01' <= TransDate"), (R{1, 2, 4}));
    EXPECT_EQ(Rows("TransDate IN ('2017-02-28', '2016-12-31')"), (R{2, 5}));

    SqlFragment f = CompileFilter("TransDate = '2017-03-01'", table_);
    ASSERT_EQ(f.Params.size(), 1u);
    EXPECT_EQ(f.Params[0], Value(Date::FromYmd(2017, 3, 1)));

    auto [code, message] = ErrorOf("TransDate = '2017-02-30'");
    EXPECT_EQ(code, errInvalidValue);
    EXPECT_NE(message.find("'2017-02-30'"), std::string::npos) << message;
}

TEST_F(FilterExpression, TextComparesWithCaseUnlessUpperLowerOrLike) {
    EXPECT_EQ(Rows("Name = 'acme'"), (R{2}));
    EXPECT_EQ(Rows("UPPER(Name) = 'ACME'"), (R{1, 2}));
    EXPECT_EQ(Rows("lower(Name) = 'acme'"), (R{1, 2}));
    EXPECT_EQ(Rows("(UPPER(Country) LIKE 'CA%')"), (R{1, 2, 4}));
    EXPECT_EQ(Rows("(UPPER(Country) LIKE '%A%')"), (R{1, 2, 3, 4}));
    EXPECT_EQ(Rows("Country LIKE 'Ca_ada'"), (R{1, 2}));
    // A null Country does not match, so it is among those that do NOT LIKE.
    EXPECT_EQ(Rows("Country NOT LIKE 'ca%'"), (R{3, 5}));
    EXPECT_EQ(Rows("not (Country LIKE 'ca%')"), (R{3, 5}));
    EXPECT_EQ(Rows("TRIM(Name) = '' "), (R{5}));
    EXPECT_EQ(Rows("Name + 'x' = 'Acmex'"), (R{1}));
    EXPECT_EQ(Rows("Name < 'B'"), (R{1, 3, 5})); // null and '' sort first; 'a' > 'B'
    // A number against a text field compares as the text written.
    EXPECT_EQ(Rows("InvoiceNo = 12"), (R{4}));
}

TEST_F(FilterExpression, NumbersKeepTheirValueAgainstIntegerFields) {
    EXPECT_EQ(Rows("Qty > 2.5"), (R{1, 4}));
    EXPECT_EQ(Rows("Qty = -1"), (R{5}));
    EXPECT_EQ(Rows("Qty + 2 * 3 = 9"), (R{1}));
    EXPECT_EQ(Rows("(Qty + 2) * 3 = 15"), (R{1}));
    EXPECT_EQ(Rows("Qty / 2 = 1.5"), (R{1}));
    EXPECT_EQ(Rows("-Qty = 1"), (R{5}));
    EXPECT_EQ(Rows("Rate = 2.25"), (R{4}));

    auto [code, message] = ErrorOf("Qty = 'abc'");
    EXPECT_EQ(code, errInvalidValue);
    EXPECT_NE(message.find("'abc'"), std::string::npos) << message;
}

TEST_F(FilterExpression, InListsAreTwoValuedToo) {
    EXPECT_EQ(Rows("CurrencyID IN (1, 3)"), (R{1, 2, 3, 4}));
    EXPECT_EQ(Rows("CurrencyID NOT IN (1, 3)"), (R{5}));
    EXPECT_EQ(Rows("not (CurrencyID in (3))"), (R{3, 5}));
    EXPECT_EQ(Rows("Name IN ('Acme', null)"), (R{1, 3}));
    EXPECT_EQ(Rows("Name NOT IN ('Acme', null)"), (R{2, 4, 5}));
    EXPECT_EQ(Rows("Qty IN (Rate, 12)"), (R{2, 3, 4}));
}

TEST_F(FilterExpression, NotBindsTighterThanAndWhichBindsTighterThanOr) {
    // Read as (not C = true) or ((Qty = 0) and (CurrencyID = 1)).
    EXPECT_EQ(Rows("not Completed = true or Qty = 0 and CurrencyID = 1"), (R{2, 3, 5}));
    // Read as Qty = 12 or (Qty = 3 and CurrencyID = 1).
    EXPECT_EQ(Rows("Qty = 12 or Qty = 3 and CurrencyID = 1"), (R{4}));
    EXPECT_EQ(Rows("(Qty = 12 or Qty = 3) and CurrencyID = 3"), (R{1, 4}));
    EXPECT_EQ(Rows("not (Qty = 12 or Qty = 3) and CurrencyID = 3"), (R{2}));
    EXPECT_EQ(Rows("qty = 3 AnD completed = TRUE"), (R{1}));
}

TEST_F(FilterExpression, FieldNamesWithBlanksAreQuotedOrBracketed) {
    EXPECT_EQ(Rows("\"Vendor Name\" = 'Big Co'"), (R{5}));
    EXPECT_EQ(Rows("[vendor name] = 'Big Co'"), (R{5}));
    EXPECT_EQ(Rows("Name = \"Acme\""), (R{1})); // names no field, so it is text
}

// List forms filter tables of tens of thousands of rows: a field against a literal must stay a
// term that the field's index can serve, negated or not.
TEST_F(FilterExpression, FieldAgainstLiteralSearchesTheFieldsIndex) {
    Exec(R"(CREATE INDEX ixAmount ON t ("Amount"); CREATE INDEX ixName ON t ("Name");
            CREATE INDEX ixCurrency ON t ("CurrencyID"); CREATE INDEX ixDate ON t ("TransDate");
            CREATE INDEX ixInvoice ON t ("InvoiceNo"))");
    for (const char* filter :
         {"Amount > 12", "Amount <= 0", "not (Amount >= 0)", "Name = 'Acme'", "InvoiceNo = null",
          "CurrencyID IN (1, 3)", "TransDate >= '2017-03-01'",
          "(CurrencyID = 3) AND (Suspended <> true)", "not (TransDate <> '2017-03-01')"}) {
        SqlFragment f = CompileFilter(filter, table_);
        const std::string sql = "EXPLAIN QUERY PLAN SELECT rowid FROM t WHERE " + f.Sql;
        sqlite3_stmt* stmt = nullptr;
        ASSERT_EQ(sqlite3_prepare_v2(db_, sql.c_str(), -1, &stmt, nullptr), SQLITE_OK) << sql;
        for (std::size_t i = 0; i < f.Params.size(); ++i)
            BindValue(stmt, static_cast<int>(i + 1), f.Params[i]);
        std::string plan;
        while (sqlite3_step(stmt) == SQLITE_ROW)
            plan += reinterpret_cast<const char*>(sqlite3_column_text(stmt, 3)) + std::string("; ");
        sqlite3_finalize(stmt);
        EXPECT_NE(plan.find("SEARCH"), std::string::npos) << filter << ": " << plan;
        EXPECT_EQ(plan.find("SCAN"), std::string::npos) << filter << ": " << plan;
    }
}

TEST_F(FilterExpression, BlankFilterSelectsEverything) {
    EXPECT_TRUE(CompileFilter("", table_).Sql.empty());
    EXPECT_TRUE(CompileFilter("  \t ", table_).Sql.empty());
    EXPECT_EQ(Rows(" "), (R{1, 2, 3, 4, 5}));
}

TEST_F(FilterExpression, SyntaxErrorsSayWhatAndWhere) {
    auto [code, message] = ErrorOf("(Completed = true");
    EXPECT_EQ(code, errFilterSyntax);
    EXPECT_EQ(message, "Filter error: expected ')' but found end of filter at position 17 in: "
                       "(Completed = true");

    for (const char* bad : {"Qty = 3 and", "Qty =", "Qty = 3 or or Qty = 4", "and Qty = 3",
                            "Qty = 3)", "Qty 3", "Qty = 3 = 4", "Name IN 'a'", "Qty = #",
                            "FOO(Name) = 'a'", "Name IS 'a'", "(Qty = 1) + 2 = 3"}) {
        auto [c, m] = ErrorOf(bad);
        EXPECT_EQ(c, errFilterSyntax) << bad << ": " << m;
        EXPECT_EQ(m.rfind("Filter error: ", 0), 0u) << m;
        EXPECT_NE(m.find(std::string("in: ") + bad), std::string::npos) << m;
    }
    EXPECT_NE(ErrorOf("Qty = 3 and")
                  .second.find("expected an expression but found end of filter at position 11"),
              std::string::npos);
    // The filter reads the SQL dialect's expressions; what a filter cannot hold is refused by
    // name and place, never handed on.
    EXPECT_EQ(ErrorOf("Qty BETWEEN 1 AND 3").second,
              "Filter error: a filter compares fields with values; this cannot stand in one at "
              "position 4 in: Qty BETWEEN 1 AND 3");
    EXPECT_EQ(ErrorOf("Qty IN (SELECT Qty FROM t)").second,
              "Filter error: a query is not allowed here at position 8 in: "
              "Qty IN (SELECT Qty FROM t)");
    EXPECT_EQ(ErrorOf("t.Qty = 1").first, errFilterSyntax);
    EXPECT_EQ(ErrorOf("Qty = :n").first, errFilterSyntax);
    EXPECT_EQ(ErrorOf("Name || 'a' = 'b'").first, errFilterSyntax);
    EXPECT_NE(ErrorOf("Name = 'abc").second.find("unterminated string at position 7"),
              std::string::npos);
    EXPECT_EQ(ErrorOf("Name = 'abc").first, errFilterSyntax);
    EXPECT_EQ(ErrorOf("TransDate > Qty").first, errFilterSyntax);
    EXPECT_EQ(ErrorOf("Amount LIKE '1%'").first, errFilterSyntax);
}

TEST_F(FilterExpression, UnknownFieldsNameFieldAndTable) {
    EXPECT_EQ(ErrorOf("Foo = 1"),
              std::make_pair(static_cast<int>(errFieldNotFound),
                             std::string("Field 'Foo' not found in table 't'")));
    EXPECT_EQ(ErrorOf("(Qty = 1) and ([No Such] = 2)").first, errFieldNotFound);
}

TEST_F(FilterExpression, QuotesInsideLiteralsCannotBreakOut) {
    EXPECT_EQ(Rows("Name = 'O''Brien'"), (R{4}));
    EXPECT_EQ(Rows("Name = 'x'' OR 1=1 OR Name = ''x'"), (R{}));
    EXPECT_EQ(Rows("Name = \"x\"\" OR 1=1 --\""), (R{}));
    EXPECT_EQ(Rows("Name = 'a''); DROP TABLE t; --'"), (R{}));
    EXPECT_EQ(Rows(""), (R{1, 2, 3, 4, 5})); // the table is still there

    SqlFragment f = CompileFilter("Name = 'O''Brien' or Country LIKE 'Ca%'", table_);
    EXPECT_EQ(f.Sql.find("Brien"), std::string::npos) << f.Sql;
    EXPECT_EQ(f.Sql.find("Ca%"), std::string::npos) << f.Sql;
    EXPECT_EQ(f.Params, (std::vector<Value>{Value("O'Brien"), Value("Ca%")}));
}

TEST(CoerceToField, ConvertsLiteralsToTheFieldsKind) {
    EXPECT_EQ(CoerceToField(Value(12), FieldType::Currency), Value(Money::FromWhole(12)));
    EXPECT_EQ(CoerceToField(Value(12.5), FieldType::Currency), Value(Money::FromUnits(125000)));
    EXPECT_EQ(CoerceToField(Value("-12.345"), FieldType::Currency),
              Value(Money::FromUnits(-123450)));
    EXPECT_EQ(CoerceToField(Value("2017-03-01"), FieldType::Date),
              Value(Date::FromYmd(2017, 3, 1)));
    EXPECT_EQ(CoerceToField(Value(" 42 "), FieldType::SmallInt), Value(std::int64_t{42}));
    EXPECT_EQ(CoerceToField(Value(7.0), FieldType::Integer), Value(std::int64_t{7}));
    EXPECT_EQ(CoerceToField(Value(3), FieldType::Float), Value(3.0));
    EXPECT_EQ(CoerceToField(Value(12), FieldType::String), Value("12"));
    EXPECT_EQ(CoerceToField(Value("Yes"), FieldType::Boolean), Value(true));
    EXPECT_EQ(CoerceToField(Value(0), FieldType::Boolean), Value(false));
    EXPECT_TRUE(CoerceToField(Value(), FieldType::Currency).IsNull());

    for (auto [value, type] :
         {std::pair{Value("abc"), FieldType::Integer}, std::pair{Value(2.5), FieldType::Integer},
          std::pair{Value("12x"), FieldType::Float}, std::pair{Value("abc"), FieldType::Currency},
          std::pair{Value("03/01/2017"), FieldType::Date}, std::pair{Value(5), FieldType::Date},
          std::pair{Value("maybe"), FieldType::Boolean}}) {
        try {
            CoerceToField(value, type);
            ADD_FAILURE() << value.DebugString() << " was accepted";
        } catch (const EngineError& e) {
            EXPECT_EQ(e.ErrorCode(), errInvalidValue) << e.what();
            EXPECT_NE(std::string(e.what()).find(value.DebugString()), std::string::npos);
        }
    }
}

TEST(BindValue, BindsEachKindInItsStoredForm) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &db), SQLITE_OK);
    sqlite3_stmt* stmt = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db, "SELECT typeof(?1), quote(?1)", -1, &stmt, nullptr),
              SQLITE_OK);
    auto stored = [&](const Value& v) {
        BindValue(stmt, 1, v);
        EXPECT_EQ(sqlite3_step(stmt), SQLITE_ROW);
        std::string out = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
        out += " " + std::string(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 1)));
        sqlite3_reset(stmt);
        return out;
    };
    EXPECT_EQ(stored(Value()), "null NULL");
    EXPECT_EQ(stored(Value(Money::FromUnits(-123450))), "integer -123450");
    EXPECT_EQ(stored(Value(Date::FromYmd(2017, 3, 1))), "text '2017-03-01'");
    EXPECT_EQ(stored(Value(true)), "integer 1");
    EXPECT_EQ(stored(Value(false)), "integer 0");
    EXPECT_EQ(stored(Value(std::int64_t{1} << 40)), "integer 1099511627776");
    EXPECT_EQ(stored(Value(2.5)), "real 2.5");
    EXPECT_EQ(stored(Value("it's")), "text 'it''s'");
    EXPECT_EQ(stored(Value(Blob{std::string("\x01\x00", 2)})), "blob X'0100'");
    EXPECT_EQ(stored(Value(Blob{})), "blob X''");

    try {
        BindValue(stmt, 2, Value(1));
        ADD_FAILURE() << "a parameter the statement lacks was bound";
    } catch (const EngineError& e) {
        EXPECT_EQ(e.ErrorCode(), errSqlSyntax);
    }
    sqlite3_finalize(stmt);
    sqlite3_close(db);
}

} // namespace
