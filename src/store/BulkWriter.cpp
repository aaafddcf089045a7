#include "store/BulkWriter.h"

#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Schema.h"
#include "store/TableDef.h"
#include "store/sql/Connection.h"

#include <algorithm>

namespace corvane::store {

namespace {

const TableDef& Definition(Database& db, const std::string& table) {
    return db.TableDefinition(Database::MainSchema, table);
}

const FieldDef& Checked(const TableDef& def, const std::string& field) {
    const FieldDef* found = def.FindField(field);
    if (!found)
        ThrowEngineError(errFieldNotFound,
                         "Field '" + field + "' not found in table '" + def.Name + "'");
    return *found;
}

std::string Qualified(const TableDef& def) {
    return "main." + schema::QuoteIdent(def.Name);
}

} // namespace

BulkInsert::BulkInsert(Database& db, const std::string& table,
                       const std::vector<std::string>& fields)
    : db_(db), fields_(fields.size()) {
    const TableDef& def = Definition(db, table);
    std::string names;
    std::string marks;
    for (const auto& field : fields) {
        names += (names.empty() ? "" : ", ") + schema::QuoteIdent(Checked(def, field).Name);
        marks += marks.empty() ? "?" : ", ?";
    }
    sql_ = "INSERT INTO " + Qualified(def) + " (" + names + ") VALUES (" + marks + ")";
    // Within the engine's oldest limit of bound values in one statement.
    constexpr std::size_t kMostValues = 999, kMostRows = 64;
    batchRows_ = std::max<std::size_t>(
        1, std::min(kMostRows, kMostValues / std::max<std::size_t>(1, fields_)));
    batchSql_ = sql_;
    for (std::size_t row = 1; row < batchRows_; ++row)
        batchSql_ += ", (" + marks + ")";
}

RowRef BulkInsert::Add(const std::vector<Value>& values) {
    if (values.size() != fields_)
        ThrowEngineError(errInvalidValue, "Wrong number of values for a bulk insert");
    Statement& s = db_.Conn().Cached(sql_);
    StatementRun run(s);
    s.BindAll(values);
    s.Step();
    return RowRef(db_.Conn().LastInsertRowId());
}

void BulkInsert::Queue(const std::vector<Value>& values) {
    if (values.size() != fields_)
        ThrowEngineError(errInvalidValue, "Wrong number of values for a bulk insert");
    queued_.insert(queued_.end(), values.begin(), values.end());
    if (queued_.size() < batchRows_ * fields_) return;
    Statement& s = db_.Conn().Cached(batchSql_);
    StatementRun run(s);
    s.BindAll(queued_);
    queued_.clear();
    s.Step();
}

void BulkInsert::Flush() {
    if (queued_.empty()) return;
    std::vector<Value> rest;
    rest.swap(queued_);
    Statement& s = db_.Conn().Cached(sql_);
    for (std::size_t at = 0; at < rest.size(); at += fields_) {
        StatementRun run(s);
        s.BindAll(std::vector<Value>(rest.begin() + static_cast<std::ptrdiff_t>(at),
                                     rest.begin() + static_cast<std::ptrdiff_t>(at + fields_)));
        s.Step();
    }
}

BulkLookup::BulkLookup(Database& db, const std::string& table,
                       const std::vector<std::string>& keyFields,
                       const std::vector<std::string>& readFields)
    : db_(db), keys_(keyFields.size()) {
    const TableDef& def = Definition(db, table);
    sql_ = "SELECT rowid";
    for (const auto& field : readFields) {
        const FieldDef& f = Checked(def, field);
        sql_ += ", " + schema::QuoteIdent(f.Name);
        types_.push_back(static_cast<int>(f.Type));
    }
    sql_ += " FROM " + Qualified(def);
    std::string where;
    for (const auto& field : keyFields)
        where += (where.empty() ? " WHERE " : " AND ") +
                 schema::QuoteIdent(Checked(def, field).Name) + " IS ?";
    sql_ += where + " LIMIT 1";
}

std::optional<BulkLookup::Found> BulkLookup::Find(const std::vector<Value>& key) {
    if (key.size() != keys_)
        ThrowEngineError(errInvalidValue, "Wrong number of key values for a look-up");
    Statement& s = db_.Conn().Cached(sql_);
    StatementRun run(s);
    s.BindAll(key);
    if (!s.Step()) return std::nullopt;
    Found found{RowRef(s.ColumnInt(0)), {}};
    found.Values.reserve(types_.size());
    for (std::size_t i = 0; i < types_.size(); ++i)
        found.Values.push_back(
            s.ColumnValue(static_cast<int>(i) + 1, static_cast<FieldType>(types_[i])));
    return found;
}

BulkUpdate::BulkUpdate(Database& db, const std::string& table,
                       const std::vector<std::string>& fields)
    : db_(db), fields_(fields.size()) {
    const TableDef& def = Definition(db, table);
    std::string set;
    for (const auto& field : fields)
        set += (set.empty() ? "" : ", ") + schema::QuoteIdent(Checked(def, field).Name) + " = ?";
    sql_ = "UPDATE " + Qualified(def) + " SET " + set + " WHERE rowid = ?";
}

void BulkUpdate::Set(RowRef row, const std::vector<Value>& values) {
    if (values.size() != fields_)
        ThrowEngineError(errInvalidValue, "Wrong number of values for a bulk update");
    Statement& s = db_.Conn().Cached(sql_);
    StatementRun run(s);
    s.BindAll(values);
    s.Bind(static_cast<int>(fields_) + 1, Value(row.id_));
    s.Step();
}

BulkKeyedUpdate::BulkKeyedUpdate(Database& db, const std::string& table,
                                 const std::vector<std::string>& keyFields,
                                 const std::vector<std::string>& fields)
    : db_(db), keys_(keyFields.size()), fields_(fields.size()) {
    const TableDef& def = Definition(db, table);
    std::string set;
    for (const auto& field : fields)
        set += (set.empty() ? "" : ", ") + schema::QuoteIdent(Checked(def, field).Name) + " = ?";
    std::string where;
    for (const auto& field : keyFields)
        where += (where.empty() ? " WHERE " : " AND ") +
                 schema::QuoteIdent(Checked(def, field).Name) + " IS ?";
    sql_ = "UPDATE " + Qualified(def) + " SET " + set + where;
}

void BulkKeyedUpdate::Set(const std::vector<Value>& key, const std::vector<Value>& values) {
    if (key.size() != keys_ || values.size() != fields_)
        ThrowEngineError(errInvalidValue, "Wrong number of values for a bulk update");
    Statement& s = db_.Conn().Cached(sql_);
    StatementRun run(s);
    s.BindAll(values);
    s.BindAll(key, static_cast<int>(fields_) + 1);
    s.Step();
}

std::int64_t CountRowsWhere(Database& db, const std::string& table, const std::string& field,
                            const Value& value) {
    const TableDef& def = Definition(db, table);
    Statement& s = db.Conn().Cached("SELECT count(*) FROM " + Qualified(def) + " WHERE " +
                                    schema::QuoteIdent(Checked(def, field).Name) + " = ?");
    StatementRun run(s);
    s.Bind(1, value);
    s.Step();
    return s.ColumnInt(0);
}

void DeleteRowsWhere(Database& db, const std::string& table, const std::string& field,
                     const Value& value) {
    const TableDef& def = Definition(db, table);
    Statement& s = db.Conn().Cached("DELETE FROM " + Qualified(def) + " WHERE " +
                                    schema::QuoteIdent(Checked(def, field).Name) + " = ?");
    StatementRun run(s);
    s.Bind(1, value);
    s.Step();
}

} // namespace corvane::store
