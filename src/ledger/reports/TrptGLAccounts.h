#pragma once

#include "reports/run/TrptBase.h"
#include "store/Table.h"

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// The chart of accounts: number, name, type and whether the account is suspended, by account
// number unless the caller gives the cursor the order and filter of the list before Open.
class TrptGLAccounts : public reports::TrptBase {
public:
    explicit TrptGLAccounts(store::Database& db);

    store::Table tblGLAccnt;

    void Open() override;
};

} // namespace corvane::ledger
