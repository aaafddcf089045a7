#pragma once

#include "store/Database.h"
#include "store/sql/Connection.h"

#include <string>
#include <vector>

namespace corvane::testing {

// Each row of the query as "a|b|c", values as the store shows them in messages: 12, 'text', null.
inline std::vector<std::string> QueryRows(store::Database& db, const std::string& sql) {
    store::Statement s(db.Conn(), sql);
    std::vector<std::string> rows;
    while (s.Step()) {
        std::string row;
        for (int c = 0; c < s.ColumnCount(); ++c)
            row += (c ? "|" : "") + s.ColumnNatural(c).DebugString();
        rows.push_back(row);
    }
    return rows;
}

// The one value of a query of one row and one column.
inline std::string QueryValue(store::Database& db, const std::string& sql) {
    const auto rows = QueryRows(db, sql);
    return rows.size() == 1 ? rows.front() : "<" + std::to_string(rows.size()) + " rows>";
}

} // namespace corvane::testing
