#include "support/CompanyFixture.h"

#include "store/Query.h"
#include "store/tables/CompanyDatabase.h"

#include <filesystem>

namespace corvane::testing {
namespace {

namespace fs = std::filesystem;

// Runs the test inside a folder of its own, so that relative company folders land there.
class RelativeFolderTest : public ::testing::Test {
protected:
    void SetUp() override {
        previous_ = fs::current_path();
        fs::current_path(scratch_.Path());
    }
    void TearDown() override { fs::current_path(previous_); }

    TempFolder scratch_;
    fs::path previous_;
};

// A folder whose name begins with "file:" is a folder like any other: the company is made in
// it, opened from it, and its lock file lies beside its data, not somewhere a URI points to.
TEST_F(RelativeFolderTest, AFolderNamedLikeAUriIsAPath) {
    fs::create_directory("abc");
    store::tables::CreateCompanyDatabase("file:abc");
    EXPECT_TRUE(fs::exists(scratch_.Path() + "/file:abc/company.DAT"));
    EXPECT_FALSE(fs::exists("abc/company.DAT"));

    store::Session session;
    store::Database db(session);
    db.SetDirectory("file:abc");
    db.Open();
    store::Table users(db, "Users");
    users.Open();
    users.Insert();
    users.FieldByName("UserName").SetAsString("ANNE");
    users.Post();
    users.LockTable();
    EXPECT_TRUE(fs::exists(scratch_.Path() + "/file:abc/corvane.LCK"));
    EXPECT_FALSE(fs::exists("abc/corvane.LCK"));
    users.UnlockTable();
    db.Close();
    EXPECT_EQ(fs::directory_iterator("abc"), fs::directory_iterator());

    // A folder "abc" of its own is not what "file:abc" reads.
    store::tables::CreateCompanyDatabase("abc");
    store::Database other(session);
    other.SetDirectory("file:abc");
    other.Open();
    store::Query q(other, "SELECT count(*) AS N FROM Users");
    q.Open();
    EXPECT_EQ(q.FieldByName("N").AsInteger(), 1);
}

} // namespace
} // namespace corvane::testing
