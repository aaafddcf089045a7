#include "cli/Commands.h"

#include "core/Exception.h"

#include <cstdio>
#include <string>
#include <vector>

// corvane-cli: the program without windows, for automation and end-to-end tests.
int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    try {
        return corvane::cli::RunCommand(args);
    } catch (const corvane::Exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
}
