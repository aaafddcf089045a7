#include "store/Schema.h"

#include "store/EngineError.h"
#include "store/sql/Connection.h"

#include <algorithm>

namespace corvane::store::schema {

std::string QuoteIdent(std::string_view name) {
    std::string out = "\"";
    for (char c : name) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

std::string StoredIndexName(std::string_view table, std::string_view index) {
    return std::string(table) + "@" + std::string(index);
}

std::string IndexColumnTerm(const IndexDef& index, std::string_view field) {
    std::string term = QuoteIdent(field);
    if (index.IsNoCase()) term += " COLLATE NOCASE";
    return term;
}

static std::string ColumnType(const FieldDef& f) {
    std::string t(StoredTypeName(f.Type));
    if (f.Type == FieldType::String) t += "(" + std::to_string(f.Size) + ")";
    return t;
}

std::vector<std::string> CreateTableStatements(const TableDef& def, std::string_view schemaName) {
    std::string prefix = QuoteIdent(schemaName) + ".";
    std::string sql = "CREATE TABLE " + prefix + QuoteIdent(def.Name) + " (";
    for (std::size_t i = 0; i < def.Fields.size(); ++i) {
        const auto& f = def.Fields[i];
        if (i) sql += ", ";
        sql += QuoteIdent(f.Name) + " " + ColumnType(f);
        if (f.Required) sql += " NOT NULL";
    }
    sql += ")";
    std::vector<std::string> out{sql};
    for (const auto& ix : def.Indexes)
        out.push_back(CreateIndexStatement(def, ix, schemaName));
    return out;
}

std::string CreateIndexStatement(const TableDef& def, const IndexDef& index,
                                 std::string_view schemaName) {
    std::string sql = index.IsUnique() ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
    sql += QuoteIdent(schemaName) + "." +
           QuoteIdent(StoredIndexName(def.Name, index.IsPrimary() ? "" : index.Name));
    sql += " ON " + QuoteIdent(def.Name) + " (";
    for (std::size_t i = 0; i < index.Fields.size(); ++i) {
        if (i) sql += ", ";
        sql += IndexColumnTerm(index, index.Fields[i]);
        if (index.IsDescending(index.Fields[i])) sql += " DESC";
    }
    return sql + ")";
}

std::string CreateAutoIncTableStatement(std::string_view schemaName) {
    return "CREATE TABLE IF NOT EXISTS " + QuoteIdent(schemaName) + "." + QuoteIdent(AutoIncTable) +
           " (TableName TEXT NOT NULL, FieldName TEXT NOT NULL, LastValue INTEGER NOT NULL, "
           "PRIMARY KEY (TableName, FieldName))";
}

std::vector<std::string> TableNames(Connection& conn, std::string_view schemaName) {
    Statement& s = conn.Cached("SELECT name FROM " + QuoteIdent(schemaName) +
                               ".sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite%' "
                               "AND name <> '" +
                               std::string(AutoIncTable) + "' ORDER BY name");
    StatementRun run(s);
    std::vector<std::string> names;
    while (s.Step())
        names.push_back(s.ColumnValue(0, FieldType::String).Str());
    return names;
}

std::optional<TableDef> ReadTableDef(Connection& conn, std::string_view schemaName,
                                     std::string_view table) {
    std::string qs = QuoteIdent(schemaName);
    TableDef def;
    {
        Statement& s =
            conn.Cached("SELECT name FROM " + qs +
                        ".sqlite_schema WHERE type = 'table' AND name = ?1 COLLATE NOCASE");
        StatementRun run(s);
        s.Bind(1, Value(std::string(table)));
        if (!s.Step()) return std::nullopt;
        def.Name = s.ColumnValue(0, FieldType::String).Str();
    }
    {
        // Pragma functions take their arguments as bound values, never pasted text.
        Statement& s = conn.Cached(
            "SELECT name, type, \"notnull\" FROM pragma_table_info(?1, ?2) ORDER BY cid");
        StatementRun run(s);
        s.Bind(1, Value(def.Name));
        s.Bind(2, Value(std::string(schemaName)));
        while (s.Step()) {
            FieldDef f;
            f.Name = s.ColumnValue(0, FieldType::String).Str();
            std::string declared = s.ColumnValue(1, FieldType::String).Str();
            if (!ParseStoredTypeName(declared, f.Type, f.Size))
                ThrowEngineError(errTableCorrupt, "Table '" + def.Name + "' has a column '" +
                                                      f.Name + "' of unknown type '" + declared +
                                                      "'");
            f.Required = s.ColumnInt(2) != 0;
            def.Fields.push_back(f);
        }
    }
    std::vector<std::pair<std::string, bool>> indexes;
    {
        // sqlite_schema keeps the indexes in the order they were created.
        Statement& s =
            conn.Cached("SELECT s.name, l.\"unique\" FROM " + qs +
                        ".sqlite_schema s JOIN pragma_index_list(?1, ?2) l ON l.name = s.name "
                        "WHERE s.type = 'index' AND l.origin = 'c' ORDER BY s.rowid");
        StatementRun run(s);
        s.Bind(1, Value(def.Name));
        s.Bind(2, Value(std::string(schemaName)));
        while (s.Step())
            indexes.emplace_back(s.ColumnValue(0, FieldType::String).Str(), s.ColumnInt(1) != 0);
    }
    std::string prefix = def.Name + "@";
    for (const auto& [stored, unique] : indexes) {
        if (stored.size() < prefix.size() || !SameName(stored.substr(0, prefix.size()), prefix))
            continue;
        IndexDef ix;
        ix.Name = stored.substr(prefix.size());
        if (ix.Name.empty())
            ix.Options |= ixPrimary | ixUnique;
        else if (unique)
            ix.Options |= ixUnique;
        Statement& s = conn.Cached("SELECT name, \"desc\", coll FROM pragma_index_xinfo(?1, ?2) "
                                   "WHERE key = 1 ORDER BY seqno");
        StatementRun run(s);
        s.Bind(1, Value(stored));
        s.Bind(2, Value(std::string(schemaName)));
        bool anyDesc = false, allDesc = true, nocase = false;
        std::vector<std::string> desc;
        while (s.Step()) {
            std::string field = s.ColumnValue(0, FieldType::String).Str();
            bool d = s.ColumnInt(1) != 0;
            if (SameName(s.ColumnValue(2, FieldType::String).Str(), "NOCASE")) nocase = true;
            ix.Fields.push_back(field);
            if (d) {
                anyDesc = true;
                desc.push_back(field);
            } else {
                allDesc = false;
            }
        }
        if (nocase) ix.Options |= ixNoCase;
        if (anyDesc) {
            ix.Options |= ixDescending;
            if (!allDesc) ix.DescFields = desc;
        }
        def.Indexes.push_back(ix);
    }
    // The primary index first, the others in the order they were created.
    std::stable_sort(
        def.Indexes.begin(), def.Indexes.end(),
        [](const IndexDef& a, const IndexDef& b) { return a.IsPrimary() && !b.IsPrimary(); });
    return def;
}

} // namespace corvane::store::schema
