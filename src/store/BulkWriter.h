#pragma once

#include "store/Value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {

class Database;
struct TableDef;

// Writes many rows of one table at the speed of the engine, for runs that write thousands of
// rows inside their transaction (posting, the sample company), where a cursor per row would cost
// most of the time. Every field is named and checked against the table's definition when the
// writer is made, so a misspelt field fails at once and no text reaches a statement unchecked.

// A row as a writer finds it again; how the store names rows is its own business.
class RowRef {
public:
    RowRef() = default;
    bool operator==(const RowRef&) const = default;

private:
    friend class BulkInsert;
    friend class BulkLookup;
    friend class BulkUpdate;
    explicit RowRef(std::int64_t id) : id_(id) {}
    std::int64_t id_ = 0;
};

// Inserts rows with values for the named fields; the fields not named stay null.
class BulkInsert {
public:
    BulkInsert(Database& db, const std::string& table, const std::vector<std::string>& fields);
    // One value per field, in the order named.
    RowRef Add(const std::vector<Value>& values);
    // The same row, written later with others in one statement: a table with many indexes
    // costs a statement's setup once for the batch instead of once a row. The rows are in the
    // table only after Flush (or once a batch is full); the caller flushes before it reads the
    // table or commits.
    void Queue(const std::vector<Value>& values);
    void Flush();

private:
    Database& db_;
    std::string sql_;
    std::size_t fields_;
    std::size_t batchRows_; // rows a full batch writes in one statement
    std::string batchSql_;
    std::vector<Value> queued_;
};

// Finds the first row whose key fields hold the given values (an empty value finds an empty
// field) and reads the named fields, each as its field's type.
class BulkLookup {
public:
    BulkLookup(Database& db, const std::string& table, const std::vector<std::string>& keyFields,
               const std::vector<std::string>& readFields);
    struct Found {
        RowRef Row;
        std::vector<Value> Values;
    };
    std::optional<Found> Find(const std::vector<Value>& key);

private:
    Database& db_;
    std::string sql_;
    std::size_t keys_;
    std::vector<int> types_; // FieldType of each field read
};

// Sets the named fields of a row found or inserted before.
class BulkUpdate {
public:
    BulkUpdate(Database& db, const std::string& table, const std::vector<std::string>& fields);
    void Set(RowRef row, const std::vector<Value>& values);

private:
    Database& db_;
    std::string sql_;
    std::size_t fields_;
};

// Sets the named fields of every row whose key fields hold the given values (an empty value
// matches an empty field; no key fields: every row), in one statement: for a run that knows its
// rows by their keys alone, where a look-up first would cost a second statement a row.
class BulkKeyedUpdate {
public:
    BulkKeyedUpdate(Database& db, const std::string& table,
                    const std::vector<std::string>& keyFields,
                    const std::vector<std::string>& fields);
    void Set(const std::vector<Value>& key, const std::vector<Value>& values);

private:
    Database& db_;
    std::string sql_;
    std::size_t keys_;
    std::size_t fields_;
};

// The rows whose field holds the value: how many, and removing them.
std::int64_t CountRowsWhere(Database& db, const std::string& table, const std::string& field,
                            const Value& value);
void DeleteRowsWhere(Database& db, const std::string& table, const std::string& field,
                     const Value& value);

} // namespace corvane::store
