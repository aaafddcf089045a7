#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace corvane {

// The names under which the program files its folders: the maker, the application title and the
// version mark. A new version mark gives a fresh set of folders beside the old ones.
struct AppFolderNames {
    std::string Maker = "Halvern Works";
    std::string Title = "Corvane Professional Time Billing";
    std::string Version = "2017.8";

    std::vector<std::string> Segments() const { return {Maker, Title, Version}; }
};

// The folders the program works in, made at start-up: the per-user folder of Corvane.ini, the
// folder under which company folders are suggested, and the private folder where the record
// store puts its scratch files. On Linux one XDG data folder serves as both the per-user and the
// all-users folder, since a desktop accounting program there runs for one person. Each folder is
// made step by step below its root; a step that cannot be made raises
// Exception("Could not create folder <path>"), which ends the start-up.
class AppFolders {
public:
    explicit AppFolders(AppFolderNames names = {}) : names_(std::move(names)) {}

    const AppFolderNames& Names() const { return names_; }

    std::filesystem::path UserSettingsFolder() const;
    std::filesystem::path CommonDataFolder() const;
    // Below the temporary folder; when that cannot be made, "Priv" beside the program file.
    std::filesystem::path PrivateFolder() const;
    std::filesystem::path PrivateFolder(const std::filesystem::path& programFile) const;

    // $XDG_DATA_HOME when it is an absolute path, else $HOME/.local/share.
    static std::filesystem::path DataRoot();
    // $TMPDIR when it is an absolute path, else /tmp.
    static std::filesystem::path TempRoot();
    // The running program's own file.
    static std::filesystem::path ProgramFile();

    // Makes root (with its parents) if missing, then each segment below it in turn.
    static std::filesystem::path Build(const std::filesystem::path& root,
                                       const std::vector<std::string>& segments);

private:
    AppFolderNames names_;
};

} // namespace corvane
