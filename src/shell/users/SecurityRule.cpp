#include "shell/users/SecurityRule.h"

#include "store/Query.h"

namespace corvane::shell {

bool UsersKeepSecurity(store::Database& db) {
    store::Query q(db,
                   "SELECT COUNT(*) AS Users, SUM(CASE WHEN Security = true THEN 1 ELSE 0 END) AS "
                   "Admins FROM Users");
    q.Open();
    return q.FieldByName("Users").AsInteger() == 0 || q.FieldByName("Admins").AsInteger() > 0;
}

} // namespace corvane::shell
