#pragma once

#include "store/DataSet.h"
#include "store/Field.h"

#include <cstdint>

#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::timebilling {

// A field with no value or only blanks: what a "must have a value" check refuses.
bool Blank(const store::Field& field);

// Whether a row of table has keyField = value; the names are the program's own.
bool RowExists(store::Database& db, const std::string& table, const std::string& keyField,
               const store::Value& value);

} // namespace corvane::timebilling
