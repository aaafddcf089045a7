#pragma once

#include "store/TableDef.h"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::store {

class Connection;
class DataSet;
class LockManager;
class Session;

// The open company ("myDatabase"): a folder whose tables the store keeps in one SQLite file,
// company.DAT, which also marks the folder as a database. Beside it the in-memory database
// "memory" holds the process's scratch tables. Every table cursor and query of the process
// works through this one object.
class Database {
public:
    static constexpr std::string_view MarkFileName = "company.DAT";
    static constexpr std::string_view LockFileName = "corvane.LCK";
    static constexpr std::string_view MainSchema = "main";
    static constexpr std::string_view MemorySchema = "memory";

    explicit Database(Session& session, std::string name = "myDatabase");
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    Session& OwnerSession() const { return session_; }
    const std::string& DatabaseName() const { return name_; }

    // The company folder. Changing it closes the database first.
    void SetDirectory(const std::string& folder);
    const std::string& Directory() const { return directory_; }

    // Fails with errNotADatabase when the folder is missing or holds no company.DAT.
    void Open();
    // Closes every cursor of the database, then the database.
    void Close();
    bool Connected() const { return conn_ != nullptr; }

    static bool IsDatabaseFolder(const std::string& folder);

    // "memory" selects the scratch database; any other name (or none) the company.
    static std::string_view SchemaFor(std::string_view databaseName);

    bool TableExists(std::string_view schemaName, std::string_view table);
    // The table as it stands in the database; errTableNotFound when it is not there.
    const TableDef& TableDefinition(std::string_view schemaName, std::string_view table);
    const TableDef* FindTableDefinition(std::string_view schemaName, std::string_view table);
    std::vector<std::string> TableNames(std::string_view schemaName = MainSchema);

    void CreateTable(const TableDef& def, std::string_view schemaName = MainSchema);
    void CreateIndex(std::string_view schemaName, std::string_view table, const IndexDef& index);
    void DropTable(std::string_view schemaName, std::string_view table);

    // A transaction over the named tables, from the first write of a run to its last.
    // Commit ends it durably on disk; Rollback undoes every row written since the start.
    void StartTransaction(const std::vector<std::string>& tables);
    void Commit();
    void Rollback();
    bool InTransaction() const { return inTransaction_; }
    const std::vector<std::string>& TransactionTables() const { return transactionTables_; }

    // The next value of an auto-increment field; a value given by the caller moves the
    // counter past it. Never hands out a number twice.
    std::int64_t NextAutoInc(std::string_view schemaName, std::string_view table,
                             std::string_view field);
    void NoteAutoIncValue(std::string_view schemaName, std::string_view table,
                          std::string_view field, std::int64_t value);

    // The lock slot of a table, the same in every process; -1 for scratch tables, which no
    // other process sees.
    int LockSlot(std::string_view schemaName, std::string_view table) const;

    Connection& Conn();
    LockManager& Locks();

    void RegisterCursor(DataSet* cursor);
    void UnregisterCursor(DataSet* cursor);
    const std::set<DataSet*>& Cursors() const { return cursors_; }

    // The schema of a scratch table changed: forget what was read of it.
    void ForgetDefinition(std::string_view schemaName, std::string_view table);

private:
    void CheckOpen() const;
    std::string DefKey(std::string_view schemaName, std::string_view table) const;
    void AfterRollback();

    Session& session_;
    std::string name_;
    std::string directory_;
    std::unique_ptr<Connection> conn_;
    std::unique_ptr<LockManager> locks_;
    std::map<std::string, std::unique_ptr<TableDef>> defs_;
    std::set<DataSet*> cursors_;
    bool inTransaction_ = false;
    std::vector<std::string> transactionTables_;
};

// A posting run's transaction: rolled back when it goes out of scope uncommitted, so that an
// exception half way leaves nothing written.
class Transaction {
public:
    Transaction(Database& db, const std::vector<std::string>& tables);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();
    void Rollback();

private:
    Database& db_;
    bool open_ = true;
};

} // namespace corvane::store
