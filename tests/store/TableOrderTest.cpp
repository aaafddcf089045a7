#include "support/CompanyFixture.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <random>

using namespace corvane::store;

namespace {

// A table with one string and one integer key, both with nulls, and indexes in every direction.
TableDef OrderTable() {
    return TableDef{"OrderTest",
                    {{"Id", FieldType::Integer, 0, true},
                     {"Name", FieldType::String, 20},
                     {"Num", FieldType::Integer}},
                    {{"", {"Id"}, ixPrimary | ixUnique},
                     {"Name1", {"Name"}, ixNoCase},
                     {"NumDesc", {"Num"}, ixDescending},
                     {"Name1NumDesc", {"Name", "Num"}, ixNoCase | ixDescending, {"Num"}}}};
}

struct Item {
    int Id;
    std::optional<std::string> Name;
    std::optional<int> Num;
};

std::string Upper(std::string s) {
    for (auto& c : s)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return s;
}

// Reference order, written independently of the store: nulls first ascending (last
// descending), names without regard to case, ties by insertion.
int CompareName(const Item& a, const Item& b) {
    if (!a.Name || !b.Name) return (a.Name ? 1 : 0) - (b.Name ? 1 : 0);
    std::string x = Upper(*a.Name), y = Upper(*b.Name);
    return x < y ? -1 : (x > y ? 1 : 0);
}
int CompareNum(const Item& a, const Item& b) {
    if (!a.Num || !b.Num) return (a.Num ? 1 : 0) - (b.Num ? 1 : 0);
    return *a.Num < *b.Num ? -1 : (*a.Num > *b.Num ? 1 : 0);
}

class TableOrder : public corvane::testing::CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        CreateTable(OrderTable());
        const char* names[] = {"alpha", "Beta", "ALPHA", "gamma", "beta", "Delta"};
        std::mt19937 rng(7);
        Transaction tx(db_, {"OrderTest"});
        Table t(db_, "OrderTest");
        t.Open();
        for (int id = 1; id <= rows; ++id) {
            Item it{id, std::nullopt, std::nullopt};
            if (rng() % 7 != 0) it.Name = names[rng() % 6];
            if (rng() % 5 != 0) it.Num = static_cast<int>(rng() % 40) - 20;
            t.Insert();
            t.FieldByName("Id").SetAsInteger(id);
            if (it.Name) t.FieldByName("Name").SetAsString(*it.Name);
            if (it.Num) t.FieldByName("Num").SetAsInteger(*it.Num);
            t.Post();
            items.push_back(it);
        }
        tx.Commit();
    }

    std::vector<int> Expected(const std::string& index) {
        auto sorted = items;
        std::stable_sort(sorted.begin(), sorted.end(), [&](const Item& a, const Item& b) {
            if (index == "Name1") return CompareName(a, b) < 0;
            if (index == "NumDesc") return CompareNum(a, b) > 0;
            if (index == "Name1NumDesc") {
                int c = CompareName(a, b);
                return c != 0 ? c < 0 : CompareNum(a, b) > 0;
            }
            return a.Id < b.Id;
        });
        std::vector<int> ids;
        for (const auto& it : sorted)
            ids.push_back(it.Id);
        return ids;
    }

    static std::vector<int> Forward(Table& t) {
        std::vector<int> ids;
        for (t.First(); !t.Eof(); t.Next())
            ids.push_back(static_cast<int>(t.FieldByName("Id").AsInteger()));
        return ids;
    }
    static std::vector<int> Backward(Table& t) {
        std::vector<int> ids;
        for (t.Last(); !t.Bof(); t.Prior())
            ids.push_back(static_cast<int>(t.FieldByName("Id").AsInteger()));
        return ids;
    }

    const int rows = 300;
    std::vector<Item> items;
};

TEST_F(TableOrder, EveryIndexReadsInItsOrderBothWays) {
    Table t(db_, "OrderTest.DAT");
    t.Open();
    for (std::string index : {"", "Name1", "NumDesc", "Name1NumDesc"}) {
        SCOPED_TRACE("index " + index);
        t.SetIndexName(index);
        auto expected = Expected(index);
        EXPECT_EQ(Forward(t), expected);
        auto back = Backward(t);
        std::reverse(back.begin(), back.end());
        EXPECT_EQ(back, expected);
        EXPECT_EQ(t.RecordCount(), rows);
    }
}

TEST_F(TableOrder, MoveByCrossesReadWindowsAndStopsAtTheEdges) {
    Table t(db_, "OrderTest");
    t.SetIndexName("Name1NumDesc");
    t.Open();
    auto expected = Expected("Name1NumDesc");
    EXPECT_EQ(t.MoveBy(250), 250);
    EXPECT_EQ(t.FieldByName("Id").AsInteger(), expected[250]);
    EXPECT_EQ(t.MoveBy(-200), -200);
    EXPECT_EQ(t.FieldByName("Id").AsInteger(), expected[50]);
    EXPECT_EQ(t.MoveBy(1000), rows - 1 - 50);
    EXPECT_TRUE(t.Eof());
    EXPECT_EQ(t.FieldByName("Id").AsInteger(), expected.back());
    EXPECT_EQ(t.MoveBy(-1000), -(rows - 1));
    EXPECT_TRUE(t.Bof());
    EXPECT_EQ(t.FieldByName("Id").AsInteger(), expected.front());
}

