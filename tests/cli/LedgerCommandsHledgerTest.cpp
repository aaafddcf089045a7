#include "cli/LedgerCommandsCapture.h"
#include "support/CompanyFixture.h"
#include "support/LedgerCompany.h"

#include "core/Money.h"
#include "store/sql/Connection.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace corvane::testing {
namespace {

bool OnPath(const std::string& program) {
    const char* path = std::getenv("PATH");
    std::stringstream dirs(path ? path : "");
    for (std::string dir; std::getline(dirs, dir, ':');)
        if (!dir.empty() && access((dir + "/" + program).c_str(), X_OK) == 0) return true;
    return false;
}

// Standard output of a command line built from the test's own paths.
std::string Output(const std::string& command, int& status) {
    std::string text;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) {
        status = -1;
        return text;
    }
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        text.append(buffer, n);
    status = pclose(pipe);
    return text;
}

// Exactly "-123.4567" and its shorter forms; anything else, such as a commodity or a digit
// group mark, is no amount here.
std::optional<Money> ExactAmount(const std::string& text) {
    std::size_t i = 0;
    const bool negative = !text.empty() && text[0] == '-';
    if (negative) ++i;
    std::int64_t whole = 0, fraction = 0;
    int digits = 0, decimals = 0;
    for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i, ++digits)
        whole = whole * 10 + (text[i] - '0');
    if (i < text.size() && text[i] == '.')
        for (++i; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]));
             ++i, ++decimals)
            fraction = fraction * 10 + (text[i] - '0');
    if (i != text.size() || digits == 0 || decimals > 4) return std::nullopt;
    for (int d = decimals; d < 4; ++d)
        fraction *= 10;
    const std::int64_t units = whole * Money::Scale + fraction;
    return Money::FromUnits(negative ? -units : units);
}

// The fields of one line of hledger's CSV: each quoted, quotes inside doubled.
std::vector<std::string> CsvFields(const std::string& line) {
    std::vector<std::string> fields;
    std::string field;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (quoted && c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
            field += '"';
            ++i;
        } else if (c == '"') {
            quoted = !quoted;
        } else if (c == ',' && !quoted) {
            fields.push_back(field);
            field.clear();
        } else if (c != '\r') {
            field += c;
        }
    }
    fields.push_back(field);
    return fields;
}

// The journal names an account "number name" or "number-sub... name - subname": the number
// is all that tells the account itself.
std::string AccountNumber(const std::string& journalName) {
    return journalName.substr(0, journalName.find_first_of(" -"));
}

class LedgerCommandsHledgerTest : public CompanyTest {
protected:
    // Opening balance and the twelve periods of every year, subaccounts together, by account
    // number.
    std::map<std::string, Money> TrialBalance() {
        std::string sql = "SELECT g.GLAccount, a.OpeningBal";
        for (int period = 1; period <= 12; ++period)
            sql += ", a.Amount" + std::to_string(period);
        sql += " FROM GLActual a JOIN GLAccnt g ON g.GLAccountID = a.GLAccountID";
        store::Statement s(db_.Conn(), sql);
        std::map<std::string, Money> balances;
        while (s.Step()) {
            Money& balance = balances[s.ColumnValue(0, store::FieldType::String).Str()];
            for (int column = 1; column <= 13; ++column) {
                store::Value v = s.ColumnValue(column, store::FieldType::Currency);
                if (!v.IsNull()) balance += v.Money();
            }
        }
        return balances;
    }
};

TEST_F(LedgerCommandsHledgerTest, HledgerBalancesEqualTheTotalsOfEveryAccount) {
    if (!OnPath("hledger"))
        GTEST_SKIP() << "hledger is not installed (scripts/setup installs it); the exported "
                        "journal is not compared";
    LedgerCompanyShape shape;
    ASSERT_EQ(WritePostedLedger(db_, shape), shape.Vouchers);

    const std::string journal = folder_.Path() + "/ledger.journal";
    {
        const CommandResult exported = RunCaptured({"export-ledger", folder_.Path()});
        ASSERT_EQ(exported.Exit, 0);
        std::ofstream(journal) << exported.Out;
    }
    int status = 0;
    const std::string csv =
        Output("hledger -f '" + journal + "' balance --flat --no-total -O csv 2>&1", status);
    ASSERT_EQ(status, 0) << csv;

    std::map<std::string, Money> fromJournal;
    std::stringstream lines(csv);
    std::string line;
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_EQ(CsvFields(line), (std::vector<std::string>{"account", "balance"}));
    int rows = 0;
    while (std::getline(lines, line)) {
        if (line.empty()) continue;
        const auto fields = CsvFields(line);
        ASSERT_EQ(fields.size(), 2u) << line;
        const auto amount = ExactAmount(fields[1]);
        ASSERT_TRUE(amount) << "not an exact amount: " << line;
        fromJournal[AccountNumber(fields[0])] += *amount;
        ++rows;
    }
    // Subaccounts stand apart in the journal, so there are more rows than accounts.
    EXPECT_GT(rows, shape.Accounts);

    const std::map<std::string, Money> totals = TrialBalance();
    ASSERT_EQ(totals.size(), static_cast<std::size_t>(shape.Accounts));
    // hledger leaves out what nets to nothing; both sides read a missing account as 0.
    std::map<std::string, Money> all = totals;
    for (const auto& [account, amount] : fromJournal)
        all.emplace(account, Money());
    int nonZero = 0;
    for (const auto& [account, unused] : all) {
        const Money fromTotals = totals.count(account) ? totals.at(account) : Money();
        const Money journalBalance = fromJournal.count(account) ? fromJournal.at(account) : Money();
        EXPECT_EQ(journalBalance.ToString(), fromTotals.ToString()) << "account " << account;
        if (!fromTotals.IsZero()) ++nonZero;
    }
    EXPECT_GT(nonZero, shape.Accounts / 2);
}

} // namespace
} // namespace corvane::testing
