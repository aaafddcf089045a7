#pragma once

#include "cli/Commands.h"

#include <exception>
#include <string>
#include <vector>

namespace corvane::testing {

// What corvane-cli would end with for these words: its exit code and the message it would
// print on failure.
struct CommandOutcome {
    int Exit = 0;
    std::string Message;
};

inline CommandOutcome RunCli(const std::vector<std::string>& words) {
    CommandOutcome outcome;
    try {
        outcome.Exit = cli::RunCommand(words);
    } catch (const std::exception& e) {
        // As the program's main does: the message, and a failing exit.
        outcome.Exit = 1;
        outcome.Message = e.what();
    }
    return outcome;
}

} // namespace corvane::testing
