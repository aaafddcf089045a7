#pragma once

#include "core/Refusal.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace corvane::store {
class Database;
class DataSet;
class Field;
} // namespace corvane::store

namespace corvane::banking {

// Null or only blanks: a text field the user left empty.
bool IsBlank(const store::Field& field);
// Null or 0: a reference to no row, as an import may leave it.
bool NoId(const store::Field& field);

// A field a record must have, and the label its message names it by.
struct RequiredField {
    std::string_view Field;
    std::string_view Label;
    // An id field (empty when null or 0) rather than a text (empty when blank). A number where 0
    // is a value is neither: it is empty only when null.
    enum Kind { Text, Id, Number } Is = Text;
};

// The first required field that is empty, in the order given.
Verdict FirstMissing(store::DataSet& record, std::initializer_list<RequiredField> fields);

// Whether the row of table with keyField = id is there.
bool RowExists(store::Database& db, std::string_view table, std::string_view keyField,
               std::int64_t id);

} // namespace corvane::banking
