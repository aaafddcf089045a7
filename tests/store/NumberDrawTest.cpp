#include "store/NumberDraw.h"

#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Table.h"
#include "support/ChildProcess.h"
#include "support/CompanyFixture.h"

#include <fstream>
#include <set>
#include <sstream>

using namespace corvane;
using namespace corvane::store;
using corvane::testing::CompanyTest;
using corvane::tests::ChildProcess;

namespace {

class NumberDrawTest : public CompanyTest {
protected:
    std::optional<std::int64_t> Stored(const std::string& table, const std::string& field) {
        Table t(db_, table);
        t.Open();
        if (t.IsEmpty() || t.FieldByName(field).IsNull()) return std::nullopt;
        return t.FieldByName(field).AsInteger();
    }
    void SetCounters(const std::string& table,
                     const std::vector<std::pair<std::string, Value>>& values) {
        Table t(db_, table);
        t.Open();
        if (t.IsEmpty())
            t.Append();
        else
            t.Edit();
        for (const auto& [field, value] : values)
            t.FieldByName(field).SetValue(value);
        t.Post();
    }
    // One vendor number and id, the way a new vendor takes them.
    std::pair<std::int64_t, std::int64_t> DrawVendor() {
        std::int64_t no = 0, id = 0;
        EXPECT_TRUE(
            TryDrawFromControl(db_, "VendCtl", ControlRetry{"Vendor"}, [&](ControlRow& row) {
                no = row.Take("NextVendorNo", RestartOutside(1001, 10000000, 1001));
                id = row.Take("NextVendorID", StartWhenZero(10000));
            }));
        return {no, id};
    }
    void AddCurrency(Table& t, const std::string& name) {
        t.Append();
        t.FieldByName("CurrencyName").SetAsString(name);
        for (const char* account :
             {"APGLAccountID", "APDiscGLAccountID", "ARGLAccountID", "ARDiscGLAccountID"})
            t.FieldByName(account).SetAsInteger(1);
        t.Post();
    }
};

TEST_F(NumberDrawTest, ControlCountersAreRepairedTakenAndRaised) {
    // An empty control table gets its row.
    EXPECT_EQ(DrawVendor(), std::make_pair(std::int64_t{1001}, std::int64_t{10000}));
    EXPECT_EQ(DrawVendor(), std::make_pair(std::int64_t{1002}, std::int64_t{10001}));
    EXPECT_EQ(Stored("VendCtl", "NextVendorNo"), 1003);
    EXPECT_EQ(Stored("VendCtl", "NextVendorID"), 10002);

    struct Case {
        std::int64_t storedNo, storedId, no, id;
    };
    for (Case c : {Case{0, 0, 1001, 10000}, Case{1000, 5, 1001, 5}, Case{10000001, 77, 1001, 77},
                   Case{10000000, 10000, 10000000, 10000}}) {
        SetCounters("VendCtl",
                    {{"NextVendorNo", Value(c.storedNo)}, {"NextVendorID", Value(c.storedId)}});
        EXPECT_EQ(DrawVendor(), std::make_pair(c.no, c.id)) << c.storedNo;
        EXPECT_EQ(Stored("VendCtl", "NextVendorNo"), c.no + 1);
    }
    // A null counter without a repair starts at 0.
    std::int64_t taken = -1;
    ASSERT_TRUE(TryDrawFromControl(db_, "JVCtl", {"JV"},
                                   [&](ControlRow& row) { taken = row.Take("NextJVNumber"); }));
    EXPECT_EQ(taken, 0);
    EXPECT_EQ(CountRows("JVCtl"), 1);
}

TEST_F(NumberDrawTest, AControlTableOpenElsewhereIsRetriedThenTheUserDecides) {
    SetCounters("CustCtl", {{"NextCustomerNo", Value(1500)}, {"NextCustomerID", Value(10020)}});
    auto other = std::make_unique<ChildProcess>(
        CORVANE_CURSOR_HOLDER, std::vector<std::string>{folder_.Path(), "edit", "CustCtl"});
    ASSERT_TRUE(other->WaitForLine("ready")) << other->Output();

    int takes = 0;
    auto take = [&](ControlRow& row) {
        ++takes;
        row.Take("NextCustomerID");
    };
    EXPECT_FALSE(TryDrawFromControl(db_, "CustCtl", {"Customer", 5, 1}, take));
    std::vector<std::string> asked;
    EXPECT_FALSE(
        DrawFromControl(db_, "CustCtl", {"Customer", 3, 0}, take, [&](const std::string& message) {
            asked.push_back(message);
            return asked.size() < 2; // Retry once, then Cancel
        }));
    EXPECT_EQ(asked,
              (std::vector<std::string>(2, "Unable to open Customer Control table exclusively...\n"
                                           "Please try again later.")));
    EXPECT_EQ(takes, 0);
    EXPECT_EQ(Stored("CustCtl", "NextCustomerID"), 10020);

    // Retry after the other workstation let go succeeds.
    other->Kill();
    other->Wait();
    EXPECT_TRUE(DrawFromControl(db_, "CustCtl", {"Customer", 3, 0}, take,
                                [](const std::string&) { return false; }));
    EXPECT_EQ(Stored("CustCtl", "NextCustomerID"), 10021);

    // So is a cursor of this process on the table.
    Table mine(db_, "CustCtl");
    mine.Open();
    EXPECT_FALSE(TryDrawFromControl(db_, "CustCtl", {"Customer", 2, 0}, take));
}

TEST_F(NumberDrawTest, AFailureOfTheTakeItselfSavesNothingAndIsNotRetried) {
    SetCounters("ItemCtl", {{"NextItemID", Value(7)}, {"NextItemNo", Value(1001)}});
    int takes = 0;
    EXPECT_THROW(TryDrawFromControl(db_, "ItemCtl", {"Item", 100, 1},
                                    [&](ControlRow& row) {
                                        ++takes;
                                        row.Take("NextItemID");
                                        row.Take("NoSuchCounter");
                                    }),
                 EngineError);
    EXPECT_EQ(takes, 1);
    EXPECT_EQ(Stored("ItemCtl", "NextItemID"), 7);
    // The table was closed again: the next draw has it at once.
    EXPECT_TRUE(TryDrawFromControl(db_, "ItemCtl", {"Item", 1, 0},
                                   [](ControlRow& row) { row.Take("NextItemID"); }));
    EXPECT_EQ(Stored("ItemCtl", "NextItemID"), 8);
}

TEST_F(NumberDrawTest, ADrawInsideARunIsUndoneWithTheRun) {
    SetCounters("JVCtl", {{"NextJVID", Value(40)}});
    {
        Transaction run(db_, {"JV", "JVCtl"});
        ASSERT_TRUE(TryDrawFromControl(db_, "JVCtl", {"JV"},
                                       [](ControlRow& row) { row.Take("NextJVID"); }));
        EXPECT_EQ(Stored("JVCtl", "NextJVID"), 41);
    }
    EXPECT_EQ(Stored("JVCtl", "NextJVID"), 40);
}

TEST_F(NumberDrawTest, TheHighestKeyIsDrawnOnlyInsideTheSavingTransaction) {
    EXPECT_THROW(DrawMaxPlusOne(db_, "Currency", "CurrencyID"), EngineError);
    {
        Transaction save(db_, {"Currency"});
        EXPECT_EQ(DrawMaxPlusOne(db_, "Currency", "CurrencyID"), 1);
        InsertRow("Currency", {{"CurrencyID", 41},
                               {"CurrencyName", "Euro"},
                               {"APGLAccountID", 1},
                               {"APDiscGLAccountID", 1},
                               {"ARGLAccountID", 1},
                               {"ARDiscGLAccountID", 1}});
        EXPECT_EQ(DrawMaxPlusOne(db_, "currency", "currencyid"), 42);
        try {
            DrawMaxPlusOne(db_, "Currency", "CurrencyID) FROM JV; --");
            ADD_FAILURE() << "a field outside the definition was drawn";
        } catch (const EngineError& e) {
            EXPECT_EQ(e.ErrorCode(), errFieldNotFound);
        }
        save.Commit();
    }

    // A cursor with a drawn key takes the highest + 1 for a new row left empty, keeps a key
    // given by hand, and gives nothing away when the save is refused.
    Table t(db_, "Currency");
    t.SetDrawnKey("CurrencyID");
    t.Open();
    AddCurrency(t, "Dollar");
    EXPECT_EQ(t.FieldByName("CurrencyID").AsInteger(), 42);
    t.Append();
    t.FieldByName("CurrencyID").SetAsInteger(100);
    t.FieldByName("CurrencyName").SetAsString("Pound");
    for (const char* account :
         {"APGLAccountID", "APDiscGLAccountID", "ARGLAccountID", "ARDiscGLAccountID"})
        t.FieldByName(account).SetAsInteger(1);
    t.Post();
    EXPECT_EQ(t.FieldByName("CurrencyID").AsInteger(), 100);
    EXPECT_THROW(AddCurrency(t, "EURO"), EngineError); // the name is unique
    EXPECT_TRUE(t.FieldByName("CurrencyID").IsNull());
    t.Cancel();
    AddCurrency(t, "Yen");
    EXPECT_EQ(t.FieldByName("CurrencyID").AsInteger(), 101);
    EXPECT_EQ(CountRows("Currency"), 4);
}

// Two workstations draw at the same moment, both ways: every number is drawn exactly once, none
// is skipped, and no save is refused.
TEST_F(NumberDrawTest, TwoWorkstationsNeverDrawTheSameNumber) {
    constexpr int Draws = 200;
    db_.Close();
    for (const std::string mode : {"control", "key"}) {
        const std::string start = folder_.Path() + "/start-" + mode;
        std::vector<std::unique_ptr<ChildProcess>> drawers;
        for (int i = 0; i < 2; ++i) {
            drawers.push_back(std::make_unique<ChildProcess>(
                CORVANE_NUMBER_DRAWER,
                std::vector<std::string>{folder_.Path(), start, mode, std::to_string(Draws)}));
            ASSERT_TRUE(drawers.back()->WaitForLine("ready"));
        }
        std::ofstream(start).put('\n');
        std::set<std::int64_t> numbers;
        for (auto& drawer : drawers) {
            ASSERT_TRUE(drawer->WaitForLine("done", std::chrono::milliseconds(60000)))
                << drawer->Output();
            auto status = drawer->Wait();
            ASSERT_TRUE(status && status->exited && status->code == 0);
            std::istringstream lines(drawer->Output());
            for (std::string line; std::getline(lines, line);) {
                if (line == "ready" || line == "done") continue;
                ASSERT_EQ(line.rfind(mode + " ", 0), 0u) << line;
                std::int64_t number = std::stoll(line.substr(mode.size() + 1));
                EXPECT_TRUE(numbers.insert(number).second) << line;
            }
        }
        ASSERT_EQ(numbers.size(), 2u * Draws) << mode;
        EXPECT_EQ(*numbers.begin(), 1) << mode;
        EXPECT_EQ(*numbers.rbegin(), 2 * Draws) << mode;
    }
    db_.Open();
    EXPECT_EQ(Stored("JVCtl", "NextJVID"), 2 * Draws + 1);
    EXPECT_EQ(CountRows("Currency"), 2 * Draws);
}

} // namespace
