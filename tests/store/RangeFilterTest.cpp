#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::store;
using corvane::testing::CompanyTest;

namespace {

class RangeFilter : public CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        Table t(db_, "TimeSht");
        t.Open();
        // 60 entries over three months; every third is billed, every fifth has an empty invoice no.
        for (int i = 0; i < 60; ++i) {
            t.Insert();
            t.FieldByName("CustomerID").SetAsInteger(10000 + i % 4);
            t.FieldByName("EmployeeID").SetAsInteger(1 + i % 3);
            t.FieldByName("JobID").SetAsInteger(1);
            t.FieldByName("TaskID").SetAsInteger(1);
            t.FieldByName("WorkDate").SetAsDate(Date::FromYmd(2017, 1 + i / 20, 1 + i % 20));
            t.FieldByName("Hours").SetAsFloat(1.5);
            if (i % 3 == 0)
                t.FieldByName("InvoiceNo").SetAsString("INV" + std::to_string(i));
            else if (i % 5 == 0)
                t.FieldByName("InvoiceNo").SetAsString("");
            t.Post();
        }
    }

    static std::vector<std::int64_t> Ids(Table& t) {
        std::vector<std::int64_t> ids;
        for (t.First(); !t.Eof(); t.Next())
            ids.push_back(t.FieldByName("TimeSheetID").AsInteger());
        return ids;
    }
};

TEST_F(RangeFilter, NullInAFilterSelectsNullsAndNotEmptyStrings) {
    Table t(db_, "TimeSht");
    t.Open();
    t.SetFilter("InvoiceNo = null");
    t.SetFiltered(true);
    std::int64_t n = 0;
    for (t.First(); !t.Eof(); t.Next(), ++n)
        EXPECT_TRUE(t.FieldByName("InvoiceNo").IsNull());
    // Of 60: 20 billed, and of the other 40 the multiples of 5 (not of 3) have "" - 8 of them.
    EXPECT_EQ(n, 32);
    EXPECT_EQ(t.RecordCount(), 32);
    t.SetFilter("InvoiceNo = ''");
    EXPECT_EQ(t.RecordCount(), 8);
    t.SetFilter("InvoiceNo <> null");
    EXPECT_EQ(t.RecordCount(), 28);
}

TEST_F(RangeFilter, RangeAndFilterCombine) {
    Table t(db_, "TimeSht");
    t.SetIndexName("WorkDateID");
    t.Open();
    t.SetRange({Value(Date::FromYmd(2017, 2, 1))}, {Value(Date::FromYmd(2017, 2, 20))});
    EXPECT_EQ(t.RecordCount(), 20);
    EXPECT_TRUE(t.Bof());
    EXPECT_EQ(t.FieldByName("WorkDate").AsDate(), Date::FromYmd(2017, 2, 1));
    t.SetFilter("(CustomerID = 10001) and (InvoiceNo <> null)");
    t.SetFiltered(true);
    auto ids = Ids(t);
    // In February (i = 20..39): CustomerID 10001 means i % 4 == 1; an invoice no. that is not
    // null (billed, or the empty ones): i = 21, 25, 33.
    EXPECT_EQ(ids, (std::vector<std::int64_t>{22, 26, 34}));
    for (t.First(); !t.Eof(); t.Next()) {
        EXPECT_EQ(t.FieldByName("WorkDate").AsDate().Month(), 2);
        EXPECT_EQ(t.FieldByName("CustomerID").AsInteger(), 10001);
    }
    // A range stays while the filter changes, and the filter while the range goes.
    t.SetFiltered(false);
    EXPECT_EQ(t.RecordCount(), 20);
    t.SetFiltered(true);
    t.CancelRange();
    // Over all 60: i = 5, 9, 21, 25, 33, 45, 57.
    EXPECT_EQ(t.RecordCount(), 7);
}

TEST_F(RangeFilter, ABadFilterChangesNothing) {
    Table t(db_, "TimeSht");
    t.Open();
    t.SetFilter("CustomerID = 10002");
    t.SetFiltered(true);
    ASSERT_EQ(t.RecordCount(), 15);
    try {
        t.SetFilter("(CustomerID = 10001");
        FAIL() << "an unclosed parenthesis was taken";
    } catch (const EngineError& e) {
        EXPECT_EQ(e.ErrorCode(), errFilterSyntax);
    }
    try {
        t.SetFilter("Customer = 10001");
        FAIL() << "an unknown field was taken";
    } catch (const EngineError& e) {
        EXPECT_EQ(e.ErrorCode(), errFieldNotFound);
    }
    EXPECT_EQ(t.Filter(), "CustomerID = 10002");
    EXPECT_EQ(t.RecordCount(), 15);
}

TEST_F(RangeFilter, AFilterHandlerDecidesRowByRow) {
    Table t(db_, "TimeSht");
    t.Open();
    t.OnFilterRecord = [](DataSet& ds) { return ds.FieldByName("EmployeeID").AsInteger() == 2; };
    t.SetFiltered(true);
    EXPECT_EQ(t.RecordCount(), 20);
    for (t.First(); !t.Eof(); t.Next())
        EXPECT_EQ(t.FieldByName("EmployeeID").AsInteger(), 2);
    t.Last();
    EXPECT_EQ(t.FieldByName("EmployeeID").AsInteger(), 2);
}

TEST_F(RangeFilter, AMultiFieldRangeIsInclusiveAtBothEnds) {
    Table t(db_, "TimeSht");
    t.SetIndexName("CustomerID"); // one field: a range on two fields needs a two-field index
    t.Open();
    t.SetRange({Value(10001)}, {Value(10002)});
    EXPECT_EQ(t.RecordCount(), 30);
    t.SetIndexName("WorkDateID");
    t.SetRange({Value(Date::FromYmd(2017, 1, 20)), Value(10)},
               {Value(Date::FromYmd(2017, 2, 2)), Value(25)});
    // Rows from (Jan 20, id >= 10) to (Feb 2, id <= 25): Jan 20 is i = 19 (id 20), Feb 1 is
    // i = 20 (id 21), Feb 2 is i = 21 (id 22).
    EXPECT_EQ(Ids(t), (std::vector<std::int64_t>{20, 21, 22}));
    EXPECT_THROW(t.SetRange({Value(1), Value(2), Value(3)}, {Value(1), Value(2), Value(3)}),
                 EngineError);
}

} // namespace
