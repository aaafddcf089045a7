#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace corvane::store {
class Database;
}

namespace corvane::banking {

// A table whose rows refer to a master row through one of their fields, and what the refusal
// to delete the master says when one does.
struct RowUse {
    std::string_view Table;
    std::string_view Field;
    std::string_view Reason;
};

// Whether any row of table holds id in field. Table and field are the program's own names,
// never typed text; the id is bound.
bool AnyRowHolds(store::Database& db, std::string_view table, std::string_view field,
                 std::int64_t id);

// The reason of the first use found, in the order given; empty when the row is used nowhere.
std::string FirstUse(store::Database& db, std::span<const RowUse> uses, std::int64_t id);

} // namespace corvane::banking
