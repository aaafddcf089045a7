#include "store/sql/Connection.h"

#include "store/EngineError.h"
#include "store/FileError.h"
#include "store/sql/Bind.h"

#include <cmath>
#include <filesystem>
#include <sqlite3.h>
#include <utility>

namespace corvane::store {

int EngineCodeFor(int rc) {
    switch (rc) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
        return errKeyViolation;
    case SQLITE_CONSTRAINT_NOTNULL:
        return errRequiredField;
    case SQLITE_BUSY:
    case SQLITE_BUSY_RECOVERY:
    case SQLITE_BUSY_SNAPSHOT:
    case SQLITE_BUSY_TIMEOUT:
    case SQLITE_LOCKED:
    case SQLITE_LOCKED_SHAREDCACHE:
        return errTableLocked;
    case SQLITE_CORRUPT:
    case SQLITE_CORRUPT_INDEX:
    case SQLITE_CORRUPT_SEQUENCE:
    case SQLITE_CORRUPT_VTAB:
    case SQLITE_NOTADB:
        return errTableCorrupt;
    case SQLITE_READONLY:
        return errSqlRefused;
    default:
        break;
    }
    switch (rc & 0xff) {
    case SQLITE_CONSTRAINT:
        return errKeyViolation;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return errTableCorrupt;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return errTableLocked;
    case SQLITE_ERROR:
        return errSqlSyntax;
    case SQLITE_READONLY:
        return errSqlRefused;
    default:
        return errIo;
    }
}

Statement::Statement(Connection& conn, std::string_view sql) : conn_(conn) {
    int rc = sqlite3_prepare_v3(conn.Handle(), sql.data(), static_cast<int>(sql.size()),
                                SQLITE_PREPARE_PERSISTENT, &stmt_, nullptr);
    if (rc != SQLITE_OK) {
        sqlite3_finalize(stmt_);
        stmt_ = nullptr;
        conn.Fail(sqlite3_extended_errcode(conn.Handle()), "Unable to prepare statement");
    }
}

Statement::~Statement() {
    if (stmt_) {
        conn_.CollectStats(stmt_);
        sqlite3_finalize(stmt_);
    }
}

void Statement::Bind(int index, const Value& value) {
    BindValue(stmt_, index, value);
}

void Statement::BindAll(const std::vector<Value>& values, int first) {
    for (std::size_t i = 0; i < values.size(); ++i)
        BindValue(stmt_, first + static_cast<int>(i), values[i]);
}

void Statement::ClearBindings() {
    sqlite3_clear_bindings(stmt_);
}

bool Statement::Step() {
    int rc = sqlite3_step(stmt_);
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
    int ext = sqlite3_extended_errcode(conn_.Handle());
    sqlite3_reset(stmt_);
    conn_.Fail(ext, "");
}

void Statement::Reset() {
    conn_.CollectStats(stmt_);
    sqlite3_reset(stmt_);
}

int Statement::ColumnCount() const {
    return sqlite3_column_count(stmt_);
}

std::string Statement::ColumnName(int column) const {
    const char* n = sqlite3_column_name(stmt_, column);
    return n ? n : "";
}

std::string Statement::ColumnDeclType(int column) const {
    const char* t = sqlite3_column_decltype(stmt_, column);
    return t ? t : "";
}

bool Statement::ColumnIsNull(int column) const {
    return sqlite3_column_type(stmt_, column) == SQLITE_NULL;
}

std::int64_t Statement::ColumnInt(int column) const {
    return sqlite3_column_int64(stmt_, column);
}

static std::string ColumnText(sqlite3_stmt* stmt, int column) {
    const unsigned char* t = sqlite3_column_text(stmt, column);
    return t ? std::string(reinterpret_cast<const char*>(t),
                           static_cast<std::size_t>(sqlite3_column_bytes(stmt, column)))
             : std::string();
}

Value Statement::ColumnValue(int column, FieldType type) const {
    int stored = sqlite3_column_type(stmt_, column);
    if (stored == SQLITE_NULL) return Value();
    switch (type) {
    case FieldType::String:
    case FieldType::Memo:
        return Value(ColumnText(stmt_, column));
    case FieldType::SmallInt:
    case FieldType::Integer:
    case FieldType::AutoInc:
        if (stored == SQLITE_FLOAT)
            return Value(static_cast<std::int64_t>(sqlite3_column_double(stmt_, column)));
        return Value(static_cast<std::int64_t>(sqlite3_column_int64(stmt_, column)));
    case FieldType::Boolean:
        return Value(sqlite3_column_int64(stmt_, column) != 0);
    case FieldType::Float:
        return Value(sqlite3_column_double(stmt_, column));
    case FieldType::Currency:
        if (stored == SQLITE_FLOAT) {
            // A money expression of a query (an amount times a rate) comes back as a fraction
            // of ten-thousandths: round it half away from zero.
            double units = sqlite3_column_double(stmt_, column);
            return Value(Money::FromUnits(static_cast<std::int64_t>(
                units >= 0 ? std::floor(units + 0.5) : std::ceil(units - 0.5))));
        }
        return Value(Money::FromUnits(sqlite3_column_int64(stmt_, column)));
    case FieldType::Date: {
        if (auto d = Date::FromIso(ColumnText(stmt_, column))) return Value(*d);
        return Value();
    }
    case FieldType::Graphic: {
        const void* p = sqlite3_column_blob(stmt_, column);
        int n = sqlite3_column_bytes(stmt_, column);
        return Value(Blob{std::string(static_cast<const char*>(p), static_cast<std::size_t>(n))});
    }
    }
    return Value();
}

