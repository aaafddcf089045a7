#include "LedgerCommandsCapture.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>

namespace corvane::cli {
namespace {

// The time reports by name on the sample company, to text on standard output.
class TimeReportCommand : public ::testing::Test {
protected:
    void SetUp() override {
        auto made = testing::RunCaptured({"new-company", folder_, "--sample"});
        ASSERT_EQ(made.Exit, 0) << made.Err;
    }
    testing::CommandResult Report(std::vector<std::string> args) {
        args.insert(args.begin(), {"report", folder_});
        args.insert(args.end(), {"--text", "-"});
        return testing::RunCaptured(args);
    }
    // The sum of hours the query gives, as the report shows it ("108.00").
    std::string HoursBySql(const std::string& sql) {
        auto result = testing::RunCaptured({"sql", folder_, sql});
        EXPECT_EQ(result.Exit, 0) << result.Err;
        std::istringstream lines(result.Out);
        std::string header, value;
        std::getline(lines, header);
        std::getline(lines, value);
        std::ostringstream shown;
        shown << std::fixed << std::setprecision(2) << std::stod(value);
        return shown.str();
    }
    static std::string LineWith(const std::string& text, const std::string& word) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            if (line.find(word) != std::string::npos) return line;
        return {};
    }

    testing::TempFolder temp_;
    std::string folder_ = temp_.Path() + "/sample";
};

TEST_F(TimeReportCommand, EachTimeReportPrintsByNameNarrowedByTheWizardsOptions) {
    for (const char* name : {"JobStatusReport", "EmployeeTimeSummary", "EmployeeTimeDetail",
                             "CustomerTimeSummary", "CustomerTimeDetail"}) {
        auto result = Report({name});
        ASSERT_EQ(result.Exit, 0) << name << ": " << result.Err;
        EXPECT_NE(result.Out.find("Sample Data Company"), std::string::npos) << name;
    }

    auto customer = Report({"CustomerTimeSummary", "--from", "2017-11-01", "--to", "2017-11-30",
                            "--customer", "1001"});
    ASSERT_EQ(customer.Exit, 0) << customer.Err;
    EXPECT_NE(customer.Out.find("01 Nov 17 - 30 Nov 17"), std::string::npos) << customer.Out;
    EXPECT_NE(customer.Out.find("Customer: Birch Lumber Ltd."), std::string::npos);
    const std::string november =
        HoursBySql("SELECT SUM(Hours) FROM TimeSht T JOIN Customer C ON C.CustomerID = "
                   "T.CustomerID WHERE C.CustomerNo = '1001' AND WorkDate BETWEEN '2017-11-01' "
                   "AND '2017-11-30'");
    EXPECT_NE(LineWith(customer.Out, "Report Totals:").find(november), std::string::npos)
        << november << "\n"
        << customer.Out;

    auto employee =
        Report({"EmployeeTimeDetail", "--employee", "daniel okafor", "--to", "2017-12-31"});
    ASSERT_EQ(employee.Exit, 0) << employee.Err;
    EXPECT_NE(employee.Out.find("To: 31 Dec 17"), std::string::npos) << employee.Out;
    EXPECT_NE(employee.Out.find("Employee: Daniel Okafor"), std::string::npos);
    EXPECT_EQ(employee.Out.find("Alice Moreau"), std::string::npos) << employee.Out;
    const std::string daniel =
        HoursBySql("SELECT SUM(Hours) FROM TimeSht T JOIN Employee E ON E.EmployeeID = "
                   "T.EmployeeID WHERE E.EmployeeName = 'Daniel Okafor' AND WorkDate <= "
                   "'2017-12-31'");
    EXPECT_NE(LineWith(employee.Out, "Report Totals:").find(daniel), std::string::npos)
        << daniel << "\n"
        << employee.Out;
}

TEST_F(TimeReportCommand, OptionsThatNameNothingAreRefusedAndWriteNothing) {
    auto result = Report({"EmployeeTimeSummary", "--from", "2017-11-31"});
    EXPECT_EQ(result.Exit, 2);
    EXPECT_NE(result.Err.find("--from takes a date as yyyy-mm-dd, not '2017-11-31'."),
              std::string::npos)
        << result.Err;
    EXPECT_EQ(result.Out, "");
    result = Report({"CustomerTimeDetail", "--employee", "Nobody"});
    EXPECT_NE(result.Err.find("There is no employee 'Nobody'."), std::string::npos) << result.Err;
    result = Report({"JobStatusReport", "--customer", "9999"});
    EXPECT_NE(result.Err.find("There is no customer '9999'."), std::string::npos) << result.Err;
}

} // namespace
} // namespace corvane::cli
