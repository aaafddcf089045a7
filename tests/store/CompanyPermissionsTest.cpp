#include "support/CompanyFixture.h"

#include "store/tables/CompanyDatabase.h"

#include <fcntl.h>
#include <filesystem>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane::testing {
namespace {

namespace fs = std::filesystem;

constexpr uid_t Nobody = 65534;
constexpr gid_t NoGroup = 65534;

mode_t ModeOf(const std::string& path) {
    struct stat st {};
    EXPECT_EQ(::stat(path.c_str(), &st), 0) << path;
    return st.st_mode & 07777;
}

// Whether another user (nobody, in group gid) can open the file for reading and writing.
bool OtherUserCanOpen(const std::string& path, gid_t gid) {
    const pid_t child = ::fork();
    if (child == 0) {
        if (::setgroups(0, nullptr) != 0 || ::setgid(gid) != 0 || ::setuid(Nobody) != 0) ::_exit(3);
        const int fd = ::open(path.c_str(), O_RDWR);
        ::_exit(fd >= 0 ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 3) << "could not become nobody";
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

class CompanyPermissionsTest : public ::testing::Test {
protected:
    void SetUp() override {
        // The temporary folder itself must let another user through to the company inside.
        fs::permissions(scratch_.Path(),
                        fs::perms::owner_all | fs::perms::others_exec | fs::perms::group_exec);
    }

    // Makes the company, opens it and takes a lock, so that the lock file is there too.
    void Make(const std::string& folder, bool shared) {
        store::tables::CreateCompanyDatabase(folder, shared);
        store::Session session;
        store::Database db(session);
        db.SetDirectory(folder);
        db.Open();
        store::Table users(db, "Users");
        users.Open();
        users.LockTable();
        users.UnlockTable();
    }

    TempFolder scratch_;
};

TEST_F(CompanyPermissionsTest, ACompanyIsItsMakersOwnUnlessShared) {
    const std::string own = scratch_.Path() + "/own";
    const std::string shared = scratch_.Path() + "/shared";
    const mode_t oldMask = ::umask(022);
    Make(own, false);
    Make(shared, true);
    ::umask(oldMask);

    EXPECT_EQ(ModeOf(own), 0700u);
    EXPECT_EQ(ModeOf(own + "/company.DAT"), 0600u);
    EXPECT_EQ(ModeOf(own + "/corvane.LCK"), 0600u);
    EXPECT_EQ(ModeOf(shared), 02770u); // the group bit: files made later take its group
    EXPECT_EQ(ModeOf(shared + "/company.DAT"), 0660u);
    EXPECT_EQ(ModeOf(shared + "/corvane.LCK"), 0660u);

    if (::geteuid() != 0) GTEST_SKIP() << "another user can be tried only as root";
    // The group of the shared company is the one the other user works in.
    for (const auto& path : {shared, shared + "/company.DAT", shared + "/corvane.LCK"})
        ASSERT_EQ(::chown(path.c_str(), ::geteuid(), NoGroup), 0);
    EXPECT_FALSE(OtherUserCanOpen(own + "/company.DAT", NoGroup));
    EXPECT_TRUE(OtherUserCanOpen(shared + "/company.DAT", NoGroup));
    EXPECT_TRUE(OtherUserCanOpen(shared + "/corvane.LCK", NoGroup));
    // Outside the group, the shared company is closed too.
    EXPECT_FALSE(OtherUserCanOpen(shared + "/company.DAT", NoGroup - 1));
}

} // namespace
} // namespace corvane::testing
