#include "store/Maintenance.h"

#include "store/Database.h"
#include "store/EngineError.h"
#include "store/LockManager.h"
#include "store/Schema.h"
#include "store/Table.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyTables.h"

#include <memory>
#include <optional>

namespace corvane::store {

namespace {

std::string Qualified(std::string_view table) {
    return "\"main\"." + schema::QuoteIdent(table);
}

// Holds a table exclusively for the length of a maintenance pass. Only the open lock is taken:
// a damaged table may not even read its first row.
class ExclusiveHold {
public:
    ExclusiveHold(Database& db, const std::string& table)
        : db_(db), slot_(db.LockSlot(Database::MainSchema, table)) {
        db_.Locks().AcquireOpen(slot_, table, this, true);
    }
    ~ExclusiveHold() {
        try {
            db_.Locks().ReleaseOpen(slot_, this);
        } catch (...) {
        }
    }
    ExclusiveHold(const ExclusiveHold&) = delete;
    ExclusiveHold& operator=(const ExclusiveHold&) = delete;

private:
    Database& db_;
    int slot_;
};

// Reads rows one by one in row id order from one end until a read fails.
long long Salvage(Connection& conn, const TableDef& def, bool fromStart,
                  std::optional<std::int64_t> stopAt,
                  std::vector<std::pair<std::int64_t, std::vector<Value>>>& rows) {
    std::string columns = "rowid";
    for (const auto& f : def.Fields)
        columns += ", " + schema::QuoteIdent(f.Name);
    std::string sql = "SELECT " + columns + " FROM " + Qualified(def.Name) +
                      (fromStart ? " WHERE rowid > ?1 ORDER BY rowid LIMIT 1"
                                 : " WHERE rowid < ?1 ORDER BY rowid DESC LIMIT 1");
    long long read = 0;
    std::int64_t from = fromStart ? INT64_MIN : INT64_MAX;
    try {
        Statement s(conn, sql);
        for (;;) {
            StatementRun run(s);
            s.Bind(1, Value(from));
            if (!s.Step()) break;
            std::int64_t rowid = s.ColumnInt(0);
            if (stopAt && (fromStart ? rowid >= *stopAt : rowid <= *stopAt)) break;
            std::vector<Value> values;
            for (std::size_t i = 0; i < def.Fields.size(); ++i)
                values.push_back(s.ColumnValue(static_cast<int>(i) + 1, def.Fields[i].Type));
            rows.emplace_back(rowid, std::move(values));
            from = rowid;
            ++read;
        }
    } catch (const EngineError&) {
        // The damaged part starts here; the other end is read from the other side.
    }
    return read;
}

long long CountRows(Connection& conn, std::string_view table) {
    try {
        Statement s(conn, "SELECT count(*) FROM " + Qualified(table) + " NOT INDEXED");
        s.Step();
        return s.ColumnInt(0);
    } catch (const EngineError&) {
        return -1;
    }
}

} // namespace

std::vector<std::string> VerifyTable(Database& db, std::string_view table) {
    const TableDef& def = db.TableDefinition(Database::MainSchema, table);
    std::vector<std::string> problems;
    try {
        Statement s(db.Conn(), "SELECT * FROM pragma_integrity_check(?1)");
        s.Bind(1, Value(def.Name));
        while (s.Step()) {
            std::string line = s.ColumnValue(0, FieldType::String).Str();
            if (line != "ok") problems.push_back(line);
        }
    } catch (const EngineError& e) {
        problems.push_back(e.what());
    }
    return problems;
}

RepairResult RepairTable(Database& db, std::string_view table) {
    TableDef def = db.TableDefinition(Database::MainSchema, table);
    ExclusiveHold hold(db, def.Name);
    RepairResult result;
    {
        if (VerifyTable(db, def.Name).empty()) {
            result.RowsKept = CountRows(db.Conn(), def.Name);
            return result;
        }
        result.WasDamaged = true;
        auto& conn = db.Conn();
        // Damaged indexes alone are rebuilt from the rows.
        try {
            conn.Exec("REINDEX " + Qualified(def.Name));
            if (VerifyTable(db, def.Name).empty()) {
                result.RowsKept = CountRows(conn, def.Name);
                return result;
            }
        } catch (const EngineError&) {
        }
        // The rows themselves are damaged: read what can be read from both ends, then make the
        // table anew. The old table's pages are left unreachable and go at the next compaction.
        std::vector<std::pair<std::int64_t, std::vector<Value>>> rows;
        Salvage(conn, def, true, std::nullopt, rows);
        std::optional<std::int64_t> stop;
        if (!rows.empty()) stop = rows.back().first;
        Salvage(conn, def, false, stop, rows);
        long long before = 0;
        {
            std::string sql = "SELECT max(rowid) FROM " + Qualified(def.Name);
            try {
                Statement s(conn, sql);
                if (s.Step()) before = s.ColumnInt(0);
            } catch (const EngineError&) {
            }
        }
        conn.Exec("SAVEPOINT corvane_repair");
        try {
            conn.Exec("PRAGMA writable_schema = ON");
            Statement drop(conn, "DELETE FROM main.sqlite_schema WHERE tbl_name = ?1");
            drop.Bind(1, Value(def.Name));
            drop.Step();
            drop.Reset();
            // The connection reads its schema again only when the schema's version moves.
            Statement version(conn, "PRAGMA main.schema_version");
            version.Step();
            std::int64_t next = version.ColumnInt(0) + 1;
            version.Reset();
            conn.Exec("PRAGMA main.schema_version = " + std::to_string(next));
            conn.Exec("PRAGMA writable_schema = OFF");
            db.ForgetDefinition(Database::MainSchema, def.Name);
            conn.ClearCache();
            for (const auto& statement : schema::CreateTableStatements(def, Database::MainSchema))
                conn.Exec(statement);
            std::string insert = "INSERT INTO " + Qualified(def.Name) + " (rowid";
            for (const auto& f : def.Fields)
                insert += ", " + schema::QuoteIdent(f.Name);
            insert += ") VALUES (?";
            for (std::size_t i = 0; i < def.Fields.size(); ++i)
                insert += ", ?";
            insert += ")";
            Statement put(conn, insert);
            for (const auto& [rowid, values] : rows) {
                StatementRun run(put);
                put.Bind(1, Value(rowid));
                put.BindAll(values, 2);
                try {
                    put.Step();
                } catch (const EngineError& e) {
                    // Two salvaged rows that break a unique index: the later one is lost.
                    if (e.ErrorCode() != errKeyViolation) throw;
                }
            }
            conn.Exec("RELEASE corvane_repair");
        } catch (...) {
            conn.Exec("PRAGMA writable_schema = OFF");
            conn.Exec("ROLLBACK TO corvane_repair");
            conn.Exec("RELEASE corvane_repair");
            throw;
        }
        result.RowsKept = CountRows(conn, def.Name);
        result.RowsLost = before > result.RowsKept ? before - result.RowsKept : 0;
    }
    return result;
}

bool PackTable(Database& db, std::string_view table) {
    TableDef def = db.TableDefinition(Database::MainSchema, table);
    ExclusiveHold hold(db, def.Name);
    auto& conn = db.Conn();
    conn.Exec("REINDEX " + Qualified(def.Name));
    // Compaction renumbers the rows of every table: only when every other table is free too.
    std::vector<std::unique_ptr<ExclusiveHold>> others;
    try {
        for (const TableDef* other : tables::CompanyTables())
            if (!SameName(other->Name, def.Name))
                others.push_back(std::make_unique<ExclusiveHold>(db, other->Name));
    } catch (const EngineError& e) {
        if (e.ErrorCode() != errTableInUse) throw;
        return false;
    }
    conn.ClearCache();
    conn.Exec("VACUUM main");
    return true;
}

} // namespace corvane::store
