#include "cli/ScriptRunner.h"
#include "cli/demo/DemoForms.h"
#include "program/ProgramForms.h"

#include "core/Exception.h"
#include "support/CompanyFixture.h"
#include "ui/Application.h"
#include "ui/Button.h"
#include "ui/Form.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace corvane::cli {
namespace {

namespace fs = std::filesystem;

// A form that asks a modal dialog when its button is clicked, and notes the settings folder it
// was made under.
class AskingForm : public ui::Form {
public:
    AskingForm(ui::Application& app, std::string* home) : Form(app, "frmAsking") {
        Caption = "Asking";
        if (const char* h = std::getenv("HOME")) *home = h;
        btnAsk.OnClick = [this] {
            auto& dialog = App().CreateForm<DialogForm>();
            dialog.ShowModal();
            App().FreeForm(dialog);
        };
    }
    class DialogForm : public ui::Form {
    public:
        explicit DialogForm(ui::Application& app) : Form(app, "frmDialog") {
            btnOK.ModalResult = ui::mrOK;
        }
        ui::Button btnOK{*this, "btnOK", "OK"};
    };
    ui::Button btnAsk{*this, "btnAsk", "Ask"};
};

class ScriptRunnerTest : public testing::CompanyTest {
protected:
    ScriptRunnerTest() {
        program::RegisterProgramForms(registry_);
        demo::RegisterDemoForms(registry_);
        registry_.Register("frmAsking", [this](shell::FormContext& ctx) -> ui::Form& {
            return ctx.App.CreateForm<AskingForm>(&homeSeen_);
        });
        registry_.Register("frmBroken", [](shell::FormContext&) -> ui::Form& {
            throw Exception("The ledger is not set up.");
        });
    }
    ScriptResult Run(const std::string& script, const fs::path& baseDir = {}) {
        out_.str("");
        return RunScriptText(script, registry_, out_,
                             baseDir.empty() ? fs::path(folder_.Path()) : baseDir);
    }
    std::string Output() const { return out_.str(); }

