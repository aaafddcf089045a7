#include "store/CompanyFile.h"

#include "store/Database.h"
#include "store/FileError.h"
#include "store/sql/Connection.h"

namespace corvane::store {

void CheckIntegrity(Database& db) {
    Statement s(db.Conn(), "PRAGMA main.quick_check");
    while (s.Step()) {
        const Value v = s.ColumnNatural(0);
        if (v.kind() == Value::Kind::String && v.Str() == "ok") continue;
        throw FileError(errTableCorrupt, CorruptMessage(db.Directory()),
                        "the company's data is damaged (company '" + db.Directory() + "')");
    }
}

ReadSnapshot::ReadSnapshot(Database& db) : db_(db) {
    Connection& conn = db_.Conn();
    if (conn.InTransaction()) return;
    conn.Exec("BEGIN");
    open_ = true;
    try {
        // A deferred transaction takes its read lock at the first read: take it now, so that
        // the snapshot is the company as it is at this point.
        conn.Exec("SELECT count(*) FROM main.sqlite_schema");
    } catch (...) {
        conn.Exec("ROLLBACK");
        open_ = false;
        throw;
    }
}

ReadSnapshot::~ReadSnapshot() {
    if (!open_ || !db_.Connected()) return;
    try {
        db_.Conn().Exec("COMMIT");
    } catch (...) {
        try {
            db_.Conn().Exec("ROLLBACK");
        } catch (...) {
        }
    }
}

} // namespace corvane::store
