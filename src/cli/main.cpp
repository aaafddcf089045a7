#include "cli/Commands.h"
#include "core/RegionalSettings.h"

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

// corvane-cli: the program without windows, for automation and end-to-end tests. A leading
// "--locale NAME" runs it under that locale's regional settings instead of the user's.
int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    try {
        if (args.size() >= 2 && args[0] == "--locale") {
            auto settings = corvane::RegionalSettingsOf(args[1]);
            if (!settings) {
                std::fprintf(stderr, "Unknown locale '%s'\n", args[1].c_str());
                return 2;
            }
            corvane::ApplyRegionalSettings(*settings);
            args.erase(args.begin(), args.begin() + 2);
        } else {
            corvane::ApplyRegionalSettings(corvane::SystemRegionalSettings());
        }
        return corvane::cli::RunCommand(args);
    } catch (const std::exception& e) {
        // The program's own failures and the library's alike end with their message.
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
}
