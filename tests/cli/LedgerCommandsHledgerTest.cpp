#include "cli/LedgerCommandsCapture.h"
#include "company/sample/SampleCompany.h"
#include "receivables/PaymentFixture.h"
#include "support/CompanyFixture.h"
#include "support/LedgerCompany.h"

#include "core/Money.h"
#include "store/Query.h"
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

// Opening balance and the twelve periods of every year, subaccounts together, by account number.
std::map<std::string, Money> TrialBalance(store::Database& db) {
    std::string sql = "SELECT g.GLAccount, a.OpeningBal";
    for (int period = 1; period <= 12; ++period)
        sql += ", a.Amount" + std::to_string(period);
    sql += " FROM GLActual a JOIN GLAccnt g ON g.GLAccountID = a.GLAccountID";
    store::Statement s(db.Conn(), sql);
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

// hledger's balance of every account of the journal the company exports, by account number;
// rows tells how many accounts hledger printed.
std::map<std::string, Money> HledgerBalances(const std::string& folder, int& rows) {
    std::map<std::string, Money> fromJournal;
    const std::string journal = folder + "/ledger.journal";
    {
        const CommandResult exported = RunCaptured({"export-ledger", folder});
        EXPECT_EQ(exported.Exit, 0);
        std::ofstream(journal) << exported.Out;
    }
    int status = 0;
    const std::string csv =
        Output("hledger -f '" + journal + "' balance --flat --no-total -O csv 2>&1", status);
    EXPECT_EQ(status, 0) << csv;
    std::stringstream lines(csv);
    std::string line;
    EXPECT_TRUE(std::getline(lines, line));
    EXPECT_EQ(CsvFields(line), (std::vector<std::string>{"account", "balance"}));
    rows = 0;
    while (std::getline(lines, line)) {
        if (line.empty()) continue;
        const auto fields = CsvFields(line);
        EXPECT_EQ(fields.size(), 2u) << line;
        if (fields.size() != 2) continue;
        const auto amount = ExactAmount(fields[1]);
        EXPECT_TRUE(amount) << "not an exact amount: " << line;
        if (amount) fromJournal[AccountNumber(fields[0])] += *amount;
        ++rows;
    }
    return fromJournal;
}

// Both sides read a missing account as 0, since hledger leaves out what nets to nothing.
// Returns how many accounts hold an amount.
int ExpectSameBalances(const std::map<std::string, Money>& totals,
                       const std::map<std::string, Money>& fromJournal) {
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
    return nonZero;
}

class LedgerCommandsHledgerTest : public CompanyTest {};

TEST_F(LedgerCommandsHledgerTest, HledgerBalancesEqualTheTotalsOfEveryAccount) {
    if (!OnPath("hledger"))
        GTEST_SKIP() << "hledger is not installed (scripts/setup installs it); the exported "
                        "journal is not compared";
    LedgerCompanyShape shape;
    ASSERT_EQ(WritePostedLedger(db_, shape), shape.Vouchers);

    int rows = 0;
    const std::map<std::string, Money> fromJournal = HledgerBalances(folder_.Path(), rows);
    // Subaccounts stand apart in the journal, so there are more rows than accounts.
    EXPECT_GT(rows, shape.Accounts);
    const std::map<std::string, Money> totals = TrialBalance(db_);
    ASSERT_EQ(totals.size(), static_cast<std::size_t>(shape.Accounts));
    const int nonZero = ExpectSameBalances(totals, fromJournal);
    EXPECT_GT(nonZero, shape.Accounts / 2);
}

class InvoiceCommandsTest : public InvoiceTest {};

// Invoices in both currencies, with stock, time, a credit note and a payment at the point of
// sale, posted by the command line through both runs: the checks pass and hledger's reading of
// the exported ledger agrees with the totals.
TEST_F(InvoiceCommandsTest, PostedInvoicesPassTheChecksAndHledgerAgreesWithTheTotals) {
    AddInvoice(1, Local, {{2, C(5000), Service}, {3, C(2000), Widget}});
    AddInvoice(2, Abroad, {{1, C(10001), Service}, {1.5, C(1250), Gadget}});
    AddInvoice(3, Local, {{-1, C(2000), Widget}, {2, C(9000), 0, Design}});
    AddInvoice(4, Local, {{1, C(10000), Service}}, true, C(11300), 2, "553");
    AddInvoice(5, Local, {{1, C(10000), Service}}, false);
    const CommandResult posted = RunCaptured({"post", folder_.Path()});
    EXPECT_EQ(posted.Exit, 0) << posted.Err;
    EXPECT_EQ(posted.Out, "4 invoice(s) posted\n0 payment(s) posted\n5 JV(s) posted\n");
    EXPECT_EQ(RunCaptured({"check", folder_.Path()}).Out, "ledger ok\nreceivables ok\n");

    // A customer's balance that no longer matches its invoices is named.
    store::Statement(db_.Conn(), "UPDATE CBalance SET Balance = Balance + 100 WHERE CustomerID = 2")
        .Step();
    const CommandResult tampered = RunCaptured({"check", folder_.Path()});
    EXPECT_EQ(tampered.Exit, 1);
    EXPECT_EQ(tampered.Out, "customer 2: balance 124.7100, posted invoices owe 124.7000, "
                            "difference 0.0100\n");
    store::Statement(db_.Conn(), "UPDATE CBalance SET Balance = Balance - 100 WHERE CustomerID = 2")
        .Step();

    if (!OnPath("hledger"))
        GTEST_SKIP() << "hledger is not installed (scripts/setup installs it); the exported "
                        "journal is not compared";
    int rows = 0;
    const auto fromJournal = HledgerBalances(folder_.Path(), rows);
    EXPECT_GT(ExpectSameBalances(TrialBalance(db_), fromJournal), 6);
}

class PaymentCommandsTest : public PaymentTest {};

// Invoices posted, then paid in both currencies: in full with a discount, in part, with a
// write-off and over the amount. Each run of the command posts what waits; afterwards every
// invoice owes what its totals leave, the checks pass, and hledger agrees with the totals.
TEST_F(PaymentCommandsTest, PostedPaymentsPassTheChecksAndHledgerAgreesWithTheTotals) {
    AddInvoice(1, Local, {{2, C(5000), Service}, {3, C(2000), Widget}});
    AddInvoice(2, Abroad, {{1, C(10001), Service}, {1.5, C(1250), Gadget}});
    AddInvoice(3, Local, {{1, C(10000), Service}});
    Exec("UPDATE ARInv SET DiscPC = 2, DiscDays = 30");
    CommandResult posted = RunCaptured({"post", folder_.Path()});
    ASSERT_EQ(posted.Exit, 0) << posted.Err;
    // 176.00 less 2%; 124.70 abroad in part with a write-off of 20.00; 113.00 paid over.
    AddPayment(1, Local, C(17248 + 12000), "553");
    AddLine(1, 1, 1, C(17248), C(352));
    AddLine(1, 3, 2, C(12000));
    AddPayment(2, Abroad, C(10000), "E7");
    AddLine(2, 2, 1, C(10000), {}, C(2000));
    posted = RunCaptured({"post", folder_.Path()});
    EXPECT_EQ(posted.Exit, 0) << posted.Err;
    EXPECT_EQ(posted.Out, "0 invoice(s) posted\n2 payment(s) posted\n2 JV(s) posted\n");
    EXPECT_EQ(Owing(1), Money());
    EXPECT_EQ(Owing(2), C(12470 - 12000));
    EXPECT_EQ(Owing(3), -C(700));
    EXPECT_EQ(RunCaptured({"check", folder_.Path()}).Out, "ledger ok\nreceivables ok\n");

    // An invoice whose Owing no longer follows from its totals is named.
    Exec("UPDATE ARInv SET Owing = Owing + 100 WHERE ARInvoiceID = 1");
    const CommandResult tampered = RunCaptured({"check", folder_.Path()});
    EXPECT_EQ(tampered.Exit, 1);
    EXPECT_NE(tampered.Out.find("invoice 1001: owing 0.0100, amount less paid, discount and "
                                "write-off 0.0000, difference 0.0100\n"),
              std::string::npos)
        << tampered.Out;
    Exec("UPDATE ARInv SET Owing = Owing - 100 WHERE ARInvoiceID = 1");

    if (!OnPath("hledger"))
        GTEST_SKIP() << "hledger is not installed (scripts/setup installs it); the exported "
                        "journal is not compared";
    int rows = 0;
    const auto fromJournal = HledgerBalances(folder_.Path(), rows);
    EXPECT_GT(ExpectSameBalances(TrialBalance(db_), fromJournal), 6);
}

class SampleTimeCommandsTest : public CompanyTest {
protected:
    std::int64_t Count(const std::string& sql) {
        store::Query q(db_, sql);
        q.Open();
        return q.FieldByName("n").AsInteger();
    }
    void Exec(const std::string& sql) { store::Statement(db_.Conn(), sql).Step(); }
};

// The sample company's time, billed by AutoCreate, printed and then posted by the command line
// with the rest of what waits: the checks pass and hledger agrees with the totals.
TEST_F(SampleTimeCommandsTest, BilledTimePostedPassesTheChecksAndHledgerAgreesWithTheTotals) {
    company::GenerateSampleCompany(db_);
    const std::string timeInvoices = "SELECT COUNT(*) AS n FROM ARInv WHERE TimeInvoice = true";
    ASSERT_GT(Count(timeInvoices), 0);
    Exec("UPDATE ARInv SET Printed = true WHERE TimeInvoice = true");
    const CommandResult posted = RunCaptured({"post", folder_.Path()});
    EXPECT_EQ(posted.Exit, 0) << posted.Err;
    EXPECT_EQ(Count(timeInvoices + " AND Posted = false"), 0);
    const CommandResult checked = RunCaptured({"check", folder_.Path()});
    EXPECT_EQ(checked.Exit, 0) << checked.Out << checked.Err;
    EXPECT_EQ(checked.Out.rfind("ledger ok\nreceivables ok\n", 0), 0u) << checked.Out;

    if (!OnPath("hledger"))
        GTEST_SKIP() << "hledger is not installed (scripts/setup installs it); the exported "
                        "journal is not compared";
    int rows = 0;
    const auto fromJournal = HledgerBalances(folder_.Path(), rows);
    EXPECT_GT(ExpectSameBalances(TrialBalance(db_), fromJournal), 6);
}

} // namespace
} // namespace corvane::testing
