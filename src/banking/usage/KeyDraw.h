#pragma once

#include <string>

namespace corvane::store {
class Table;
}

namespace corvane::banking {

// A new row of a small master (tax, bank, type, salesman, warehouse) takes the highest key + 1,
// just before it is first saved; a row in edit, or one whose key is set, keeps its key.
void DrawKeyIfNew(store::Table& table, const std::string& keyField);

} // namespace corvane::banking
