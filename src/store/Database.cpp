#include "store/Database.h"

#include "store/DataSet.h"
#include "store/EngineError.h"
#include "store/LockManager.h"
#include "store/Schema.h"
#include "store/Session.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlTranslator.h"
#include "store/tables/CompanyTables.h"

#include <cctype>
#include <filesystem>
#include <sqlite3.h>

namespace corvane::store {

namespace fs = std::filesystem;

Database::Database(Session& session, std::string name)
    : session_(session), name_(std::move(name)) {}

Database::~Database() {
    try {
        Close();
    } catch (...) {
    }
}

void Database::SetDirectory(const std::string& folder) {
    if (folder == directory_) return;
    Close();
    directory_ = folder;
}

bool Database::IsDatabaseFolder(const std::string& folder) {
    std::error_code ec;
    return !folder.empty() && fs::is_regular_file(fs::path(folder) / MarkFileName, ec);
}

std::string_view Database::SchemaFor(std::string_view databaseName) {
    return SameName(databaseName, MemorySchema) ? MemorySchema : MainSchema;
}

void Database::Open() {
    if (conn_) return;
    std::error_code ec;
    if (directory_.empty() || !fs::is_directory(directory_, ec))
        ThrowEngineError(errNotADatabase, "The folder '" + directory_ + "' does not exist");
    if (!IsDatabaseFolder(directory_))
        ThrowEngineError(errNotADatabase, "The folder '" + directory_ +
                                              "' is not a company database: it holds no " +
                                              std::string(MarkFileName));
    // An empty company.DAT (a copy that failed, a disk that lost it) is no company at all; SQLite
    // would take it for a new, empty database and every table would be missing.
    if (fs::file_size(fs::path(directory_) / MarkFileName, ec) == 0 || ec)
        ThrowEngineError(errNotADatabase, "The folder '" + directory_ +
                                              "' is not a company database: its " +
                                              std::string(MarkFileName) + " is empty");
    auto conn = std::make_unique<Connection>((fs::path(directory_) / MarkFileName).string(),
                                             Connection::Mode::ReadWrite);
    // Before anything reads the file: even the first look at its header (setting the journal
    // mode) may meet another process's commit, and must wait for it rather than fail.
    sqlite3_busy_timeout(conn->Handle(), session_.BusyTimeoutMs);
    // The rollback journal, not WAL: WAL needs memory shared on one host, and a company folder
    // is meant to be shared over the network. Every commit is synced to disk.
    conn->Exec("PRAGMA journal_mode = DELETE");
    conn->Exec("PRAGMA synchronous = FULL");
    // A large cache keeps a long posting run from spilling to the file before it commits,
    // which would lock readers out early.
    conn->Exec("PRAGMA cache_size = -65536");
    conn->Exec("PRAGMA temp_store = MEMORY");
    // Reading the schema proves the file is a sound database before anything relies on it.
    conn->Exec("SELECT count(*) FROM sqlite_schema");
    // A journal left by a process killed before it had written a whole header is not "hot":
    // SQLite neither rolls it back nor removes it. Under the write lock no other process can be
    // using a journal, so one still there then is a leftover.
    const fs::path journal = fs::path(directory_) / (std::string(MarkFileName) + "-journal");
    if (fs::exists(journal, ec)) {
        conn->Exec("BEGIN IMMEDIATE");
        fs::remove(journal, ec);
        conn->Exec("ROLLBACK");
    }
    conn->Exec("ATTACH DATABASE ':memory:' AS memory");
    conn->Exec(schema::CreateAutoIncTableStatement(MemorySchema));
    sql::RegisterSqlFunctions(conn->Handle());
    locks_ = std::make_unique<LockManager>((fs::path(directory_) / LockFileName).string(),
                                           session_.Policy());
    conn_ = std::move(conn);
}

void Database::Close() {
    if (!conn_) return;
    // Cursors close themselves out of the set as they go.
    while (!cursors_.empty()) {
        DataSet* c = *cursors_.begin();
        c->DatabaseClosing();
        cursors_.erase(c);
    }
    if (inTransaction_ || conn_->InTransaction()) {
        try {
            conn_->Exec("ROLLBACK");
        } catch (...) {
        }
    }
    inTransaction_ = false;
    transactionTables_.clear();
    defs_.clear();
    conn_.reset();
    locks_.reset();
}

void Database::CheckOpen() const {
    if (!conn_) ThrowEngineError(errDataSetState, "Database '" + name_ + "' is not open");
}

Connection& Database::Conn() {
    CheckOpen();
    return *conn_;
}

LockManager& Database::Locks() {
    CheckOpen();
    return *locks_;
}

// ----- tables

std::string Database::DefKey(std::string_view schemaName, std::string_view table) const {
    std::string key(schemaName);
    key += '.';
    for (char c : table)
        key += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return key;
}

const TableDef* Database::FindTableDefinition(std::string_view schemaName, std::string_view table) {
    CheckOpen();
    std::string key = DefKey(schemaName, table);
    auto it = defs_.find(key);
    if (it != defs_.end()) return it->second.get();
    auto def = schema::ReadTableDef(*conn_, schemaName, table);
    if (!def) return nullptr;
    auto& slot = defs_[key];
    slot = std::make_unique<TableDef>(std::move(*def));
    return slot.get();
}

const TableDef& Database::TableDefinition(std::string_view schemaName, std::string_view table) {
    if (const TableDef* def = FindTableDefinition(schemaName, table)) return *def;
    std::string where = schemaName == MemorySchema ? std::string("memory") : "'" + directory_ + "'";
    ThrowEngineError(errTableNotFound,
                     "Table '" + std::string(table) + "' does not exist in database " + where);
}

bool Database::TableExists(std::string_view schemaName, std::string_view table) {
    return FindTableDefinition(schemaName, table) != nullptr;
}

std::vector<std::string> Database::TableNames(std::string_view schemaName) {
    CheckOpen();
    return schema::TableNames(*conn_, schemaName);
}

void Database::ForgetDefinition(std::string_view schemaName, std::string_view table) {
    defs_.erase(DefKey(schemaName, table));
}

void Database::CreateTable(const TableDef& def, std::string_view schemaName) {
    CheckOpen();
    if (TableExists(schemaName, def.Name))
        ThrowEngineError(errTableExists, "Table '" + def.Name + "' already exists");
    // The table and all its indexes, or nothing.
    conn_->Exec("SAVEPOINT corvane_create");
    try {
        for (const auto& statement : schema::CreateTableStatements(def, schemaName))
            conn_->Exec(statement);
        conn_->Exec(schema::CreateAutoIncTableStatement(schemaName));
        conn_->Exec("RELEASE corvane_create");
    } catch (...) {
        conn_->Exec("ROLLBACK TO corvane_create");
        conn_->Exec("RELEASE corvane_create");
        throw;
    }
    ForgetDefinition(schemaName, def.Name);
}

void Database::CreateIndex(std::string_view schemaName, std::string_view table,
                           const IndexDef& index) {
    TableDef def = TableDefinition(schemaName, table);
    conn_->Exec(schema::CreateIndexStatement(def, index, schemaName));
    ForgetDefinition(schemaName, table);
}

void Database::DropTable(std::string_view schemaName, std::string_view table) {
    std::string name = TableDefinition(schemaName, table).Name;
    conn_->Exec("DROP TABLE " + schema::QuoteIdent(schemaName) + "." + schema::QuoteIdent(name));
    Statement& s =
        conn_->Cached("DELETE FROM " + schema::QuoteIdent(schemaName) + "." +
                      schema::QuoteIdent(schema::AutoIncTable) + " WHERE TableName = ?1");
    StatementRun run(s);
    s.Bind(1, Value(name));
    s.Step();
    ForgetDefinition(schemaName, name);
}

int Database::LockSlot(std::string_view schemaName, std::string_view table) const {
    if (schemaName == MemorySchema) return -1;
    int slot = tables::CompanyTableSlot(table);
    if (slot >= 0) return slot;
    // A table outside the company's fixed list (an import's work table): a slot from its name,
    // beyond the fixed ones, the same in every process.
    std::uint32_t h = 2166136261u;
    for (char c : table) {
        h ^= static_cast<unsigned char>(std::toupper(static_cast<unsigned char>(c)));
        h *= 16777619u;
    }
    return 256 + static_cast<int>(h % 65536u);
}

// ----- auto-increment counters

std::int64_t Database::NextAutoInc(std::string_view schemaName, std::string_view table,
                                   std::string_view field) {
    Statement& s = Conn().Cached("INSERT INTO " + schema::QuoteIdent(schemaName) + "." +
                                 schema::QuoteIdent(schema::AutoIncTable) +
                                 " (TableName, FieldName, LastValue) VALUES (?1, ?2, 1) "
                                 "ON CONFLICT (TableName, FieldName) DO UPDATE SET LastValue = "
                                 "LastValue + 1 RETURNING LastValue");
    StatementRun run(s);
    s.Bind(1, Value(std::string(table)));
    s.Bind(2, Value(std::string(field)));
    s.Step();
    return s.ColumnInt(0);
}

void Database::NoteAutoIncValue(std::string_view schemaName, std::string_view table,
                                std::string_view field, std::int64_t value) {
    Statement& s = Conn().Cached("INSERT INTO " + schema::QuoteIdent(schemaName) + "." +
                                 schema::QuoteIdent(schema::AutoIncTable) +
                                 " (TableName, FieldName, LastValue) VALUES (?1, ?2, ?3) "
                                 "ON CONFLICT (TableName, FieldName) DO UPDATE SET LastValue = "
                                 "max(LastValue, excluded.LastValue)");
    StatementRun run(s);
    s.Bind(1, Value(std::string(table)));
    s.Bind(2, Value(std::string(field)));
    s.Bind(3, Value(value));
    s.Step();
}

// ----- transactions

void Database::StartTransaction(const std::vector<std::string>& tables) {
    CheckOpen();
    if (inTransaction_) ThrowEngineError(errTransaction, "A transaction is already active");
    // Only a read snapshot holds the connection outside a transaction of its own: a report is
    // still laying out its pages (a preview lets the user act meanwhile).
    if (conn_->InTransaction())
        ThrowEngineError(errTransaction, "A report is still reading the company. Try again "
                                         "once its pages are made.");
    for (const auto& t : tables)
        if (!TableExists(MainSchema, t) && !TableExists(MemorySchema, t))
            ThrowEngineError(errTableNotFound,
                             "Table '" + t + "' of the transaction does not exist");
    // IMMEDIATE takes the write lock now, so that a run never fails half way for want of it.
    conn_->Exec("BEGIN IMMEDIATE");
    inTransaction_ = true;
    transactionTables_ = tables;
}

void Database::Commit() {
    CheckOpen();
    if (!inTransaction_) ThrowEngineError(errTransaction, "No transaction is active");
    try {
        conn_->Exec("COMMIT");
    } catch (...) {
        Rollback();
        throw;
    }
    inTransaction_ = false;
    transactionTables_.clear();
}

void Database::Rollback() {
    CheckOpen();
    if (!inTransaction_) return;
    if (conn_->InTransaction()) conn_->Exec("ROLLBACK");
    inTransaction_ = false;
    transactionTables_.clear();
    AfterRollback();
}

void Database::AfterRollback() {
    auto cursors = cursors_;
    for (DataSet* c : cursors)
        c->DatabaseRolledBack();
}

void Database::RegisterCursor(DataSet* cursor) {
    cursors_.insert(cursor);
}

void Database::UnregisterCursor(DataSet* cursor) {
    cursors_.erase(cursor);
}

Transaction::Transaction(Database& db, const std::vector<std::string>& tables) : db_(db) {
    db_.StartTransaction(tables);
}

Transaction::~Transaction() {
    if (!open_) return;
    try {
        db_.Rollback();
    } catch (...) {
    }
}

void Transaction::Commit() {
    db_.Commit();
    open_ = false;
}

void Transaction::Rollback() {
    open_ = false;
    db_.Rollback();
}

} // namespace corvane::store
