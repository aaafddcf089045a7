#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace corvane::cli {

// One command of a scenario script: its words with the quotes taken off, the line it stands on,
// and for "modal" the lines queued for that modal form.
struct ScriptLine {
    int Number = 0;
    std::string Command;
    std::vector<std::string> Args;
    std::vector<ScriptLine> Body;
};

// A script that cannot run as written: a malformed line, an unknown command or component. The
// message starts with the line number, which is what a person fixing the script needs first.
class ScriptSyntaxError : public std::runtime_error {
public:
    ScriptSyntaxError(int line, const std::string& message)
        : std::runtime_error("line " + std::to_string(line) + ": " + message), line_(line) {}
    int Line() const { return line_; }

private:
    int line_;
};

} // namespace corvane::cli
