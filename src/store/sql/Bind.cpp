#include "store/sql/Bind.h"

#include "store/EngineError.h"

#include <sqlite3.h>
#include <string>

namespace corvane::store {

namespace {

int BindText(sqlite3_stmt* stmt, int index, const std::string& text) {
    return sqlite3_bind_text64(stmt, index, text.data(), text.size(), SQLITE_TRANSIENT,
                               SQLITE_UTF8);
}

int BindStoredForm(sqlite3_stmt* stmt, int index, const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Null:
        return sqlite3_bind_null(stmt, index);
    case Value::Kind::Integer:
        return sqlite3_bind_int64(stmt, index, value.Int());
    case Value::Kind::Float:
        return sqlite3_bind_double(stmt, index, value.Float());
    case Value::Kind::Money:
        return sqlite3_bind_int64(stmt, index, value.Money().Units());
    case Value::Kind::String:
        return BindText(stmt, index, value.Str());
    case Value::Kind::Date:
        return BindText(stmt, index, value.Date().ToIso());
    case Value::Kind::Boolean:
        return sqlite3_bind_int(stmt, index, value.Bool() ? 1 : 0);
    case Value::Kind::Blob: {
        const std::string& bytes = value.BlobValue().Bytes;
        // A null data pointer would bind SQL NULL: an empty picture is still a picture.
        if (bytes.empty()) return sqlite3_bind_zeroblob(stmt, index, 0);
        return sqlite3_bind_blob64(stmt, index, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
    }
    }
    return SQLITE_MISUSE;
}

} // namespace

void BindValue(sqlite3_stmt* stmt, int index, const Value& value) {
    const int rc = BindStoredForm(stmt, index, value);
    if (rc == SQLITE_OK) return;
    const std::string what = "Unable to bind " + value.DebugString() + " to parameter " +
                             std::to_string(index) + ": " + sqlite3_errstr(rc);
    ThrowEngineError(rc == SQLITE_RANGE ? errSqlSyntax : errIo, what);
}

} // namespace corvane::store
