#include "core/SystemUser.h"

#include <gtest/gtest.h>

#include <pwd.h>
#include <unistd.h>

using corvane::PickLoginName;

namespace {

TEST(SystemUser, TheLoginNameIsCutTo31Characters) {
    std::string exact(31, 'a');
    EXPECT_EQ(PickLoginName(exact.c_str(), nullptr, nullptr), exact);
    std::string longer = std::string(31, 'b') + "cdefgh";
    EXPECT_EQ(PickLoginName(longer.c_str(), nullptr, nullptr), std::string(31, 'b'));
    EXPECT_EQ(PickLoginName(nullptr, longer.c_str(), nullptr), std::string(31, 'b'));
}

TEST(SystemUser, TheCutDoesNotSplitACharacter) {
    // 30 letters and an e-acute of two bytes: the acute would straddle the cut.
    std::string name = std::string(30, 'x') + "\xC3\xA9" + "z";
    EXPECT_EQ(PickLoginName(name.c_str(), nullptr, nullptr), std::string(30, 'x'));
    // Ending exactly at the limit, the character stays.
    std::string fits = std::string(29, 'x') + "\xC3\xA9" + "z";
    EXPECT_EQ(PickLoginName(fits.c_str(), nullptr, nullptr), std::string(29, 'x') + "\xC3\xA9");
}

TEST(SystemUser, TheAccountNameWinsThenUserThenLogname) {
    EXPECT_EQ(PickLoginName("alice", "bob", "carol"), "alice");
    EXPECT_EQ(PickLoginName(nullptr, "bob", "carol"), "bob");
    EXPECT_EQ(PickLoginName("", "", "carol"), "carol");
    EXPECT_EQ(PickLoginName(nullptr, nullptr, nullptr), "");
    EXPECT_EQ(PickLoginName("", "", ""), "");
}

TEST(SystemUser, TheCurrentUserIsTheEffectiveAccount) {
    const passwd* pw = getpwuid(geteuid());
    ASSERT_NE(pw, nullptr);
    std::string expected = std::string(pw->pw_name).substr(0, corvane::MaxLoginNameLength);
    EXPECT_EQ(corvane::CurrentWindowsUser(), expected);
}

} // namespace
