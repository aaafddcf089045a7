#pragma once

#include <string>

namespace corvane::store {
class Table;
}

namespace corvane::shell {

// The login's test of a name and a password against the company's users, shared by the login
// dialog and the command-line program. A password kept with fewer hashing rounds than are used
// now is hashed anew from the typed text when it matches, so old hashes strengthen at the next
// login.
//
// users is an open cursor on Users; it is left on the user found.
bool PasswordMatches(store::Table& users, const std::string& name, const std::string& password);

// Whether the user holds the right (a boolean field of Users named as in the rights table).
bool UserHasRight(store::Table& users, const std::string& name, const std::string& right);

} // namespace corvane::shell
