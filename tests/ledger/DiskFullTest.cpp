#include "PostingFixture.h"
#include "ledger/posting/PostingRun.h"
#include "store/FileError.h"
#include "store/Query.h"
#include "support/CompanyFingerprint.h"

#include <filesystem>

using namespace corvane;

namespace {

class DiskFullTest : public corvane::testing::PostingTest {
protected:
    std::int64_t Pragma(const std::string& name) {
        store::Statement s(db_.Conn(), "PRAGMA main." + name);
        s.Step();
        return s.ColumnNatural(0).Int();
    }
};

// The engine itself runs out of room half way through a posting run (the file may not grow past
// a few pages more than it has): the user reads that posting was not done because the disk is
// full and that nothing changed, and nothing did; once there is room again the same run posts.
TEST_F(DiskFullTest, APostingRunThatFillsTheDiskSaysSoAndChangesNothing) {
    db_.Conn().Exec("BEGIN");
    for (int id = 1; id <= 400; ++id)
        AddVoucher(id, 2017, 1 + id % 12,
                   {{Rent, Money::FromCents(100 * id), 7}, {Cash, Money::FromCents(-100 * id)}});
    db_.Conn().Exec("COMMIT");
    const std::string before = corvane::testing::CompanyFingerprint(db_);
    const std::int64_t pages = Pragma("page_count");
    db_.Conn().Exec("PRAGMA main.max_page_count = " + std::to_string(pages + 2));

    std::string message;
    try {
        ledger::PostingRun(db_).Run({});
        ADD_FAILURE() << "the run posted into a full disk";
    } catch (const store::FileError& e) {
        message = e.what();
    }
    const std::string folder =
        std::filesystem::path(sqlite3_db_filename(db_.Conn().Handle(), "main"))
            .parent_path()
            .string();
    EXPECT_EQ(message, "Posting was not done: the disk is full (company '" + folder +
                           "'). Nothing was changed.");
    EXPECT_EQ(corvane::testing::CompanyFingerprint(db_), before);
    EXPECT_FALSE(std::filesystem::exists(folder + "/company.DAT-journal"));

    db_.Conn().Exec("PRAGMA main.max_page_count = 1073741823");
    EXPECT_EQ(ledger::PostingRun(db_).Run({}), 400);
    store::Query unposted(db_, "SELECT COUNT(*) AS n FROM JV WHERE NOT Posted");
    unposted.Open();
    EXPECT_EQ(unposted.FieldByName("n").AsInteger(), 0);
}

} // namespace
