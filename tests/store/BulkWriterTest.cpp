#include "store/BulkWriter.h"

#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Query.h"
#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::store;
using corvane::testing::CompanyTest;

namespace {

using BulkWriterTest = CompanyTest;

TEST_F(BulkWriterTest, FieldsAreCheckedAgainstTheDefinitionBeforeAnythingIsWritten) {
    for (auto make : std::vector<std::function<void()>>{
             [&] {
                 BulkInsert(db_, "GLActual", {"GLAccountID", "Amount13"});
             },
             [&] { BulkLookup(db_, "GLActual", {"GLAccountID"}, {"Amount1; DROP"}); },
             [&] { BulkUpdate(db_, "GLActual", {"rowid"}); },
             [&] { BulkKeyedUpdate(db_, "GLActual", {"GLAccountID = 1 OR 1"}, {"Amount1"}); },
             [&] { CountRowsWhere(db_, "GLHist", "JVID = 1 OR 1", Value(1)); }}) {
        try {
            make();
            ADD_FAILURE() << "a field outside the definition was taken";
        } catch (const EngineError& e) {
            EXPECT_EQ(e.ErrorCode(), errFieldNotFound) << e.what();
        }
    }
    EXPECT_THROW(BulkInsert(db_, "NoSuchTable", {"Id"}), EngineError);
    BulkInsert insert(db_, "GLActual", {"GLAccountID", "GLYear"});
    EXPECT_THROW(insert.Add({Value(1)}), EngineError); // one value short
    EXPECT_EQ(CountRows("GLActual"), 0);
}

TEST_F(BulkWriterTest, RowsAreFoundByKeysWithEmptyKeysMatchingEmptyFieldsAndChangedByTheirRef) {
    BulkInsert insert(db_, "GLActual",
                      {"GLAccountID", "SubAccount1ID", "GLYear", "ActualBudget", "Amount1"});
    RowRef plain =
        insert.Add({Value(4), Value(), Value(2017), Value("A"), Value(Money::FromCents(100))});
    RowRef sub = insert.Add({Value(4), Value(2), Value(2017), Value("A"), Value()});
    EXPECT_NE(plain, sub);

    BulkLookup find(db_, "GLActual", {"GLAccountID", "SubAccount1ID", "GLYear"},
                    {"Amount1", "ActualBudget"});
    auto found = find.Find({Value(4), Value(), Value(2017)});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->Row, plain);
    EXPECT_EQ(found->Values, (std::vector<Value>{Value(Money::FromCents(100)), Value("A")}));
    EXPECT_EQ(find.Find({Value(4), Value(2), Value(2017)})->Row, sub);
    EXPECT_FALSE(find.Find({Value(4), Value(3), Value(2017)}));

    BulkUpdate update(db_, "GLActual", {"Amount1", "Amount2"});
    update.Set(sub, {Value(Money::FromCents(5)), Value(Money::FromCents(6))});
    EXPECT_EQ(find.Find({Value(4), Value(2), Value(2017)})->Values[0], Value(Money::FromCents(5)));
    EXPECT_EQ(find.Find({Value(4), Value(), Value(2017)})->Values[0], Value(Money::FromCents(100)));

    EXPECT_EQ(CountRowsWhere(db_, "GLActual", "GLAccountID", Value(4)), 2);
    DeleteRowsWhere(db_, "GLActual", "SubAccount1ID", Value(2));
    EXPECT_EQ(CountRowsWhere(db_, "GLActual", "GLAccountID", Value(4)), 1);
}

TEST_F(BulkWriterTest, AKeyedUpdateChangesEveryRowOfItsKeyWithAnEmptyKeyMatchingOnlyEmptyFields) {
    BulkInsert insert(db_, "GLActual",
                      {"GLAccountID", "SubAccount1ID", "GLYear", "ActualBudget", "Amount1"});
    insert.Add({Value(4), Value(), Value(2017), Value("A"), Value(Money::FromCents(100))});
    insert.Add({Value(4), Value(), Value(2017), Value("B"), Value(Money::FromCents(200))});
    insert.Add({Value(4), Value(2), Value(2017), Value("A"), Value(Money::FromCents(300))});
    insert.Add({Value(5), Value(), Value(2017), Value("A"), Value(Money::FromCents(400))});

    BulkKeyedUpdate update(db_, "GLActual", {"GLAccountID", "SubAccount1ID"}, {"Amount1"});
    update.Set({Value(4), Value()}, {Value(Money::FromCents(7))});
    EXPECT_THROW(update.Set({Value(4)}, {Value(Money::FromCents(7))}), EngineError);
    auto amounts = [&] {
        std::vector<Value> out;
        Query q(db_, "SELECT Amount1 FROM GLActual ORDER BY GLAccountID, SubAccount1ID, Amount1");
        q.ForEachRow([&](const std::vector<Value>& row) { out.push_back(row[0]); });
        return out;
    };
    EXPECT_EQ(amounts(),
              (std::vector<Value>{Value(Money::FromCents(7)), Value(Money::FromCents(7)),
                                  Value(Money::FromCents(300)), Value(Money::FromCents(400))}));

    BulkKeyedUpdate every(db_, "GLActual", {}, {"GLYear"});
    every.Set({}, {Value(2018)});
    EXPECT_EQ(CountRowsWhere(db_, "GLActual", "GLYear", Value(2018)), 4);
}

} // namespace
