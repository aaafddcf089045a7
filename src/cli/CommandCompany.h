#pragma once

#include <optional>
#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::cli {

// The user the command line named with --user NAME; nothing when it named none.
void SetCommandUser(std::optional<std::string> user);

// Opens the company of a batch command as the program would for a person at the menus. The
// whole file is checked for damage first, so that a damaged company stops every command with
// the corrupt-table message before anything reads or writes it. A company with users needs the
// user named with --user, the password (CORVANE_PASSWORD, or typed at the terminal) and the
// right the menus ask for the same work; caption names the right in the refusal.
void OpenForCommand(store::Database& db, const std::string& folder, const std::string& right,
                    const std::string& caption);

// The password for a login: CORVANE_PASSWORD when set, else read from the terminal without echo.
std::string CommandPassword();

} // namespace corvane::cli
