#pragma once

#include "reports/run/TrptBase.h"
#include "store/Table.h"

#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::reports {

// The users of the company with the columns of their list: the name and whether the user may
// change security. Passwords never print. The caller sets the cursor's index and filter before
// Open, as the list shows them.
class TrptUsers : public TrptBase {
public:
    explicit TrptUsers(store::Database& db);

    store::Table tblUsers;

    void Open() override;
};

} // namespace corvane::reports
