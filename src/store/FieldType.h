#pragma once

#include <string_view>

namespace corvane::store {

// The kinds of stored field. Money is kept as whole ten-thousandths, dates as "yyyy-mm-dd"
// text, booleans as 0/1; a null is distinct from 0 and from the empty string for every kind.
enum class FieldType {
    String,   // fixed maximum length (the field's size)
    SmallInt, // 16-bit integer
    Integer,  // 32-bit integer
    AutoInc,  // 32-bit integer given by the store on insert when left null
    Boolean,
    Float,    // 8-byte float
    Currency, // money
    Date,
    Memo,    // text of any length
    Graphic, // binary picture
};

// The type name a column carries in the store's own schema; query results name the type of a
// plain column through it.
std::string_view StoredTypeName(FieldType type);
// Reads a stored type name back ("VARCHAR(30)" gives String with size 30). False if unknown.
bool ParseStoredTypeName(std::string_view declared, FieldType& type, int& size);

bool IsIntegerType(FieldType type);
bool IsNumericType(FieldType type);
bool IsTextType(FieldType type);

} // namespace corvane::store
