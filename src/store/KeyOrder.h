#pragma once

#include "store/TableDef.h"
#include "store/Value.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::store {

// A piece of SQL with its bound values, in the order of its '?' placeholders.
struct SqlCondition {
    std::string Sql;
    std::vector<Value> Params;

    bool Empty() const { return Sql.empty(); }
    // Joins with AND; an empty side drops out.
    SqlCondition And(const SqlCondition& other) const;
};

// The order of a cursor: the fields of its active index, each with its direction and collation,
// then the row id, which makes every position unique. Builds the keyset conditions by which
// a cursor reads the rows after or before a position through the index, never by counting
// from the start.
class KeyOrder {
public:
    struct Term {
        int Field = -1;     // index into the table's fields; -1 for the row id
        std::string Column; // "\"Name\" COLLATE NOCASE", or "rowid"
        bool Descending = false;
        FieldType Type = FieldType::Integer;
    };

    KeyOrder() = default;
    // index may be null: the order of the row ids.
    KeyOrder(const TableDef& table, const IndexDef* index);

    const std::vector<Term>& Terms() const { return terms_; }
    int KeyFieldCount() const { return static_cast<int>(terms_.size()) - 1; }
    std::string OrderBy(bool reverse) const;

    // The position of a row: its key values and row id.
    struct Position {
        std::vector<Value> Keys;
        std::int64_t RowId = 0;
    };

    // The disjoint groups of rows that follow (or precede) a position, nearest group first. Each
    // is a plain seek on the index: equal leading keys, then one bound on the next key. Read in
    // turn, in index order (reversed for "before"), they give the rows in order.
    std::vector<SqlCondition> After(const Position& from) const;
    std::vector<SqlCondition> Before(const Position& from) const;
    // All rows, from the first (or the last), as seeks on the first key: nulls and the rest.
    std::vector<SqlCondition> Everything(bool forward) const;

    // Rows whose leading keys lie from start to end, both inclusive, in index order.
    SqlCondition Range(const std::vector<Value>& start, const std::vector<Value>& end) const;

private:
    std::vector<Term> terms_;
};

} // namespace corvane::store
