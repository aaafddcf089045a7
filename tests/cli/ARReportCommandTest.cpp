#include "LedgerCommandsCapture.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

namespace corvane::cli {
namespace {

std::string PdfText(const std::string& path) {
    std::string output;
    if (FILE* pipe = popen(("pdftotext -layout '" + path + "' -").c_str(), "r")) {
        char buffer[256];
        while (std::fgets(buffer, sizeof buffer, pipe))
            output += buffer;
        pclose(pipe);
    }
    return output;
}

// The receivables reports by name on the sample company, each to a PDF a person can read.
class ARReportCommand : public ::testing::Test {
protected:
    void SetUp() override {
        auto made = testing::RunCaptured({"new-company", folder_, "--sample"});
        ASSERT_EQ(made.Exit, 0) << made.Err;
    }
    testing::CommandResult Report(std::vector<std::string> args) {
        args.insert(args.begin(), {"report", folder_});
        return testing::RunCaptured(args);
    }

    testing::TempFolder temp_;
    std::string folder_ = temp_.Path() + "/sample";
    std::string pdf_ = temp_.Path() + "/report.pdf";
};

TEST_F(ARReportCommand, EveryReceivablesReportPrintsByNameWithItsOptions) {
    struct Case {
        std::vector<std::string> Args;
        std::string Expected;
    };
    const std::vector<Case> cases{
        {{"AgedReceivables", "--asof", "2017-12-31"}, "Report Totals"},
        {{"AgedReceivablesSummary", "--asof", "2017-12-31", "--min-owing", "500"},
         "Min Owing: 500.00"},
        {{"ARHistory", "--year", "2017", "--period", "10"}, "Period: 10/2017"},
        {{"ARStatements", "--asof", "2017-12-31", "--from", "2017-11-01"}, "Statement"},
        {{"ARStatementsInv", "--asof", "2017-12-31", "--customer", "1001"}, "Total owing"},
        {{"ARInvoice", "--number", "2", "--style", "professional"}, "Invoice Amount"},
    };
    for (const Case& c : cases) {
        std::vector<std::string> args = c.Args;
        args.insert(args.end(), {"--pdf", pdf_});
        auto result = Report(args);
        ASSERT_EQ(result.Exit, 0) << c.Args[0] << ": " << result.Err;
        const std::string text = PdfText(pdf_);
        EXPECT_NE(text.find(c.Expected), std::string::npos) << c.Args[0] << "\n" << text;
    }
}

TEST_F(ARReportCommand, OptionsOutOfRangeAreRefusedInTheWizardsWords) {
    auto result = Report({"AgedReceivables", "--min-days", "101", "--pdf", pdf_});
    EXPECT_NE(result.Exit, 0);
    EXPECT_NE(result.Err.find("Min Days Old must be between 0 and 100"), std::string::npos)
        << result.Err;
    result = Report({"AgedReceivables", "--min-owing", "100000.01", "--pdf", pdf_});
    EXPECT_NE(result.Err.find("Min Owing must be between 0 and 100,000.00"), std::string::npos);
    result = Report({"ARHistory", "--year", "2017", "--period", "13", "--pdf", pdf_});
    EXPECT_NE(result.Err.find("Period must be between 1 and 12 if selected"), std::string::npos);
    result = Report({"ARStatementsInv", "--customer", "nobody", "--pdf", pdf_});
    EXPECT_NE(result.Err.find("There is no customer 'nobody'."), std::string::npos);
    result = Report({"ARInvoice", "--style", "fancy", "--pdf", pdf_});
    EXPECT_NE(result.Err.find("--style takes classic or professional"), std::string::npos);
}

} // namespace
} // namespace corvane::cli
