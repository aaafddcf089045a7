#include "banking/usage/KeyDraw.h"

#include "store/Table.h"

namespace corvane::banking {

void DrawKeyIfNew(store::Table& table, const std::string& keyField) {
    // The insert itself draws the key, inside the write that saves the row.
    table.SetDrawnKey(keyField);
}

} // namespace corvane::banking
