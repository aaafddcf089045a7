#include "cli/ScriptParser.h"
#include "cli/ScriptRunner.h"
#include "program/ProgramForms.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace corvane::cli {
namespace {

// The scenario words that look at reports: the preview's pages and texts, and the print dialog
// answered through the recorder the runner installs.
class ReportScriptWordsTest : public testing::CompanyTest {
protected:
    ReportScriptWordsTest() { program::RegisterProgramForms(registry_); }
    ScriptResult Run(const std::string& script) {
        out_.str("");
        return RunScriptText(script, registry_, out_, folder_.Path());
    }

    shell::FormRegistry registry_;
    std::ostringstream out_;
};

TEST_F(ReportScriptWordsTest, MalformedWordsStopBeforeAnythingRuns) {
    const char* lines[] = {
        "expect page x Users", "expect page 0 Users",     "expect preview -1", "expect preview",
        "expect printed 1,,2", "expect printed \"1, 2\"", "answer print 0",    "answer print many",
        "answer print",        "answer print 2 copies",
    };
    for (const char* line : lines) {
        EXPECT_EQ(Run(std::string("open frmUsers\n") + line + "\n"), ScriptMalformed) << line;
        EXPECT_EQ(out_.str().rfind("line 2: ", 0), 0u) << line << ": " << out_.str();
    }
    EXPECT_THROW(ParseScript("expect page 2"), ScriptSyntaxError);
    EXPECT_NO_THROW(ParseScript("answer print cancel\nanswer print 3\nexpect printed \"\"\n"
                                "expect printed 1,2,1\nexpect preview 0\nexpect page 4 \"a b\""));
}

const char* const kOneUserPrinted = R"(open frmUsers
click mnuNew
form frmUser
set editUserName alice
check chkSecurity on
click btnOK
form frmUsers
answer Yes
click mnuPrint
form frmPreview
)";

TEST_F(ReportScriptWordsTest, PagesPrintsAndUnusedAnswersAreCheckedAndReported) {
    EXPECT_EQ(Run(std::string(kOneUserPrinted) + R"(expect preview 1
expect page 1 alice
expect page 1 "Page 1 of 1"
expect page 1 nobody
expect page 2 alice
answer print 3
answer print 1
click btnPrint
expect printed 1,1,1
expect printed ""
close
)"),
              ScriptFailed)
        << out_.str();
    const std::string out = out_.str();
    EXPECT_NE(out.find("line 14: expected page 1 to hold \"nobody\", found \""), std::string::npos)
        << out;
    EXPECT_NE(out.find("line 15: expected the preview on page 2, found page 1"), std::string::npos)
        << out;
    EXPECT_NE(out.find("line 17: expected the print dialog to answer, found none opened"),
              std::string::npos)
        << out;
    EXPECT_EQ(out.find("line 11"), std::string::npos) << out;
    EXPECT_EQ(out.find("line 19"), std::string::npos) << out;
    EXPECT_EQ(out.find("line 20"), std::string::npos) << out;
}

TEST_F(ReportScriptWordsTest, APrintDialogNobodyAnsweredOrNoPreviewStopsTheScript) {
    EXPECT_EQ(Run(std::string(kOneUserPrinted) + "click btnPrint\n"), ScriptMalformed);
    EXPECT_NE(out_.str().find("line 11: The print dialog opened with no answer given"),
              std::string::npos)
        << out_.str();

    EXPECT_EQ(Run("open frmUsers\nexpect preview 1\n"), ScriptMalformed);
    EXPECT_NE(out_.str().find("line 2: No preview is open"), std::string::npos) << out_.str();
}

} // namespace
} // namespace corvane::cli
