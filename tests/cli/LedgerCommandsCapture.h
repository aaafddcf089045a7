#pragma once

#include "cli/Commands.h"

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace corvane::testing {

// What a command printed on its standard streams, and its exit code.
struct CommandResult {
    int Exit = -1;
    std::string Out;
    std::string Err;
};

// Runs one command line as the program would, catching what it writes through std::cout and
// std::cerr; both are put back even when the command throws.
inline CommandResult RunCaptured(const std::vector<std::string>& args) {
    struct Redirect {
        explicit Redirect(std::ostream& s) : stream(s), saved(s.rdbuf(buffer.rdbuf())) {}
        ~Redirect() { stream.rdbuf(saved); }
        std::ostream& stream;
        std::ostringstream buffer;
        std::streambuf* saved;
    } out(std::cout), err(std::cerr);
    CommandResult result;
    result.Exit = cli::RunCommand(args);
    result.Out = out.buffer.str();
    result.Err = err.buffer.str();
    return result;
}

} // namespace corvane::testing