Value Statement::ColumnNatural(int column) const {
    switch (sqlite3_column_type(stmt_, column)) {
    case SQLITE_INTEGER:
        return Value(static_cast<std::int64_t>(sqlite3_column_int64(stmt_, column)));
    case SQLITE_FLOAT:
        return Value(sqlite3_column_double(stmt_, column));
    case SQLITE_TEXT:
        return Value(ColumnText(stmt_, column));
    case SQLITE_BLOB:
        return ColumnValue(column, FieldType::Graphic);
    default:
        return Value();
    }
}

namespace {
std::string& NewConnectionVfs() {
    static std::string name;
    return name;
}
} // namespace

void Connection::SetVfsForNewConnections(std::string name) {
    NewConnectionVfs() = std::move(name);
}

const std::string& Connection::VfsForNewConnections() {
    return NewConnectionVfs();
}

Connection::Connection(const std::string& path, Mode mode) {
    // The engine's memory statistics take a lock on every allocation, and nothing reads them;
    // a posting run allocates hundreds of thousands of times. This must come before the engine
    // first starts; if something started it already, the setting is refused and nothing else
    // changes.
    static const int noStatistics = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    (void)noStatistics;
    // A company folder is a path, whatever its name begins with: SQLite may be built to read
    // any name beginning with "file:" as a URI, which an absolute path never is.
    int flags = SQLITE_OPEN_NOMUTEX;
    std::string file = path;
    if (!file.empty() && file != ":memory:") {
        std::error_code ec;
        std::filesystem::path absolute = std::filesystem::absolute(path, ec);
        if (!ec) file = absolute.string();
    }
    switch (mode) {
    case Mode::ReadWrite:
        flags |= SQLITE_OPEN_READWRITE;
        break;
    case Mode::ReadWriteCreate:
        flags |= SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
        break;
    case Mode::ReadOnly:
        flags |= SQLITE_OPEN_READONLY;
        break;
    }
    const std::string& vfs = NewConnectionVfs();
    int rc = sqlite3_open_v2(file.c_str(), &db_, flags, vfs.empty() ? nullptr : vfs.c_str());
    if (rc != SQLITE_OK) {
        std::string message = db_ ? sqlite3_errmsg(db_) : "out of memory";
        sqlite3_close_v2(db_);
        db_ = nullptr;
        ThrowEngineError(EngineCodeFor(rc), "Unable to open '" + path + "': " + message);
    }
    sqlite3_extended_result_codes(db_, 1);
}

Connection::~Connection() {
    cache_.clear();
    if (db_) sqlite3_close_v2(db_);
}

void Connection::Exec(std::string_view sql) {
    std::string text(sql);
    char* err = nullptr;
    int rc = sqlite3_exec(db_, text.c_str(), nullptr, nullptr, &err);
    if (err) sqlite3_free(err);
    if (rc != SQLITE_OK) Fail(sqlite3_extended_errcode(db_), "");
}

Statement& Connection::Cached(const std::string& sql) {
    auto it = cache_.find(sql);
    if (it != cache_.end()) return *it->second;
    auto stmt = std::make_unique<Statement>(*this, sql);
    auto& ref = *stmt;
    cache_.emplace(sql, std::move(stmt));
    return ref;
}

void Connection::ClearCache() {
    cache_.clear();
}

std::int64_t Connection::LastInsertRowId() const {
    return sqlite3_last_insert_rowid(db_);
}

int Connection::Changes() const {
    return sqlite3_changes(db_);
}

bool Connection::InTransaction() const {
    return sqlite3_get_autocommit(db_) == 0;
}

namespace {

// What a failure of the company's file means to its user, as a clause; empty for failures of a
// statement itself (a constraint, a syntax error), whose own text says more.
std::string FileFailureClause(int rc) {
    switch (rc & 0xff) {
    case SQLITE_FULL:
        return "the disk is full";
    case SQLITE_IOERR:
        return "the company's files could not be read or written (a disk or network error)";
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return "the company's files may not be written by this user";
    case SQLITE_CANTOPEN:
        return "the company's files could not be opened";
    case SQLITE_NOMEM:
        return "the computer has run out of memory";
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return "the company's data is damaged";
    default:
        return "";
    }
}

} // namespace

void Connection::Fail(int rc, const std::string& context) const {
    const int code = EngineCodeFor(rc);
    const char* file = sqlite3_db_filename(db_, "main");
    const std::string folder =
        file && *file ? std::filesystem::path(file).parent_path().string() : std::string();
    if (code == errTableCorrupt)
        throw FileError(code, CorruptMessage(folder),
                        FileFailureClause(rc) + " (company '" + folder + "')");
    const std::string clause = FileFailureClause(rc);
    if (!clause.empty() && (rc & 0xff) != SQLITE_READONLY) {
        const std::string reason = clause + " (company '" + folder + "')";
        std::string message = "Company '" + folder + "': " + clause + ".";
        throw FileError(code, message, reason);
    }
    std::string message = sqlite3_errmsg(db_);
    if (!context.empty()) message = context + ": " + message;
    ThrowEngineError(code, message);
}

void Connection::Check(int rc, const std::string& context) const {
    if (rc != SQLITE_OK && rc != SQLITE_DONE && rc != SQLITE_ROW) Fail(rc, context);
}

void Connection::CollectStats(sqlite3_stmt* stmt) {
    fullScanSteps_ += sqlite3_stmt_status(stmt, SQLITE_STMTSTATUS_FULLSCAN_STEP, 1);
    vmSteps_ += sqlite3_stmt_status(stmt, SQLITE_STMTSTATUS_VM_STEP, 1);
}

} // namespace corvane::store