TEST_F(TableOrder, ChangingTheIndexKeepsTheRecord) {
    Table t(db_, "OrderTest");
    t.Open();
    ASSERT_TRUE(t.Locate("Id", {Value(123)}));
    t.SetIndexName("NumDesc");
    EXPECT_EQ(t.FieldByName("Id").AsInteger(), 123);
    auto expected = Expected("NumDesc");
    auto at = std::find(expected.begin(), expected.end(), 123) - expected.begin();
    t.Next();
    ASSERT_LT(at + 1, rows);
    EXPECT_EQ(t.FieldByName("Id").AsInteger(), expected[static_cast<std::size_t>(at + 1)]);
    EXPECT_THROW(t.SetIndexName("NoSuchIndex"), EngineError);
    EXPECT_EQ(t.IndexName(), "NumDesc");
}

TEST_F(TableOrder, LocateFindsTheFirstInIndexOrderAndKeepsThePlaceOnFailure) {
    Table t(db_, "OrderTest");
    t.SetIndexName("NumDesc");
    t.Open();
    t.MoveBy(10);
    auto before = t.FieldByName("Id").AsInteger();
    EXPECT_FALSE(t.Locate("Name", {Value("no such name")}));
    EXPECT_EQ(t.FieldByName("Id").AsInteger(), before);

    ASSERT_TRUE(t.Locate("Name", {Value("ALPHA")}, {.CaseInsensitive = true}));
    // The first "alpha" in the order of the active index, whatever its case.
    auto expected = Expected("NumDesc");
    int first = -1;
    for (int id : expected)
        if (items[static_cast<std::size_t>(id - 1)].Name &&
            Upper(*items[static_cast<std::size_t>(id - 1)].Name) == "ALPHA") {
            first = id;
            break;
        }
    EXPECT_EQ(t.FieldByName("Id").AsInteger(), first);
    // Without the option the case must match.
    ASSERT_TRUE(t.Locate("Name", {Value("ALPHA")}));
    EXPECT_EQ(t.FieldByName("Name").AsString(), "ALPHA");

    // A null looks for a null, not for an empty string.
    ASSERT_TRUE(t.Locate("Name", {Value()}));
    EXPECT_TRUE(t.FieldByName("Name").IsNull());
}

TEST_F(TableOrder, RowsAroundAreShownWithoutMovingOrTellingAnyone) {
    Table t(db_, "OrderTest");
    t.SetIndexName("Name1NumDesc");
    t.AddCalculatedField("Twice", FieldType::Integer);
    t.OnCalcFields = [](DataSet& ds) {
        ds.FieldByName("Twice").SetAsInteger(ds.FieldByName("Id").AsInteger() * 2);
    };
    t.Open();
    auto expected = Expected("Name1NumDesc");
    t.MoveBy(100);
    int scrolls = 0;
    t.AfterScroll = [&](DataSet&) { ++scrolls; };
    std::vector<std::pair<int, std::int64_t>> seen;
    t.VisitRowsAround(50, 60, [&](int offset) {
        EXPECT_EQ(t.FieldByName("Twice").AsInteger(), 2 * t.FieldByName("Id").AsInteger());
        seen.emplace_back(offset, t.FieldByName("Id").AsInteger());
    });
    ASSERT_EQ(seen.size(), 111u);
    for (const auto& [offset, id] : seen)
        EXPECT_EQ(id, expected[static_cast<std::size_t>(100 + offset)]);
    EXPECT_EQ(t.FieldByName("Id").AsInteger(), expected[100]);
    EXPECT_EQ(scrolls, 0);
    // Near the end there are fewer rows behind.
    t.Last();
    int behind = 0;
    t.VisitRowsAround(0, 5, [&](int offset) { behind += offset > 0; });
    EXPECT_EQ(behind, 0);
    t.Next();
    EXPECT_TRUE(t.Eof());
}

using EmptyTable = corvane::testing::CompanyTest;

TEST_F(EmptyTable, LocateAndLookupOnAnEmptyTable) {
    Table t(db_, "Vendor");
    t.Open();
    EXPECT_TRUE(t.IsEmpty());
    EXPECT_TRUE(t.Eof());
    EXPECT_TRUE(t.Bof());
    EXPECT_FALSE(t.Locate("VendorNo", {Value("100")}));
    EXPECT_TRUE(t.Lookup("VendorNo", {Value("100")}, "VendorName").IsNull());
    EXPECT_EQ(t.RecordCount(), 0);
    t.Next();
    t.Prior();
    EXPECT_TRUE(t.IsEmpty());
}

} // namespace
