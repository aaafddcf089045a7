#include "core/AppFolders.h"

#include "core/Exception.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace corvane {

namespace fs = std::filesystem;

namespace {

// An environment variable that names an absolute folder; relative values are ignored, as the
// XDG rules ask, since they would depend on where the program happened to be started.
fs::path AbsoluteFromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    if (!value || !*value) return {};
    fs::path path(value);
    return path.is_absolute() ? path : fs::path();
}

[[noreturn]] void CouldNotCreate(const fs::path& path) {
    throw Exception("Could not create folder " + path.string());
}

} // namespace

fs::path AppFolders::DataRoot() {
    if (fs::path xdg = AbsoluteFromEnvironment("XDG_DATA_HOME"); !xdg.empty()) return xdg;
    fs::path home = AbsoluteFromEnvironment("HOME");
    if (home.empty()) {
        // A service account started without a login environment still has a home in passwd.
        if (const passwd* pw = getpwuid(getuid()); pw && pw->pw_dir && *pw->pw_dir)
            home = pw->pw_dir;
    }
    if (home.empty()) CouldNotCreate(fs::path("~") / ".local" / "share");
    return home / ".local" / "share";
}

fs::path AppFolders::TempRoot() {
    if (fs::path tmp = AbsoluteFromEnvironment("TMPDIR"); !tmp.empty()) return tmp;
    return "/tmp";
}

fs::path AppFolders::ProgramFile() {
    std::error_code ec;
    fs::path self = fs::read_symlink("/proc/self/exe", ec);
    return ec ? fs::path() : self;
}

fs::path AppFolders::Build(const fs::path& root, const std::vector<std::string>& segments) {
    std::error_code ec;
    if (!fs::is_directory(root, ec)) {
        fs::create_directories(root, ec);
        if (!fs::is_directory(root, ec)) CouldNotCreate(root);
    }
    fs::path path = root;
    for (const std::string& segment : segments) {
        path /= segment;
        if (fs::is_directory(path, ec)) continue;
        fs::create_directory(path, ec);
        // Another copy of the program may have made it meanwhile; what counts is that it is there.
        if (!fs::is_directory(path, ec)) CouldNotCreate(path);
    }
    return path;
}

fs::path AppFolders::UserSettingsFolder() const {
    return Build(DataRoot(), names_.Segments());
}

fs::path AppFolders::CommonDataFolder() const {
    return Build(DataRoot(), names_.Segments());
}

fs::path AppFolders::PrivateFolder() const {
    return PrivateFolder(ProgramFile());
}

fs::path AppFolders::PrivateFolder(const fs::path& programFile) const {
    std::vector<std::string> segments = names_.Segments();
    segments.push_back("Priv");
    try {
        return Build(TempRoot(), segments);
    } catch (const Exception&) {
        // A temporary folder that is full or not writable for this user is no reason to refuse
        // to start while another place for scratch files is at hand.
        if (programFile.empty()) throw;
        return Build(programFile.parent_path(), {"Priv"});
    }
}

} // namespace corvane
