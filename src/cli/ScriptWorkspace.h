#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane::cli {

// The temporary folder a scenario script works in, so that a script never touches the user's
// settings or companies: "settings" becomes HOME and XDG_CONFIG_HOME while it lives, "private"
// holds the session's scratch files, and "company" is the fresh company made when the script
// opens none of its own. Everything goes, and the environment is restored, when it dies.
class ScriptWorkspace {
public:
    ScriptWorkspace();
    ~ScriptWorkspace();
    ScriptWorkspace(const ScriptWorkspace&) = delete;
    ScriptWorkspace& operator=(const ScriptWorkspace&) = delete;

    const std::filesystem::path& Root() const { return root_; }
    std::filesystem::path SettingsDir() const { return root_ / "settings"; }
    std::filesystem::path PrivateDir() const { return root_ / "private"; }

private:
    std::filesystem::path root_;
    std::vector<std::pair<std::string, std::optional<std::string>>> savedEnv_;
};

} // namespace corvane::cli
