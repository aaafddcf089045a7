#pragma once

#include "store/FieldType.h"
#include "store/Value.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace corvane::store {

class Connection;

// A prepared statement. Reset on destruction and after each run by its users, so that no
// statement keeps a read transaction open while the user sits idle: another process could
// not commit meanwhile.
class Statement {
public:
    Statement(Connection& conn, std::string_view sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    void Bind(int index, const Value& value); // 1-based
    void BindAll(const std::vector<Value>& values, int first = 1);
    void ClearBindings();
    // True while a row is there; false at the end.
    bool Step();
    void Reset();

    int ColumnCount() const;
    std::string ColumnName(int column) const;
    std::string ColumnDeclType(int column) const;
    bool ColumnIsNull(int column) const;
    std::int64_t ColumnInt(int column) const;
    // The column read as a stored value of the given field type.
    Value ColumnValue(int column, FieldType type) const;
    // The column read by what SQLite holds (for result columns of unknown type).
    Value ColumnNatural(int column) const;

    sqlite3_stmt* Handle() const { return stmt_; }

private:
    Connection& conn_;
    sqlite3_stmt* stmt_ = nullptr;
};

// RAII: resets the statement when the scope ends, whatever happens inside it.
class StatementRun {
public:
    explicit StatementRun(Statement& s) : s_(s) {}
    ~StatementRun() { s_.Reset(); }
    Statement& operator*() { return s_; }
    Statement* operator->() { return &s_; }

private:
    Statement& s_;
};

// One SQLite connection with a cache of prepared statements keyed by their text.
class Connection {
public:
    enum class Mode { ReadWrite, ReadWriteCreate, ReadOnly };
    Connection(const std::string& path, Mode mode);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Exec(std::string_view sql);
    // A statement of the program's own text, prepared once and kept.
    Statement& Cached(const std::string& sql);
    void ClearCache();

    // The SQLite VFS that connections opened from now on go through; empty for the default.
    // Tests name a layer that fails chosen writes, to prove a failure midway leaves a company
    // whole. Not guarded: set it while no other thread opens connections.
    static void SetVfsForNewConnections(std::string name);
    static const std::string& VfsForNewConnections();

    std::int64_t LastInsertRowId() const;
    int Changes() const;
    bool InTransaction() const;
    sqlite3* Handle() const { return db_; }

    // Throws the EngineError that fits an SQLite result code. context names the operation
    // and is put ahead of SQLite's own message.
    [[noreturn]] void Fail(int rc, const std::string& context) const;
    void Check(int rc, const std::string& context) const;

    // Rows stepped through in full table scans, summed over all statements of this
    // connection since it opened: tests use it to prove that moves and look-ups seek.
    std::int64_t FullScanSteps() const { return fullScanSteps_; }
    std::int64_t VmSteps() const { return vmSteps_; }
    void CollectStats(sqlite3_stmt* stmt);

private:
    sqlite3* db_ = nullptr;
    std::unordered_map<std::string, std::unique_ptr<Statement>> cache_;
    std::int64_t fullScanSteps_ = 0;
    std::int64_t vmSteps_ = 0;
};

// Maps an SQLite result code to the store's error code.
int EngineCodeFor(int sqliteExtendedCode);

} // namespace corvane::store
