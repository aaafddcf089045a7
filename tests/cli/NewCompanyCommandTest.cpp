#include "cli/NewCompanyCommand.h"
#include "cli/Commands.h"
#include "core/Date.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyDatabase.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace corvane::cli {
namespace {

namespace fs = std::filesystem;

class NewCompanyCommandTest : public ::testing::Test {
protected:
    int Run(std::vector<std::string> args) {
        out_.str({});
        err_.str({});
        return NewCompany(args, out_, err_);
    }
    // The one value of the query on the company at folder.
    static std::string Value(const std::string& folder, const std::string& sql) {
        store::Session session;
        store::Database db(session);
        db.SetDirectory(folder);
        db.Open();
        store::Statement s(db.Conn(), sql);
        return s.Step() ? s.ColumnNatural(0).DebugString() : "<no row>";
    }

    testing::TempFolder temp_;
    std::string folder_ = temp_.Path() + "/acme";
    std::ostringstream out_, err_;
};

TEST_F(NewCompanyCommandTest, MakesTheFolderTablesAndTheWizardsRows) {
    ASSERT_EQ(Run({folder_, "--name", "Acme Tools", "--year", "2050", "--currency", "Rand",
                   "--bank", "Operating Account", "--tax", "VAT:15"}),
              0)
        << err_.str();
    EXPECT_EQ(out_.str(), "Company 'Acme Tools' made in " + folder_ + "\n");
    EXPECT_EQ(Value(folder_, "SELECT CompanyName || '/' || FiscalYear || '/' || DfltTax1ID "
                             "FROM Company"),
              "'Acme Tools/2050/1'");
    EXPECT_EQ(Value(folder_, "SELECT COUNT(*) FROM GLAccnt"), "44");
    EXPECT_EQ(Value(folder_, "SELECT AccountName FROM GLAccnt WHERE GLAccountID = 1"),
              "'Operating Account'");
    EXPECT_EQ(Value(folder_, "SELECT TaxName || ':' || Rate || ':' || TaxCode FROM Tax"),
              "'VAT:15.0:V'");
    EXPECT_EQ(Value(folder_, "SELECT CurrencyName FROM Currency"), "'Rand'");
}

TEST_F(NewCompanyCommandTest, NameAndYearHaveDefaultsAndATaxIsOptional) {
    ASSERT_EQ(Run({folder_, "--currency", "US Dollars", "--bank", "Checking"}), 0) << err_.str();
    EXPECT_EQ(Value(folder_, "SELECT CompanyName || '/' || FiscalYear FROM Company"),
              "'New Company/" + std::to_string(Date::Today().Year()) + "'");
    EXPECT_EQ(Value(folder_, "SELECT COUNT(*) FROM Tax"), "0");
    EXPECT_EQ(Value(folder_, "SELECT DfltTax1ID FROM Company"), "null");
}

TEST_F(NewCompanyCommandTest, AnAnswerAPageRefusesEndsWithItsMessageAndMakesNothing) {
    struct Case {
        std::vector<std::string> Options;
        std::string Message;
    };
    const std::vector<Case> cases = {
        {{"--name", "", "--currency", "Rand", "--bank", "B"},
         "Field 'Company Name' must have a value"},
        {{"--year", "2051", "--currency", "Rand", "--bank", "B"},
         "Fiscal Year must be between 1990 and 2050"},
        {{"--year", "twenty", "--currency", "Rand", "--bank", "B"},
         "Fiscal Year must be between 1990 and 2050"},
        {{"--currency", "Rand"}, "Field 'Bank Name' must have a value"},
        {{"--bank", "B"}, "Field 'Currency Name' must have a value"},
        {{"--currency", "Rand", "--bank", "B", "--tax", "VAT"},
         "Field 'Rate' must have a value (if tax name entered)"},
        {{"--currency", "Rand", "--bank", "B", "--tax", ":15"},
         "Field 'Tax Name' must have a value (if rate entered)"},
        {{"--currency", "Rand", "--bank", "B", "--tax", "VAT:x"},
         "'x' is not a valid floating point value for field 'Rate'"},
    };
    for (const Case& c : cases) {
        std::vector<std::string> args{folder_};
        args.insert(args.end(), c.Options.begin(), c.Options.end());
        EXPECT_EQ(Run(args), 1) << c.Message;
        EXPECT_EQ(err_.str(), c.Message + "\n");
        EXPECT_FALSE(fs::exists(folder_)) << c.Message;
    }
}

TEST_F(NewCompanyCommandTest, AFailureWhileMakingTheRowsTakesBackWhatWasMade) {
    // A currency name longer than its field passes the pages' checks but not the table's.
    const std::string longName(60, 'C');
    EXPECT_EQ(Run({folder_, "--currency", longName, "--bank", "B"}), 1);
    EXPECT_FALSE(err_.str().empty());
    EXPECT_FALSE(fs::exists(folder_));

    // In a folder that was there before, only what the run made goes.
    fs::create_directories(folder_);
    std::ofstream(folder_ + "/notes.txt") << "kept";
    EXPECT_EQ(Run({folder_, "--currency", longName, "--bank", "B"}), 1);
    std::vector<std::string> left;
    for (const auto& entry : fs::directory_iterator(folder_))
        left.push_back(entry.path().filename().string());
    EXPECT_EQ(left, std::vector<std::string>{"notes.txt"});
}

TEST_F(NewCompanyCommandTest, AFolderThatHoldsACompanyIsLeftAlone) {
    store::tables::CreateCompanyDatabase(folder_);
    EXPECT_EQ(Run({folder_, "--currency", "Rand", "--bank", "B"}), 1);
    EXPECT_EQ(err_.str(), "The folder '" + folder_ + "' already contains a database.\n");
    EXPECT_TRUE(fs::exists(fs::path(folder_) / std::string(store::Database::MarkFileName)));
    EXPECT_EQ(Value(folder_, "SELECT COUNT(*) FROM GLAccnt"), "0");
}

TEST_F(NewCompanyCommandTest, AMalformedLineIsAUsageErrorThroughTheCommandDispatch) {
    EXPECT_EQ(Run({}), 2);
    EXPECT_EQ(Run({folder_, "--bank"}), 2);
    EXPECT_EQ(Run({folder_, "--size", "100"}), 2) << "a size is for the sample only";
    EXPECT_EQ(Run({folder_, "--sample", "--size", "0"}), 2);
    EXPECT_EQ(Run({folder_, "other", "--bank", "B"}), 2);
    EXPECT_NE(err_.str().find("usage: corvane-cli new-company FOLDER"), std::string::npos);
    EXPECT_FALSE(fs::exists(folder_));
    // The program's own command line reaches the same command.
    EXPECT_EQ(RunCommand({"new-company", folder_, "--currency", "Rand", "--bank", "B"}), 0);
    EXPECT_EQ(Value(folder_, "SELECT COUNT(*) FROM Customer"), "1");
}

// A company is its maker's own; --shared opens the folder and its files to the maker's group.
TEST_F(NewCompanyCommandTest, SharedOpensTheCompanyToTheGroup) {
    EXPECT_EQ(Run({folder_, "--shared", "--currency", "Rand", "--bank", "B"}), 0) << err_.str();
    const auto folder = fs::status(folder_).permissions();
    const auto data = fs::status(fs::path(folder_) / "company.DAT").permissions();
    EXPECT_EQ(folder & fs::perms::group_all, fs::perms::group_all);
    EXPECT_EQ(data & fs::perms::all, fs::perms::owner_read | fs::perms::owner_write |
                                         fs::perms::group_read | fs::perms::group_write);
    const std::string own = folder_ + "-own";
    EXPECT_EQ(Run({own, "--currency", "Rand", "--bank", "B"}), 0) << err_.str();
    EXPECT_EQ(fs::status(own).permissions() & fs::perms::all, fs::perms::owner_all);
    fs::remove_all(own);
}

TEST_F(NewCompanyCommandTest, TheSampleCompanyComesOfTheSizeAsked) {
    EXPECT_EQ(Run({folder_, "--sample", "--size", "240"}), 0);
    EXPECT_EQ(Value(folder_, "SELECT CompanyName FROM Company"), "'Sample Data Company'");
    // The size counts the ledger's own vouchers; the quarter's sales add theirs.
    EXPECT_EQ(Value(folder_, "SELECT COUNT(*) FROM JV WHERE Source = 'GL'"), "240");
    EXPECT_NE(out_.str().find("254 vouchers"), std::string::npos) << out_.str();
}

} // namespace
} // namespace corvane::cli
