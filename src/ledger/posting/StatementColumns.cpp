#include "ledger/posting/StatementColumns.h"

#include "store/Value.h"
#include "store/sql/Connection.h"

namespace corvane::ledger {

std::optional<std::int64_t> OptionalInt(const store::Statement& s, int column) {
    if (s.ColumnIsNull(column)) return std::nullopt;
    return s.ColumnInt(column);
}

Money MoneyAt(const store::Statement& s, int column) {
    store::Value v = s.ColumnValue(column, store::FieldType::Currency);
    return v.IsNull() ? Money() : v.Money();
}

AccountKey ReadAccount(const store::Statement& s, int first) {
    return {OptionalInt(s, first), OptionalInt(s, first + 1), OptionalInt(s, first + 2),
            OptionalInt(s, first + 3)};
}

} // namespace corvane::ledger
