#include "banking/usage/KeyDraw.h"

#include "ledger/accounts/NextId.h"
#include "store/Table.h"

namespace corvane::banking {

void DrawKeyIfNew(store::Table& table, const std::string& keyField) {
    if (table.State() != store::DataSetState::Insert) return;
    store::Field& key = table.FieldByName(keyField);
    if (!key.IsNull()) return;
    key.SetAsInteger(ledger::NextId(table.OwnerDatabase(), table.TableName(), keyField));
}

} // namespace corvane::banking
