#pragma once

namespace corvane::store {
class Database;
}

namespace corvane::shell {

// Said when the users list, or the program, would close while nobody may change security.
inline constexpr const char* SecurityExitRefusal =
    "Exit not allowed yet...\n\nIf security is active (one or more users specified), then at "
    "least one user must be allowed access to Security.";

// The rule that keeps an administrator in existence: a company with users has one who holds the
// Security right.
bool UsersKeepSecurity(store::Database& db);

} // namespace corvane::shell
