#include "cli/ScriptParser.h"
#include "cli/ScriptRunner.h"
#include "program/ProgramForms.h"
#include "shell/main/FormRegistry.h"
#include "support/CompanyFixture.h"
#include "support/FuzzText.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

namespace corvane::testing {
namespace {

namespace fs = std::filesystem;

const std::vector<std::string> ScriptWords{
    "open",  "close",  "menu",    "form",   "set",     "type",   "key",     "click",
    "check", "choose", "focus",   "answer", "modal",   "end",    "expect",  "message",
    "text",  "sql",    "grid",    "row",    "cell",    "select", "frmJVs",  "frmUsers",
    "btnOK", "Yes",    "\"a b\"", "\"",     "\\n",     "#",      "company", "new",
    "\n",    "\n",     "\n",      "Enter",  "Ctrl+F4", "print",  "preview", "frmGLAccounts"};

// Random text in the shape of a script is read, or refused as malformed with a message; the
// reader never fails otherwise.
TEST(ScriptFuzz, RandomScriptsAreReadOrRefused) {
    FuzzText fuzz(20173, ScriptWords);
    const int inputs = FuzzInputs(3000);
    for (int i = 0; i < inputs; ++i) {
        const std::string text = fuzz.Next();
        try {
            cli::ParseScript(text);
        } catch (const cli::ScriptSyntaxError&) {
            // A malformed script is refused with its line and what is wrong.
        } catch (const std::exception& e) {
            ADD_FAILURE() << "not a script error: " << e.what()
                          << "\n  for: " << text.substr(0, 200);
        }
    }
}

std::vector<std::string> Lines(const fs::path& file) {
    std::ifstream in(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// The program's own scenarios, cut and shuffled: each run ends with a result, whatever the
// lines now ask of the forms, and never brings the program down.
TEST(ScriptFuzz, MutatedScenariosEndWithAResult) {
    std::vector<fs::path> scenarios;
    for (const auto& entry : fs::directory_iterator(fs::path(CORVANE_TESTS_DIR) / "scenarios"))
        if (entry.path().extension() == ".scn") scenarios.push_back(entry.path());
    std::sort(scenarios.begin(), scenarios.end());
    ASSERT_FALSE(scenarios.empty());

    shell::FormRegistry registry;
    program::RegisterProgramForms(registry);
    std::mt19937 random(20174);
    const int runs = FuzzInputs(3000) / 75; // a run drives real forms: far fewer of them
    for (int i = 0; i < runs; ++i) {
        std::vector<std::string> lines = Lines(scenarios[random() % scenarios.size()]);
        for (int edits = 1 + static_cast<int>(random() % 4); edits > 0 && !lines.empty(); --edits) {
            const std::size_t at = random() % lines.size();
            switch (random() % 4) {
            case 0:
                lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
                break;
            case 1:
                lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at),
                             lines[random() % lines.size()]);
                break;
            case 2:
                std::swap(lines[at], lines[random() % lines.size()]);
                break;
            default:
                lines.resize(at);
                break;
            }
        }
        std::string text;
        for (const auto& line : lines)
            text += line + "\n";
        TempFolder folder;
        std::ostringstream out;
        const cli::ScriptResult result = cli::RunScriptText(text, registry, out, folder.Path());
        EXPECT_TRUE(result == cli::ScriptPassed || result == cli::ScriptFailed ||
                    result == cli::ScriptMalformed);
    }
}

} // namespace
} // namespace corvane::testing
