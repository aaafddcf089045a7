#include "store/FieldType.h"

#include <cctype>
#include <charconv>
#include <string>

namespace corvane::store {

std::string_view StoredTypeName(FieldType type) {
    switch (type) {
    case FieldType::String:
        return "VARCHAR";
    case FieldType::SmallInt:
        return "SMALLINT";
    case FieldType::Integer:
        return "INTEGER";
    case FieldType::AutoInc:
        return "AUTOINC";
    case FieldType::Boolean:
        return "BOOLEAN";
    case FieldType::Float:
        return "FLOAT";
    case FieldType::Currency:
        return "MONEY";
    case FieldType::Date:
        return "DATE";
    // TEXT, so that SQLite keeps a memo of digits as the text it is.
    case FieldType::Memo:
        return "TEXT";
    case FieldType::Graphic:
        return "GRAPHIC";
    }
    return "";
}

bool ParseStoredTypeName(std::string_view declared, FieldType& type, int& size) {
    std::string upper;
    for (char c : declared)
        if (!std::isspace(static_cast<unsigned char>(c)))
            upper += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    size = 0;
    auto open = upper.find('(');
    std::string base = upper.substr(0, open);
    if (open != std::string::npos) {
        auto close = upper.find(')', open);
        if (close == std::string::npos) return false;
        auto digits = std::string_view(upper).substr(open + 1, close - open - 1);
        auto [p, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), size);
        if (ec != std::errc() || p != digits.data() + digits.size()) return false;
    }
    static const struct {
        std::string_view Name;
        FieldType Type;
    } names[] = {
        {"VARCHAR", FieldType::String},  {"SMALLINT", FieldType::SmallInt},
        {"INTEGER", FieldType::Integer}, {"AUTOINC", FieldType::AutoInc},
        {"BOOLEAN", FieldType::Boolean}, {"FLOAT", FieldType::Float},
        {"MONEY", FieldType::Currency},  {"DATE", FieldType::Date},
        {"TEXT", FieldType::Memo},       {"MEMO", FieldType::Memo},
        {"GRAPHIC", FieldType::Graphic},
    };
    for (const auto& n : names) {
        if (base == n.Name) {
            type = n.Type;
            if (type != FieldType::String) size = 0;
            return true;
        }
    }
    return false;
}

bool IsIntegerType(FieldType type) {
    return type == FieldType::SmallInt || type == FieldType::Integer || type == FieldType::AutoInc;
}

bool IsNumericType(FieldType type) {
    return IsIntegerType(type) || type == FieldType::Float || type == FieldType::Currency;
}

bool IsTextType(FieldType type) {
    return type == FieldType::String || type == FieldType::Memo;
}

} // namespace corvane::store
