#include "cli/ReportCommand.h"
#include "LedgerCommandsCapture.h"
#include "core/Exception.h"
#include "core/PasswordHash.h"
#include "reports/engine/TQRLabel.h"
#include "reports/run/ReportRegistry.h"
#include "reports/run/TrptBase.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/Table.h"
#include "store/tables/CompanyDatabase.h"
#include "support/CompanyFixture.h"
#include "support/SheetXml.h"

#include <gtest/gtest.h>
#include <regex>

#include <cstdlib>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace corvane::cli {
namespace {

namespace fs = std::filesystem;

// What a command line prints when run as the program runs it.
std::string ProgramOutput(const std::string& commandLine) {
    std::string output;
    if (FILE* pipe = popen(commandLine.c_str(), "r")) {
        char buffer[256];
        while (std::fgets(buffer, sizeof buffer, pipe))
            output += buffer;
        pclose(pipe);
    }
    return output;
}

std::string FileText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

// A company with its Company row and the given number of users, "user001"...
class ReportCommandTest : public ::testing::Test {
protected:
    void MakeCompany(int users) {
        store::tables::CreateCompanyDatabase(folder_);
        store::Session session;
        store::Database db(session);
        db.SetDirectory(folder_);
        db.Open();
        store::Table company(db, "Company");
        company.Open();
        company.Append();
        company.FieldByName("CompanyNo").SetAsInteger(1);
        company.FieldByName("CompanyName").SetAsString("Quayside Chandlers");
        company.FieldByName("FiscalYear").SetAsInteger(2017);
        company.Post();
        store::Table table(db, "Users");
        table.Open();
        for (int i = 1; i <= users; ++i) {
            std::string number = "00" + std::to_string(i);
            table.Append();
            table.FieldByName("UserName").SetAsString("user" + number.substr(number.size() - 3));
            table.FieldByName("Password")
                .SetAsString(PasswordHash::Hash("secret" + std::to_string(i), 1000));
            table.FieldByName("Security").SetAsBoolean(i == 1);
            table.Post();
        }
    }
    testing::CommandResult Report(std::vector<std::string> args) {
        // The company has users: the command logs in as the one who may see them.
        args.insert(args.begin(), "report");
        args.insert(args.end(), {"--user", "user001"});
        ::setenv("CORVANE_PASSWORD", "secret1", 1);
        testing::CommandResult result = testing::RunCaptured(args);
        ::unsetenv("CORVANE_PASSWORD");
        return result;
    }

