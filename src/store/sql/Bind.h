#pragma once

#include "store/Value.h"

struct sqlite3_stmt;

namespace corvane::store {

// Binds a value at a 1-based parameter index in its stored form: money as whole
// ten-thousandths, dates as "yyyy-mm-dd" text, booleans as 0/1, null as SQL NULL.
// Throws EngineError when SQLite refuses (no such parameter, out of memory).
void BindValue(sqlite3_stmt* stmt, int index, const Value& value);

} // namespace corvane::store
