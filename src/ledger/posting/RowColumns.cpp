#include "ledger/posting/RowColumns.h"

namespace corvane::ledger {

using store::Value;

std::optional<std::int64_t> OptionalInt(const QueryRow& row, std::size_t column) {
    const Value& v = row.at(column);
    switch (v.kind()) {
    case Value::Kind::Integer:
        return v.Int();
    case Value::Kind::Boolean:
        return v.Bool() ? 1 : 0;
    default:
        return std::nullopt;
    }
}

std::int64_t IntAt(const QueryRow& row, std::size_t column) {
    return OptionalInt(row, column).value_or(0);
}

Money MoneyAt(const QueryRow& row, std::size_t column) {
    const Value& v = row.at(column);
    switch (v.kind()) {
    case Value::Kind::Money:
        return v.Money();
    case Value::Kind::Integer: // an amount read without its column's type: ten-thousandths
        return Money::FromUnits(v.Int());
    default:
        return Money();
    }
}

std::string TextAt(const QueryRow& row, std::size_t column) {
    const Value& v = row.at(column);
    return v.kind() == Value::Kind::String ? v.Str() : std::string();
}

AccountKey ReadAccount(const QueryRow& row, std::size_t first) {
    return {OptionalInt(row, first), OptionalInt(row, first + 1), OptionalInt(row, first + 2),
            OptionalInt(row, first + 3)};
}

} // namespace corvane::ledger
