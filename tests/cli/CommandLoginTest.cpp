#include "cli/CommandRun.h"
#include "support/CompanyFixture.h"
#include "support/LedgerCompany.h"

#include "core/PasswordHash.h"
#include "store/sql/Connection.h"

#include <cstdlib>

namespace corvane::testing {
namespace {

// A company with two users: ANNE may not post, BOB may post but has no Security right. Their
// passwords were kept with fewer hashing rounds than are used now.
class CommandLoginTest : public CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        LedgerCompanyShape shape;
        shape.Vouchers = 12;
        WriteUnpostedLedger(db_, shape);
        InsertRow("Users", {{"UserName", "ANNE"},
                            {"Password", PasswordHash::Hash("anne-pw", 1000)},
                            {"JVs", false},
                            {"Security", true}});
        InsertRow("Users", {{"UserName", "BOB"},
                            {"Password", PasswordHash::Hash("bob-pw", 1000)},
                            {"JVs", true},
                            {"Security", false}});
        db_.Close();
    }
    void TearDown() override {
        ::unsetenv("CORVANE_PASSWORD");
        CompanyTest::TearDown();
    }

    CommandOutcome Run(std::vector<std::string> words, const char* password) {
        if (password)
            ::setenv("CORVANE_PASSWORD", password, 1);
        else
            ::unsetenv("CORVANE_PASSWORD");
        return RunCli(words);
    }

    std::string Stored(const std::string& sql) {
        db_.Open();
        std::string text;
        {
            // The statement is finished before its connection closes.
            store::Statement s(db_.Conn(), sql);
            s.Step();
            text = s.ColumnNatural(0).kind() == store::Value::Kind::String
                       ? s.ColumnNatural(0).Str()
                       : std::to_string(s.ColumnInt(0));
        }
        db_.Close();
        return text;
    }
};

TEST_F(CommandLoginTest, CommandsOnACompanyWithUsersNeedALoginAndTheMenusRight) {
    const std::string& f = folder_.Path();
    CommandOutcome o = Run({"post", f}, "bob-pw");
    EXPECT_EQ(o.Exit, 1);
    EXPECT_EQ(o.Message, "The company '" + f +
                             "' has users: name one with --user NAME (the password comes from "
                             "CORVANE_PASSWORD or is asked at the terminal).");

    o = Run({"post", f, "--user", "BOB"}, "wrong");
    EXPECT_EQ(o.Exit, 1);
    EXPECT_EQ(o.Message, "Invalid User Name or Password.");
    o = Run({"post", f, "--user", "bob"}, "bob-pw"); // user names are exact
    EXPECT_EQ(o.Message, "Invalid User Name or Password.");

    o = Run({"post", "--user", "ANNE", f}, "anne-pw");
    EXPECT_EQ(o.Exit, 1);
    EXPECT_EQ(o.Message, "ANNE is not allowed access to JVs.");
    EXPECT_EQ(Stored("SELECT count(*) FROM JV WHERE Posted = 1"), "0");

    o = Run({"sql", f, "SELECT count(*) FROM Users", "--user", "BOB"}, "bob-pw");
    EXPECT_EQ(o.Message, "BOB is not allowed access to Security.");

    o = Run({"post", f, "--user", "BOB"}, "bob-pw");
    EXPECT_EQ(o.Exit, 0) << o.Message;
    EXPECT_EQ(Stored("SELECT count(*) FROM JV WHERE Posted = 0"), "0");

    // Each login that matched hashed the password again with today's rounds: BOB's, and ANNE's
    // too, whose login matched although her right was refused.
    EXPECT_EQ(Stored("SELECT Password FROM Users WHERE UserName = 'BOB'")
                  .rfind("pbkdf2-sha256$600000$", 0),
              0u);
    EXPECT_TRUE(PasswordHash::Verify("bob-pw",
                                     Stored("SELECT Password FROM Users WHERE UserName = 'BOB'")));
    EXPECT_EQ(Stored("SELECT Password FROM Users WHERE UserName = 'ANNE'")
                  .rfind("pbkdf2-sha256$600000$", 0),
              0u);

    o = Run({"post", f, "--user"}, "bob-pw");
    EXPECT_EQ(o.Exit, 2);
}

TEST_F(CommandLoginTest, ACompanyWithoutUsersNeedsNoLogin) {
    db_.Open();
    db_.Conn().Exec("DELETE FROM Users");
    db_.Close();
    const CommandOutcome o = Run({"post", folder_.Path()}, nullptr);
    EXPECT_EQ(o.Exit, 0) << o.Message;
}

} // namespace
} // namespace corvane::testing