    testing::TempFolder temp_;
    std::string folder_ = temp_.Path() + "/quayside";
    std::string pdf_ = temp_.Path() + "/users.pdf";
    std::string text_ = temp_.Path() + "/users.txt";
};

TEST_F(ReportCommandTest, WritesEveryPageOfTheUsersReportAsPdfAndAsText) {
    MakeCompany(120);
    auto result = Report({folder_, "Users", "--pdf", pdf_});
    ASSERT_EQ(result.Exit, 0) << result.Err;
    EXPECT_EQ(result.Err, "3 page(s) written to " + pdf_ + "\n");
    EXPECT_EQ(result.Out, "");
    EXPECT_NE(ProgramOutput("pdfinfo '" + pdf_ + "'").find("Pages:           3\n"),
              std::string::npos);
    const std::string pdfText = ProgramOutput("pdftotext -layout '" + pdf_ + "' -");
    EXPECT_NE(pdfText.find("Quayside Chandlers"), std::string::npos) << pdfText;
    EXPECT_NE(pdfText.find("Page 3 of 3"), std::string::npos) << pdfText;
    EXPECT_NE(pdfText.find("user120"), std::string::npos) << pdfText;

    result = Report({folder_, "Users", "--text", text_});
    ASSERT_EQ(result.Exit, 0) << result.Err;
    EXPECT_EQ(result.Err, "3 page(s) written to " + text_ + "\n");
    const std::string text = FileText(text_);
    EXPECT_NE(text.find("Quayside Chandlers"), std::string::npos) << text;
    EXPECT_NE(text.find("user002"), std::string::npos) << text;
    EXPECT_NE(text.find("Page 2 of 3"), std::string::npos) << text;
    EXPECT_EQ(text.find("secret"), std::string::npos) << text;
}

TEST_F(ReportCommandTest, WritesTheUsersReportAsAWorkbookOfItsLines) {
    MakeCompany(120);
    const std::string xlsx = temp_.Path() + "/users.xlsx";
    auto result = Report({folder_, "Users", "--xlsx", xlsx});
    ASSERT_EQ(result.Exit, 0) << result.Err;
    EXPECT_EQ(result.Err, "3 page(s) written to " + xlsx + "\n");
    const auto cells = testing::SheetCells(xlsx);
    std::string users;
    int rows = 0;
    for (const auto& [ref, cell] : cells) {
        if (cell.value.rfind("user", 0) == 0) {
            users += cell.value + " ";
            ++rows;
        }
        EXPECT_EQ(cell.value.find("Page "), std::string::npos) << ref;
    }
    EXPECT_EQ(rows, 120) << users;
    EXPECT_NE(users.find("user120"), std::string::npos) << users;
}

// "-" is standard output: it holds the report alone, from its first line, and the count of
// pages goes to standard error.
TEST_F(ReportCommandTest, AReportToStandardOutputIsTheReportAlone) {
    MakeCompany(120);
    auto result = Report({folder_, "Users", "--text", "-"});
    ASSERT_EQ(result.Exit, 0) << result.Err;
    EXPECT_EQ(result.Err, "3 page(s) written to standard output\n");
    Report({folder_, "Users", "--text", text_});
    // The two runs may print their page footers' times a second apart.
    const std::regex clock("[0-9]{2}:[0-9]{2}:[0-9]{2}");
    EXPECT_EQ(std::regex_replace(result.Out, clock, "hh:mm:ss"),
              std::regex_replace(FileText(text_), clock, "hh:mm:ss"));
    EXPECT_EQ(result.Out.find("page(s)"), std::string::npos);
}

TEST_F(ReportCommandTest, UnknownReportNamesTheReportsThereAre) {
    MakeCompany(1);
    auto result = Report({folder_, "Userz", "--pdf", pdf_});
    EXPECT_EQ(result.Exit, 1);
    EXPECT_EQ(result.Err.rfind("There is no report 'Userz'. The reports are:\n", 0), 0u)
        << result.Err;
    EXPECT_NE(result.Err.find("\nUsers "), std::string::npos) << result.Err;
    EXPECT_FALSE(fs::exists(pdf_));

    for (const auto& list : {std::vector<std::string>{"--list"}, std::vector<std::string>{},
                             std::vector<std::string>{folder_}}) {
        result = Report(list);
        EXPECT_EQ(result.Exit, 0);
        EXPECT_NE(result.Out.find("Users "), std::string::npos) << result.Out;
        EXPECT_NE(result.Out.find("who may change security"), std::string::npos) << result.Out;
    }
}

TEST_F(ReportCommandTest, MalformedLinesAndRefusedOptionsPrintTheUsage) {
    MakeCompany(1);
    const std::vector<std::vector<std::string>> lines{
        {folder_, "Users"},                                 // no output
        {folder_, "Users", "--pdf", pdf_, "--text", text_}, // two outputs
        {folder_, "Users", "--pdf"},                        // no file
        {folder_, "Users", "--pdf", pdf_, "stray"},         // a word out of place
        {folder_, "Users", "--year", "2017", "--year", "2018", "--pdf", pdf_},
        {folder_, "--pdf", pdf_},
    };
    for (const auto& line : lines) {
        auto result = Report(line);
        EXPECT_EQ(result.Exit, 2) << line.size();
        EXPECT_EQ(result.Err.rfind("usage: corvane-cli report COMPANY NAME", 0), 0u) << result.Err;
    }
    auto result = Report({folder_, "Users", "--year", "2017", "--pdf", pdf_});
    EXPECT_EQ(result.Exit, 2);
    EXPECT_EQ(
        result.Err.rfind("The Users report takes no options; it was given --year.\nusage:", 0), 0u)
        << result.Err;
    EXPECT_FALSE(fs::exists(pdf_));
}

// A report of one line that shows the options it was asked for.
class OptionsReport : public reports::TrptBase {
public:
    explicit OptionsReport(std::string options) : options_(std::move(options)) {
        QuickReport.ReportTitle = "Options";
        QuickReport.PrintIfEmpty = true;
        auto& title = QuickReport.Band(reports::BandKind::Title, 12);
        title.Add<reports::TQRLabel>(options_).SetBounds(0, 0, 400, 12);
    }

private:
    std::string options_;
};

TEST_F(ReportCommandTest, GivesTheOptionsToTheReportWithoutTheirDashes) {
    MakeCompany(0);
    reports::ReportRegistry registry;
    registry.Register(
        "Echo", "Shows its options", [](store::Database&, const reports::ReportRequest& request) {
            if (request.Option("year").empty()) throw Exception("Echo needs --year.");
            std::string shown;
            for (const auto& [key, value] : request.Options)
                shown += key + "=" + value + ";";
            return std::unique_ptr<reports::TrptBase>(std::make_unique<OptionsReport>(shown));
        });
    std::ostringstream out, err;
    ASSERT_EQ(ReportCommand({folder_, "Echo", "--year", "2017", "--text", text_, "--period", "3"},
                            registry, out, err),
              0)
        << err.str();
    EXPECT_NE(FileText(text_).find("period=3;year=2017;"), std::string::npos) << FileText(text_);

    std::ostringstream out2, err2;
    EXPECT_EQ(ReportCommand({folder_, "Echo", "--text", text_}, registry, out2, err2), 2);
    EXPECT_EQ(err2.str().rfind("Echo needs --year.\nusage:", 0), 0u) << err2.str();
}

} // namespace
} // namespace corvane::cli
