#include "core/Exception.h"
#include "store/CompanyFile.h"
#include "support/CompanyFixture.h"

#include <map>

using namespace corvane;
using namespace corvane::store;
using corvane::testing::CompanyTest;

namespace {

// Every row of a table, each as the text of all its values, in primary order.
std::vector<std::string> Snapshot(Database& db, const std::string& table) {
    Table t(db, table);
    t.Open();
    std::vector<std::string> rows;
    for (t.First(); !t.Eof(); t.Next()) {
        std::string row;
        for (const auto& f : t.Fields())
            row += f->AsValue().DebugString() + "|";
        rows.push_back(row);
    }
    return rows;
}

class Transactions : public CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        InsertRow("JVCtl", {{"NextJVID", 10}, {"NextJVNumber", 100}});
        InsertRow("JV", {{"JVID", 1},
                         {"GLYear", 2017},
                         {"GLPeriod", 1},
                         {"JVNumber", 1},
                         {"Source", "GL"},
                         {"TransDate", Date::FromYmd(2017, 1, 1)},
                         {"TransDescription", "Opening"}});
        InsertRow("JVDet",
                  {{"JVID", 1}, {"Seq", 1}, {"GLAccountID", 1}, {"GLAmount", Money::FromWhole(5)}});
        InsertRow("GLActual", {{"GLAccountID", 1},
                               {"GLYear", 2017},
                               {"ActualBudget", "A"},
                               {"OpeningBal", Money::FromWhole(0)}});
    }

    std::map<std::string, std::vector<std::string>> All() {
        std::map<std::string, std::vector<std::string>> all;
        for (const char* t : {"JVCtl", "JV", "JVDet", "GLActual", "GLHist"})
            all[t] = Snapshot(db_, t);
        return all;
    }

    // A posting run in small: takes a number, writes lines, changes a balance, marks the
    // voucher posted and deletes a line; then fails if told to.
    void Post(bool failHalfWay) {
        Transaction tx(db_, {"JVCtl", "JV", "JVDet", "GLActual", "GLHist"});
        Table ctl(db_, "JVCtl"), jv(db_, "JV"), det(db_, "JVDet"), actual(db_, "GLActual"),
            hist(db_, "GLHist");
        for (Table* t : {&ctl, &jv, &det, &actual, &hist})
            t->Open();
        ctl.Edit();
        ctl.FieldByName("NextJVNumber")
            .SetAsInteger(ctl.FieldByName("NextJVNumber").AsInteger() + 1);
        ctl.Post();
        for (int i = 0; i < 50; ++i) {
            hist.Insert();
            FillGLHistLine(hist, 1, Date::FromYmd(2017, 1, 1), Money::FromCents(i));
            hist.Post();
        }
        actual.Edit();
        actual.FieldByName("Amount1").SetAsMoney(Money::FromWhole(5));
        actual.Post();
        jv.Edit();
        jv.FieldByName("Posted").SetAsBoolean(true);
        jv.Post();
        if (failHalfWay) throw Exception("The run stopped half way");
        det.Delete();
        tx.Commit();
    }
};

TEST_F(Transactions, FailureHalfWayLeavesEveryListedTableAsBefore) {
    auto before = All();
    Table watching(db_, "JV");
    watching.Open();
    EXPECT_THROW(Post(true), Exception);
    EXPECT_EQ(All(), before);
    EXPECT_FALSE(db_.InTransaction());
    // A cursor that stayed open sees the rows as they are again.
    EXPECT_FALSE(watching.FieldByName("Posted").AsBoolean());
    // The counters of the failed run are not used up.
    Table hist(db_, "GLHist");
    hist.Open();
    hist.Insert();
    FillGLHistLine(hist, 1, Date::FromYmd(2017, 1, 1), Money::FromCents(1));
    hist.Post();
    EXPECT_EQ(hist.FieldByName("GLHistID").AsInteger(), 1);
}

TEST_F(Transactions, ACommittedRunIsSeenByAnotherConnection) {
    Post(false);
    Session other;
    Database second(other);
    second.SetDirectory(folder_.Path());
    second.Open();
    EXPECT_EQ(Snapshot(second, "GLHist").size(), 50u);
    EXPECT_TRUE(Snapshot(second, "JVDet").empty());
    Table ctl(second, "JVCtl");
    ctl.Open();
    EXPECT_EQ(ctl.FieldByName("NextJVNumber").AsInteger(), 101);
}

TEST_F(Transactions, OneRunAtATimeAndOnlyOverExistingTables) {
    Transaction tx(db_, {"JV"});
    EXPECT_THROW(db_.StartTransaction({"JV"}), EngineError);
    tx.Rollback();
    try {
        db_.StartTransaction({"JV", "NoSuchTable"});
        FAIL() << "a transaction over a missing table started";
    } catch (const EngineError& e) {
        EXPECT_EQ(e.ErrorCode(), errTableNotFound);
    }
    EXPECT_FALSE(db_.InTransaction());
}

// A run asked for while a report reads its snapshot (the user saves from another window while a
// preview is being made) is refused with a reason, and starts once the report is done.
TEST_F(Transactions, NoRunStartsInsideAReportsSnapshot) {
    {
        ReadSnapshot snapshot(db_);
        try {
            Post(false);
            FAIL() << "a run started inside the snapshot";
        } catch (const EngineError& e) {
            EXPECT_EQ(std::string(e.what()),
                      "A report is still reading the company. Try again once its pages are made.");
        }
        EXPECT_FALSE(db_.InTransaction());
    }
    Post(false);
    EXPECT_EQ(Snapshot(db_, "GLHist").size(), 50u);
}

} // namespace
