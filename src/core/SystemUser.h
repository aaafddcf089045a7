#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

// The longest login name the program keeps: the preset user name of the login dialog is cut to
// it, whatever the operating system allows.
inline constexpr std::size_t MaxLoginNameLength = 31;

// The login name of the operating system user running the program (from the user database,
// else $USER, else $LOGNAME), at most MaxLoginNameLength characters; empty when none is known.
std::string CurrentWindowsUser();

// The first of the candidate names that is not empty, cut to MaxLoginNameLength bytes without
// splitting a UTF-8 character; empty when all are. Null pointers count as empty.
std::string PickLoginName(const char* accountName, const char* userVariable,
                          const char* lognameVariable);

} // namespace corvane
