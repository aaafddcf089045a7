#include "core/AppFolders.h"
#include "core/Exception.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
#include <stdexcept>
#include <unistd.h>

using corvane::AppFolders;

namespace fs = std::filesystem;

namespace {

// Each test works below a temporary folder of its own, with the environment variables that
// choose the roots set for it and put back afterwards.
class AppFoldersTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "corvane-folders-XXXXXX").string();
        if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
        base_ = pattern;
        for (const char* name : {"HOME", "XDG_DATA_HOME", "TMPDIR"}) {
            const char* value = std::getenv(name);
            saved_.emplace_back(name, value ? std::optional<std::string>(value) : std::nullopt);
        }
    }
    void TearDown() override {
        for (const auto& [name, value] : saved_)
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
        std::error_code ec;
        fs::remove_all(base_, ec);
    }

    static void Set(const char* name, const fs::path& value) { setenv(name, value.c_str(), 1); }
    static void PutFile(const fs::path& path) {
        fs::create_directories(path.parent_path());
        std::ofstream(path) << "in the way";
    }
    static std::string FailureOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const corvane::Exception& e) {
            return e.what();
        }
        return "no failure";
    }

    const fs::path Segments =
        fs::path("Halvern Works") / "Corvane Professional Time Billing" / "2017.8";
    fs::path base_;
    std::vector<std::pair<std::string, std::optional<std::string>>> saved_;
};

TEST_F(AppFoldersTest, SettingsAndDataFoldersLieBelowTheXdgDataFolder) {
    Set("XDG_DATA_HOME", base_ / "xdg");
    Set("HOME", base_ / "home");
    AppFolders folders;
    fs::path expected = base_ / "xdg" / Segments;
    EXPECT_EQ(folders.UserSettingsFolder(), expected);
    EXPECT_EQ(folders.CommonDataFolder(), expected);
    EXPECT_TRUE(fs::is_directory(expected));
    EXPECT_FALSE(fs::exists(base_ / "home"));

    // A second start finds the folders there and leaves what they hold alone.
    std::ofstream(expected / "Corvane.ini") << "[General]\n";
    EXPECT_EQ(folders.UserSettingsFolder(), expected);
    EXPECT_TRUE(fs::exists(expected / "Corvane.ini"));
}

TEST_F(AppFoldersTest, WithoutAnAbsoluteXdgFolderTheHomeFolderIsTheRoot) {
    Set("HOME", base_ / "home");
    unsetenv("XDG_DATA_HOME");
    fs::path expected = base_ / "home" / ".local" / "share" / Segments;
    EXPECT_EQ(AppFolders().UserSettingsFolder(), expected);
    EXPECT_TRUE(fs::is_directory(expected));

    // A relative XDG value would depend on where the program was started from.
    setenv("XDG_DATA_HOME", "relative/xdg", 1);
    EXPECT_EQ(AppFolders().CommonDataFolder(), expected);
}

TEST_F(AppFoldersTest, AStepThatCannotBeMadeNamesItsPath) {
    Set("XDG_DATA_HOME", base_);
    PutFile(base_ / "Halvern Works" / "Corvane Professional Time Billing");
    fs::path blocked = base_ / "Halvern Works" / "Corvane Professional Time Billing";
    EXPECT_EQ(FailureOf([] { AppFolders().UserSettingsFolder(); }),
              "Could not create folder " + blocked.string());

    // The root itself blocked by a file.
    PutFile(base_ / "root-file");
    Set("XDG_DATA_HOME", base_ / "root-file" / "below");
    EXPECT_EQ(FailureOf([] { AppFolders().CommonDataFolder(); }),
              "Could not create folder " + (base_ / "root-file" / "below").string());
}

TEST_F(AppFoldersTest, ThePrivateFolderLiesBelowTheTemporaryFolder) {
    Set("TMPDIR", base_ / "tmp");
    fs::path program = base_ / "bin" / "corvane";
    fs::path expected = base_ / "tmp" / Segments / "Priv";
    EXPECT_EQ(AppFolders().PrivateFolder(program), expected);
    EXPECT_TRUE(fs::is_directory(expected));
    EXPECT_FALSE(fs::exists(base_ / "bin"));
}

TEST_F(AppFoldersTest, ABlockedTemporaryFolderFallsBackBesideTheProgram) {
    Set("TMPDIR", base_ / "tmp");
    PutFile(base_ / "tmp" / "Halvern Works");
    fs::create_directories(base_ / "bin");
    fs::path program = base_ / "bin" / "corvane";
    EXPECT_EQ(AppFolders().PrivateFolder(program), base_ / "bin" / "Priv");
    EXPECT_TRUE(fs::is_directory(base_ / "bin" / "Priv"));

    // When the fallback is blocked as well, start-up ends with the fallback's path.
    fs::path blockedProgram = base_ / "other" / "corvane";
    PutFile(base_ / "other" / "Priv");
    EXPECT_EQ(FailureOf([&] { AppFolders().PrivateFolder(blockedProgram); }),
              "Could not create folder " + (base_ / "other" / "Priv").string());
}

} // namespace
