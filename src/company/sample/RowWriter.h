#pragma once

#include "store/Value.h"

#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::company {

// Inserts many rows of one table through one prepared statement. The generator writes hundreds
// of thousands of voucher lines; going through a cursor per row would cost most of a minute.
// The column names are the program's own, never a user's text.
class RowWriter {
public:
    RowWriter(store::Database& db, const std::string& table, std::vector<std::string> columns);
    // One value per column, in the order given.
    void Add(const std::vector<store::Value>& values);

private:
    store::Database& db_;
    std::string sql_;
    std::size_t columns_;
};

} // namespace corvane::company
