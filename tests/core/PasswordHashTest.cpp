#include "core/PasswordHash.h"
#include "core/Exception.h"

#include <gtest/gtest.h>

#include <regex>

using corvane::PasswordHash;

namespace {

// Few rounds keep the tests quick; the rounds are part of the stored value either way.
constexpr int FewRounds = 1000;

// "correct-horse", salt bytes 0 to 15, 1000 rounds, as the standard algorithm gives it elsewhere.
constexpr const char* MadeElsewhere = "pbkdf2-sha256$1000$AAECAwQFBgcICQoLDA0ODw==$"
                                      "9hFfl4V+SoH3+iKQCyAvQ4BJ0DArbGFYpm8il6zl/W4=";

TEST(PasswordHash, TheStoredValueDescribesItself) {
    std::string stored = PasswordHash::Hash("secret", FewRounds);
    EXPECT_TRUE(std::regex_match(
        stored, std::regex(R"(pbkdf2-sha256\$1000\$[A-Za-z0-9+/]{22}==\$[A-Za-z0-9+/]{43}=)")))
        << stored;
    EXPECT_EQ(stored.find("secret"), std::string::npos);
    std::string byDefault = PasswordHash::Hash("secret");
    EXPECT_EQ(byDefault.rfind("pbkdf2-sha256$600000$", 0), 0u) << byDefault;
    EXPECT_TRUE(PasswordHash::Verify("secret", byDefault));
    // A value of fewer rounds than today's is renewed at the next login; today's is not.
    EXPECT_TRUE(PasswordHash::NeedsUpgrade(stored));
    EXPECT_FALSE(PasswordHash::NeedsUpgrade(byDefault));
    EXPECT_FALSE(PasswordHash::NeedsUpgrade(""));
    EXPECT_FALSE(PasswordHash::NeedsUpgrade("plain text"));
}

TEST(PasswordHash, OnlyTheSameTextVerifies) {
    std::string stored = PasswordHash::Hash("Secret 1", FewRounds);
    EXPECT_TRUE(PasswordHash::Verify("Secret 1", stored));
    EXPECT_FALSE(PasswordHash::Verify("secret 1", stored));
    EXPECT_FALSE(PasswordHash::Verify("Secret 1 ", stored));
    EXPECT_FALSE(PasswordHash::Verify("Secret", stored));
    EXPECT_FALSE(PasswordHash::Verify("", stored));
}

TEST(PasswordHash, EachHashHasItsOwnSalt) {
    std::string first = PasswordHash::Hash("same", FewRounds);
    std::string second = PasswordHash::Hash("same", FewRounds);
    EXPECT_NE(first, second);
    EXPECT_TRUE(PasswordHash::Verify("same", first));
    EXPECT_TRUE(PasswordHash::Verify("same", second));
}

TEST(PasswordHash, AValueMadeByTheStandardAlgorithmElsewhereVerifies) {
    EXPECT_TRUE(PasswordHash::Verify("correct-horse", MadeElsewhere));
    EXPECT_FALSE(PasswordHash::Verify("correct-horsE", MadeElsewhere));
    // The rounds are read from the value: the same salt and hash under another count fail.
    std::string otherRounds = MadeElsewhere;
    otherRounds.replace(otherRounds.find("$1000$"), 6, "$1001$");
    EXPECT_FALSE(PasswordHash::Verify("correct-horse", otherRounds));
}

TEST(PasswordHash, NothingStoredMatchesOnlyTheEmptyPassword) {
    EXPECT_TRUE(PasswordHash::Verify("", ""));
    EXPECT_FALSE(PasswordHash::Verify("x", ""));
    // An empty password that was hashed behaves the same way.
    std::string empty = PasswordHash::Hash("", FewRounds);
    EXPECT_TRUE(PasswordHash::Verify("", empty));
    EXPECT_FALSE(PasswordHash::Verify(" ", empty));
}

TEST(PasswordHash, AValueNotInTheFormatNeverMatches) {
    std::string good = MadeElsewhere;
    std::string salt = "AAECAwQFBgcICQoLDA0ODw==";
    std::string hash = "9hFfl4V+SoH3+iKQCyAvQ4BJ0DArbGFYpm8il6zl/W4=";
    const std::vector<std::string> bad = {
        "correct-horse", // a password kept as typed
        "pbkdf2-sha1$1000$" + salt + "$" + hash,
        "pbkdf2-sha256$$" + salt + "$" + hash,
        "pbkdf2-sha256$0$" + salt + "$" + hash,
        "pbkdf2-sha256$-5$" + salt + "$" + hash,
        "pbkdf2-sha256$1e3$" + salt + "$" + hash,
        "pbkdf2-sha256$99999999999$" + salt + "$" + hash,
        "pbkdf2-sha256$1000$" + salt,
        "pbkdf2-sha256$1000$" + salt + "$",
        "pbkdf2-sha256$1000$" + salt + "$" + hash + "$",
        "pbkdf2-sha256$1000$" + salt + "$" + hash.substr(4),
        "pbkdf2-sha256$1000$AAECAwQFBgcICQoL$" + hash, // a 12-byte salt
        "pbkdf2-sha256$1000$" + salt + "$" + hash.substr(0, 40) + "!!!=",
        "PBKDF2-SHA256$1000$" + salt + "$" + hash,
    };
    for (const std::string& stored : bad)
        EXPECT_FALSE(PasswordHash::Verify("correct-horse", stored)) << stored;
    EXPECT_TRUE(PasswordHash::Verify("correct-horse", good));
}

TEST(PasswordHash, RoundsBelowOneAreRefused) {
    EXPECT_THROW(PasswordHash::Hash("x", 0), corvane::Exception);
    EXPECT_THROW(PasswordHash::Hash("x", -1), corvane::Exception);
    EXPECT_TRUE(PasswordHash::Verify("x", PasswordHash::Hash("x", 1)));
}

} // namespace
