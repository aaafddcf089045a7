#include "shell/users/UserLogin.h"

#include "core/PasswordHash.h"
#include "store/Table.h"

namespace corvane::shell {

bool PasswordMatches(store::Table& users, const std::string& name, const std::string& password) {
    // The name as typed, letter case and all: user names are exact.
    if (!users.Locate("UserName", {store::Value(name)}) ||
        users.FieldByName("UserName").AsString() != name)
        return false;
    const std::string stored = users.FieldByName("Password").AsString();
    if (!PasswordHash::Verify(password, stored)) return false;
    if (PasswordHash::NeedsUpgrade(stored)) {
        users.Edit();
        users.FieldByName("Password").SetAsString(PasswordHash::Hash(password));
        users.Post();
    }
    return true;
}

bool UserHasRight(store::Table& users, const std::string& name, const std::string& right) {
    store::Value held = users.Lookup("UserName", {store::Value(name)}, right);
    return held.kind() == store::Value::Kind::Boolean && held.Bool();
}

} // namespace corvane::shell
