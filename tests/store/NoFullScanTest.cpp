#include "store/sql/Connection.h"
#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::store;
using corvane::testing::CompanyTest;

namespace {

// Moves, look-ups and list pages on a large table must seek through an index: SQLite's count
// of full-scan steps stays at zero, and the work done stays far below one step per row.
class NoFullScans : public CompanyTest {
protected:
    static constexpr int Rows = 20000;

    void SetUp() override {
        CompanyTest::SetUp();
        Transaction tx(db_, {"GLHist"});
        Table t(db_, "GLHist");
        t.Open();
        for (int i = 0; i < Rows; ++i) {
            t.Insert();
            t.FieldByName("GLAccountID").SetAsInteger(1 + i % 40);
            t.FieldByName("GLYear").SetAsInteger(2015 + i % 3);
            t.FieldByName("GLPeriod").SetAsInteger(1 + i % 12);
            t.FieldByName("Source").SetAsString(i % 2 ? "AR" : "AP");
            t.FieldByName("JVNumber").SetAsInteger(i / 4);
            t.FieldByName("JVID").SetAsInteger(i / 4);
            t.FieldByName("TransDate")
                .SetAsDate(Date::FromYmd(2015 + i % 3, 1 + i % 12, 1 + i % 28));
            t.FieldByName("Amount").SetAsMoney(Money::FromCents(i * 7 - 50000));
            if (i % 5) t.FieldByName("TransDescription").SetAsString("Line " + std::to_string(i));
            t.Post();
        }
        tx.Commit();
    }

    // Runs op and returns the full-scan steps and all steps it took.
    std::pair<std::int64_t, std::int64_t> Cost(const std::function<void()>& op) {
        auto& conn = db_.Conn();
        auto full = conn.FullScanSteps(), vm = conn.VmSteps();
        op();
        return {conn.FullScanSteps() - full, conn.VmSteps() - vm};
    }

    void ExpectSeeks(const char* what, const std::function<void()>& op) {
        auto [full, vm] = Cost(op);
        EXPECT_EQ(full, 0) << what;
        // A scan would take several steps for each of the 20,000 rows.
        EXPECT_LT(vm, 40000) << what;
    }
};

TEST_F(NoFullScans, MovesLookupsAndPagesSeekOnEveryIndexKind) {
    for (std::string index :
         {"", "GLAccntIDPeriodDateJVDESC", "PeriodDateJVDESC", "GLAccountIDPeriodDateJV"}) {
        SCOPED_TRACE("index " + index);
        Table t(db_, "GLHist");
        t.SetIndexName(index);
        ExpectSeeks("open", [&] { t.Open(); });
        ExpectSeeks("list page", [&] {
            for (int i = 0; i < 40 && !t.Eof(); ++i)
                t.Next();
        });
        ExpectSeeks("last", [&] { t.Last(); });
        ExpectSeeks("prior page", [&] {
            for (int i = 0; i < 40; ++i)
                t.Prior();
        });
        ExpectSeeks("first", [&] { t.First(); });
        ExpectSeeks("move by 1000", [&] { EXPECT_EQ(t.MoveBy(1000), 1000); });
        ExpectSeeks("move back 500", [&] { EXPECT_EQ(t.MoveBy(-500), -500); });
        ExpectSeeks("refresh", [&] { t.Refresh(); });
        ExpectSeeks("locate by key", [&] { EXPECT_TRUE(t.Locate("GLHistID", {Value(12345)})); });
        ExpectSeeks("lookup by indexed field",
                    [&] { EXPECT_FALSE(t.Lookup("JVID", {Value(4321)}, "Amount").IsNull()); });
        EXPECT_EQ(t.FieldByName("GLHistID").AsInteger(), 12345);
        ExpectSeeks("next after locate", [&] { t.Next(); });
    }
}

TEST_F(NoFullScans, ARangeSeeksToItsStart) {
    Table t(db_, "GLHist");
    t.SetIndexName("GLAccntIDPeriodDateJVDESC");
    t.Open();
    ExpectSeeks("range", [&] { t.SetRange({Value(17), Value(2016)}, {Value(17), Value(2016)}); });
    int n = 0;
    ExpectSeeks("walk the range", [&] {
        for (t.First(); !t.Eof(); t.Next())
            ++n;
    });
    EXPECT_EQ(n, t.RecordCount());
    EXPECT_GT(n, 100);
}

} // namespace

// A filter that many rows pass is paged along the list's order, each row tested, instead of every
// passing row being sorted before the first page; one that few pass is read through its own
// index. Either way a page costs far less than a step per row, and the count stays right.
TEST_F(NoFullScans, AFilteredPageCostsLittleWhetherFewOrManyRowsPass) {
    struct Case {
        const char* Filter;
        std::int64_t Passing;
    };
    for (Case c : {Case{"GLAccountID <= 30", Rows * 30 / 40}, Case{"GLAccountID = 7", Rows / 40}}) {
        SCOPED_TRACE(c.Filter);
        Table t(db_, "GLHist");
        t.SetIndexName("PeriodDateJVDESC");
        t.Open();
        auto [full, vm] = Cost([&] {
            t.SetFilter(c.Filter);
            t.SetFiltered(true);
            for (int i = 0; i < 40 && !t.Eof(); ++i)
                t.Next();
        });
        EXPECT_LT(vm, 40000);
        EXPECT_LE(t.FieldByName("GLAccountID").AsInteger(), 30);
        EXPECT_EQ(t.RecordCount(), c.Passing);
        // The page is the list's order: periods from the latest down.
        t.First();
        Value year = t.FieldByName("GLYear").AsValue();
        EXPECT_EQ(year, Value(std::int64_t{2017}));
    }
}
