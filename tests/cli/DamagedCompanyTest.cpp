#include "cli/CommandRun.h"
#include "support/CompanyFixture.h"
#include "support/LedgerCompany.h"

#include "store/Database.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

namespace corvane::testing {
namespace {

namespace fs = std::filesystem;

// A company of posted vouchers, closed, then damaged as a failing disk or a copy
// cut short would damage it. Every command then stops with the system's message and a failing
// exit, and none of them writes a byte to the damaged file.
class DamagedCompanyTest : public CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        LedgerCompanyShape shape;
        shape.Vouchers = 400;
        WritePostedLedger(db_, shape);
        db_.Close();
        data_ = folder_.Path() + "/company.DAT";
        report_ = folder_.Path() + "/report.txt";
    }

    std::string Contents() const {
        std::ifstream in(data_, std::ios::binary);
        std::stringstream all;
        all << in.rdbuf();
        return all.str();
    }

    // Each command on the damaged company: the message that starts with expected, exit 1, the
    // file exactly as it was and no journal left beside it.
    void ExpectEveryCommandRefuses(const std::string& expected) {
        const std::string before = Contents();
        const std::string& f = folder_.Path();
        const std::vector<std::vector<std::string>> commands{
            {"post", f},          {"check", f},
            {"tables", f},        {"sql", f, "SELECT count(*) FROM GLHist"},
            {"export-ledger", f}, {"report", f, "Users", "--text", report_}};
        for (const auto& words : commands) {
            const CommandOutcome outcome = RunCli(words);
            EXPECT_EQ(outcome.Exit, 1) << words[0];
            EXPECT_EQ(outcome.Message.rfind(expected, 0), 0u)
                << words[0] << ": " << outcome.Message;
            EXPECT_TRUE(Contents() == before) << words[0] << " wrote to the damaged file";
            EXPECT_FALSE(fs::exists(data_ + "-journal")) << words[0];
        }
        EXPECT_FALSE(fs::exists(report_));
    }

    std::string Corrupt() const {
        return "Table data of company '" + folder_.Path() +
               "' is corrupt (company.DAT).\nNothing was changed. Repair the company through "
               "Menu File | General | Pack/Repair, or restore it from a backup.";
    }

    std::string data_, report_;
};

TEST_F(DamagedCompanyTest, PagesOverwrittenWithGarbage) {
    const auto size = fs::file_size(data_);
    const std::uintmax_t pages = size / 4096;
    ASSERT_GT(pages, 20u);
    std::mt19937 random(20179);
    {
        std::fstream file(data_, std::ios::binary | std::ios::in | std::ios::out);
        for (int i = 0; i < 3; ++i) {
            const std::uintmax_t page = 2 + random() % (pages - 2);
            std::string garbage(4096, '\0');
            for (char& c : garbage)
                c = static_cast<char>(random());
            file.seekp(static_cast<std::streamoff>(page * 4096));
            file.write(garbage.data(), static_cast<std::streamsize>(garbage.size()));
        }
    }
    ExpectEveryCommandRefuses(Corrupt());
}

TEST_F(DamagedCompanyTest, FileCutShort) {
    fs::resize_file(data_, fs::file_size(data_) / 2);
    ExpectEveryCommandRefuses(Corrupt());
}

TEST_F(DamagedCompanyTest, ZeroLengthFileIsNotACompany) {
    fs::resize_file(data_, 0);
    ExpectEveryCommandRefuses("The folder '" + folder_.Path() +
                              "' is not a company database: its company.DAT is empty");
}

} // namespace
} // namespace corvane::testing
