#include "cli/ScriptWorkspace.h"

#include "core/Exception.h"

#include <cstdlib>
#include <string>
#include <system_error>

namespace corvane::cli {

ScriptWorkspace::ScriptWorkspace() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "corvane-script-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw Exception("Cannot make a temporary folder for the script in " +
                        std::filesystem::temp_directory_path().string() + ".");
    root_ = pattern;
    std::filesystem::create_directory(SettingsDir());
    std::filesystem::create_directory(PrivateDir());
    // The program files its settings and suggests company folders below the data folder, and
    // keeps scratch files below the temporary one.
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "TMPDIR"}) {
        const char* old = std::getenv(name);
        savedEnv_.emplace_back(name, old ? std::optional<std::string>(old) : std::nullopt);
        setenv(name, (std::string(name) == "TMPDIR" ? PrivateDir() : SettingsDir()).c_str(), 1);
    }
}

ScriptWorkspace::~ScriptWorkspace() {
    for (const auto& [name, value] : savedEnv_) {
        if (value)
            setenv(name.c_str(), value->c_str(), 1);
        else
            unsetenv(name.c_str());
    }
    std::error_code ignored; // a folder left in /tmp is no reason to fail a finished script
    std::filesystem::remove_all(root_, ignored);
}

} // namespace corvane::cli
