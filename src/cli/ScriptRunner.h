#pragma once

#include "cli/ScriptLine.h"
#include "shell/main/FormRegistry.h"

#include <filesystem>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::cli {

// Exit codes of "corvane-cli script".
enum ScriptResult { ScriptPassed = 0, ScriptFailed = 1, ScriptMalformed = 2 };

// Runs the lines of a scenario script against the forms of the registry, headless: message boxes
// are answered from the script, modal forms run the lines queued for them. Each failed expectation
// writes its line, what was expected and what was found to out, and the script goes on; a
// mistake of the script (a name not on the form, a question nobody answered) stops it. While a
// runner lives, reports print to its recorder, whose print dialog the script answers.
//
// A script works in a folder of its own, removed afterwards: the settings folder (HOME and
// XDG_CONFIG_HOME point there while it runs) and the fresh company made when the script needs one
// before it said "company new" or "company open".
class ScriptRunner {
public:
    // Relative company folders are taken from baseDir, the script's folder.
    ScriptRunner(const shell::FormRegistry& registry, std::ostream& out,
                 std::filesystem::path baseDir);
    ~ScriptRunner();
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    ScriptResult Run(const std::vector<ScriptLine>& lines);
    int Failures() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

// Parses and runs the script text; a malformed script writes its error and runs nothing.
ScriptResult RunScriptText(std::string_view text, const shell::FormRegistry& registry,
                           std::ostream& out, const std::filesystem::path& baseDir);
// As RunScriptText for a file, with the forms of RegisterProgramForms.
int RunScriptFile(const std::string& path, std::ostream& out);

} // namespace corvane::cli