    shell::FormRegistry registry_;
    std::ostringstream out_;
    std::string homeSeen_;
};

// The company has a user, so it opens through the program's login.
TEST_F(ScriptRunnerTest, OpensTheCompanyItIsToldToAndLeavesItInPlace) {
    InsertRow("Users", {{"UserName", "ADMIN"}, {"Security", true}});
    const std::string login = "modal frmLogin\n set editUserName ADMIN\n click btnOK\nend\n";
    EXPECT_EQ(Run(login + "company open " + folder_.Path() +
                  "\n"
                  "open frmDemoUsers\n"
                  "expect grid gridUsers ADMIN,True\n"
                  "expect sql \"SELECT UserName FROM Users\" ADMIN\n"),
              ScriptPassed)
        << Output();
    // Relative to the script's folder, here the company's parent.
    fs::path company(folder_.Path());
    EXPECT_EQ(Run(login + "company open " + company.filename().string() +
                      "\nexpect sql \"SELECT COUNT(*) AS n FROM Users\" 1\n",
                  company.parent_path()),
              ScriptPassed)
        << Output();
    EXPECT_TRUE(fs::exists(company / "company.DAT"));
}

TEST_F(ScriptRunnerTest, ACompanyMadeAtAPathIsKept) {
    EXPECT_EQ(Run("company new made\nexpect sql \"SELECT COUNT(*) AS n FROM Users\" 0\n"),
              ScriptPassed)
        << Output();
    EXPECT_TRUE(fs::exists(fs::path(folder_.Path()) / "made" / "company.DAT"));
    // A second company line comes too late: the first one is open.
    EXPECT_EQ(Run("company new\ncompany new\n"), ScriptMalformed);
    EXPECT_EQ(Output(), "line 2: The company is already open; 'company' comes first\n");
}

TEST_F(ScriptRunnerTest, AScriptWorksInSettingsOfItsOwnThatGoAfterwards) {
    const char* before = std::getenv("HOME");
    std::string home = before ? before : "";
    ASSERT_EQ(Run("open frmAsking\n"), ScriptPassed) << Output();
    EXPECT_NE(homeSeen_, home);
    EXPECT_NE(homeSeen_.find("corvane-script-"), std::string::npos) << homeSeen_;
    EXPECT_FALSE(fs::exists(homeSeen_));
    const char* after = std::getenv("HOME");
    EXPECT_EQ(after ? after : "", home);
}

TEST_F(ScriptRunnerTest, AProgramErrorIsAMessageBoxTheScriptCanExpect) {
    EXPECT_EQ(Run("open frmBroken\nexpect message \"The ledger is not set up.\"\n"
                  "expect message \"\"\n"),
              ScriptPassed)
        << Output();
}

TEST_F(ScriptRunnerTest, AMessageIsCheckedOnceSoAnOldBoxCannotPassALaterCheck) {
    EXPECT_EQ(Run("open frmBroken\n"
                  "expect message \"The ledger is not set up.\"\n"
                  "expect message \"The ledger is not set up.\"\n"),
              ScriptFailed);
    EXPECT_EQ(Output(), "line 3: expected the message \"The ledger is not set up.\", found \"\"\n");
}

TEST_F(ScriptRunnerTest, FailuresInsideAModalBlockAreReportedAndTheBlockGoesOn) {
    EXPECT_EQ(Run("open frmAsking\n"
                  "modal frmDialog\n"
                  "  expect caption Dialog\n"
                  "  click btnOK\n"
                  "end\n"
                  "click btnAsk\n"
                  "expect open frmDialog\n"),
              ScriptFailed);
    EXPECT_EQ(Output(), "line 3: expected the caption \"Dialog\", found \"\"\n"
                        "line 7: expected 'frmDialog' open, found no such form\n");
}

TEST_F(ScriptRunnerTest, ModalBlocksMustBeUsedAndMustCloseTheirForm) {
    EXPECT_EQ(Run("open frmAsking\nmodal frmDialog\n  click btnOK\nend\n"), ScriptFailed);
    EXPECT_EQ(Output(),
              "line 2: expected the modal form 'frmDialog' to be shown, found it never was\n");

    EXPECT_EQ(Run("open frmAsking\nmodal frmDialog\n  expect caption \"\"\nend\nclick btnAsk\n"),
              ScriptMalformed);
    EXPECT_EQ(Output(), "line 5: The modal form 'frmDialog' is still open after its script\n");

    EXPECT_EQ(Run("open frmAsking\nclick btnAsk\n"), ScriptMalformed);
    EXPECT_EQ(Output(), "line 2: No script for the modal form 'frmDialog'\n");
}

TEST_F(ScriptRunnerTest, AMistakeInsideAModalBlockNamesItsOwnLine) {
    EXPECT_EQ(Run("open frmAsking\nmodal frmDialog\n  click btnNope\nend\nclick btnAsk\n"),
              ScriptMalformed);
    EXPECT_EQ(Output(), "line 3: No component 'btnNope' on form 'frmDialog'\n");
}

TEST_F(ScriptRunnerTest, NamesThatLeadNowhereStopTheScript) {
    EXPECT_EQ(Run("open frmNope\n"), ScriptMalformed);
    EXPECT_EQ(Output(), "line 1: No form 'frmNope' is registered\n");
    EXPECT_EQ(Run("menu \"GL, Ledger\"\n"), ScriptMalformed);
    EXPECT_EQ(Output(), "line 1: No menu entry 'GL, Ledger'\n");
    EXPECT_EQ(Run("click btnOK\n"), ScriptMalformed);
    EXPECT_EQ(Output(), "line 1: No form is open; start with 'open' or 'menu'\n");
    EXPECT_EQ(Run("open frmDemoUsers\nexpect row gridUsers Colour=red\n"), ScriptMalformed);
    EXPECT_EQ(Output(), "line 2: No column 'Colour' in grid 'gridUsers'\n");
}

TEST_F(ScriptRunnerTest, ExpectSqlReadsOnly) {
    EXPECT_EQ(Run("expect sql \"DELETE FROM Users\"\n"), ScriptMalformed);
    EXPECT_EQ(Output().rfind("line 1: ", 0), 0u) << Output();
    EXPECT_EQ(CountRows("Users"), 0);
}

TEST_F(ScriptRunnerTest, EveryFailedExpectationIsReportedAndTheScriptGoesOn) {
    EXPECT_EQ(Run("open frmDemoUsers\n"
                  "expect text btnNew Old\n"
                  "expect hidden btnNew\n"
                  "expect focus btnClose\n" // the grid, first in the tab order, has it
                  "expect open frmGone\n"
                  "expect caption Users\n"),
              ScriptFailed);
    EXPECT_EQ(Output(), "line 2: expected the text of 'btnNew' \"Old\", found \"New\"\n"
                        "line 3: expected 'btnNew' hidden, found visible\n"
                        "line 4: expected the focus on \"btnClose\", found \"gridUsers\"\n"
                        "line 5: expected 'frmGone' open, found no such form\n");
}

} // namespace
} // namespace corvane::cli
