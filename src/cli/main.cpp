#include "cli/Commands.h"

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

// corvane-cli: the program without windows, for automation and end-to-end tests.
int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    try {
        return corvane::cli::RunCommand(args);
    } catch (const std::exception& e) {
        // The program's own failures and the library's alike end with their message.
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
}
