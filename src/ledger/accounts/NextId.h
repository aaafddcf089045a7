#pragma once

#include <cstdint>
#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// 1 + the highest value of an integer key field of a table (1 for an empty table): the id of a
// new row. Table and field are the program's own names, never typed text.
std::int64_t NextId(store::Database& db, const std::string& table, const std::string& field);

} // namespace corvane::ledger
