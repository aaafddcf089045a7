#include "cli/CommandCompany.h"

#include "core/Exception.h"
#include "shell/users/UserLogin.h"
#include "store/CompanyFile.h"
#include "store/Database.h"
#include "store/Table.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace corvane::cli {

namespace {

std::optional<std::string>& CommandUser() {
    static std::optional<std::string> user;
    return user;
}

} // namespace

void SetCommandUser(std::optional<std::string> user) {
    CommandUser() = std::move(user);
}

std::string CommandPassword() {
    if (const char* given = std::getenv("CORVANE_PASSWORD")) return given;
    const int tty = ::open("/dev/tty", O_RDWR | O_CLOEXEC);
    if (tty < 0)
        throw Exception("No password was given: set CORVANE_PASSWORD or run the command at a "
                        "terminal.");
    termios before{};
    const bool terminal = ::tcgetattr(tty, &before) == 0;
    if (terminal) {
        termios quiet = before;
        quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        ::tcsetattr(tty, TCSAFLUSH, &quiet);
    }
    static const char prompt[] = "Password: ";
    [[maybe_unused]] auto shown = ::write(tty, prompt, sizeof prompt - 1);
    std::string password;
    char c = 0;
    while (::read(tty, &c, 1) == 1 && c != '\n')
        password += c;
    if (terminal) ::tcsetattr(tty, TCSAFLUSH, &before);
    shown = ::write(tty, "\n", 1);
    ::close(tty);
    return password;
}

void OpenForCommand(store::Database& db, const std::string& folder, const std::string& right,
                    const std::string& caption) {
    db.SetDirectory(folder);
    db.Open();
    store::CheckIntegrity(db);
    store::Table users(db, "Users");
    users.Open();
    if (users.IsEmpty()) return;
    const std::optional<std::string>& user = CommandUser();
    if (!user)
        throw Exception("The company '" + folder +
                        "' has users: name one with --user NAME (the password comes from "
                        "CORVANE_PASSWORD or is asked at the terminal).");
    if (!shell::PasswordMatches(users, *user, CommandPassword()))
        throw Exception("Invalid User Name or Password.");
    if (!shell::UserHasRight(users, *user, right))
        throw Exception(*user + " is not allowed access to " + caption + ".");
}

} // namespace corvane::cli
