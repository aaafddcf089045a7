#include "core/SystemUser.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace corvane {

namespace {

std::string CutToLoginLength(std::string_view name) {
    if (name.size() <= MaxLoginNameLength) return std::string(name);
    std::size_t length = MaxLoginNameLength;
    // Back off over continuation bytes so the cut lands before a whole character.
    while (length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80)
        --length;
    return std::string(name.substr(0, length));
}

} // namespace

std::string PickLoginName(const char* accountName, const char* userVariable,
                          const char* lognameVariable) {
    for (const char* candidate : {accountName, userVariable, lognameVariable})
        if (candidate && *candidate) return CutToLoginLength(candidate);
    return {};
}

std::string CurrentWindowsUser() {
    // The effective user: the one whose rights the program runs with, also under sudo.
    const passwd* pw = getpwuid(geteuid());
    return PickLoginName(pw ? pw->pw_name : nullptr, std::getenv("USER"), std::getenv("LOGNAME"));
}

} // namespace corvane
