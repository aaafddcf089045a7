#include "store/sql/WriteStatements.h"

#include "store/EngineError.h"
#include "store/sql/ExpressionTranslator.h"
#include "store/sql/SelectTranslator.h"

#include <algorithm>

namespace corvane::store::sql {

namespace {

const FieldDef& RequireField(const TableDef& table, const NamePos& column) {
    const FieldDef* field = table.FindField(column.Name);
    if (!field) {
        ThrowEngineError(errFieldNotFound, "Field '" + column.Name + "' not found in table '" +
                                               table.Name + "'" + PositionText(column.Pos));
    }
    return *field;
}

// The one table an UPDATE or DELETE works on, as the scope of its expressions.
ScopeSource TargetSource(const ResolvedTable& table, const std::string& alias) {
    ScopeSource source;
    source.Table = table.Def;
    source.Alias = alias.empty() ? table.Def->Name : alias;
    source.SqlRef = QuoteName(source.Alias);
    return source;
}

std::string TargetSql(const ResolvedTable& table, const std::string& alias) {
    return table.Sql + (alias.empty() ? "" : " AS " + QuoteName(alias));
}

TranslatedStatement Result(TranslatedStatement::Kind kind, const ResolvedTable& table,
                           std::string sql) {
    TranslatedStatement out;
    out.StatementKind = kind;
    out.Sql = std::move(sql);
    out.TargetSchema = table.Schema;
    out.TargetTable = table.Def->Name;
    return out;
}

} // namespace

TranslatedStatement TranslateInsert(TranslationContext& context, const InsertStatement& insert) {
    ResolvedTable table = context.RequireTable(insert.Table);
    std::vector<const FieldDef*> targets;
    if (insert.Columns.empty()) {
        for (const auto& f : table.Def->Fields)
            targets.push_back(&f);
    } else {
        for (const auto& c : insert.Columns) {
            const FieldDef* f = &RequireField(*table.Def, c);
            if (std::find(targets.begin(), targets.end(), f) != targets.end())
                ThrowSqlSyntax("the field " + f->Name + " is given twice", c.Pos);
            targets.push_back(f);
        }
    }
    std::string sql = "INSERT INTO " + table.Sql + " (";
    for (std::size_t i = 0; i < targets.size(); ++i)
        sql += (i ? ", " : "") + QuoteName(targets[i]->Name);
    sql += ") ";
    if (insert.Select) {
        SelectParts parts = TranslateSelect(context, *insert.Select, nullptr);
        if (parts.Columns.size() != targets.size()) {
            ThrowSqlSyntax("the SELECT gives " + std::to_string(parts.Columns.size()) +
                               " columns for " + std::to_string(targets.size()) + " fields",
                           insert.Select->Pos);
        }
        for (auto& core : parts.Cores)
            for (std::size_t c = 0; c < targets.size(); ++c)
                ConvertForColumn(core.Items[c], targets[c]->Type, context.Params());
        sql += ComposeSelect(parts);
    } else {
        NameScope noTables;
        sql += "VALUES ";
        for (std::size_t r = 0; r < insert.Rows.size(); ++r) {
            const auto& row = insert.Rows[r];
            if (row.size() != targets.size()) {
                ThrowSqlSyntax(std::to_string(row.size()) + " values for " +
                                   std::to_string(targets.size()) + " fields",
                               row[0]->Pos);
            }
            sql += r ? ", (" : "(";
            for (std::size_t c = 0; c < row.size(); ++c) {
                TypedSql v = ExpressionTranslator(context, noTables).Translate(*row[c]);
                ConvertForColumn(v, targets[c]->Type, context.Params());
                sql += (c ? ", " : "") + v.Sql;
            }
            sql += ")";
        }
    }
    return Result(TranslatedStatement::Kind::Insert, table, std::move(sql));
}

TranslatedStatement TranslateUpdate(TranslationContext& context, const UpdateStatement& update) {
    ResolvedTable table = context.RequireTable(update.Table);
    NameScope scope;
    scope.AddSource(TargetSource(table, update.Alias));
    std::string sql = "UPDATE " + TargetSql(table, update.Alias) + " SET ";
    for (std::size_t i = 0; i < update.Sets.size(); ++i) {
        const FieldDef& field = RequireField(*table.Def, update.Sets[i].Column);
        TypedSql v = ExpressionTranslator(context, scope).Translate(*update.Sets[i].Value);
        ConvertForColumn(v, field.Type, context.Params());
        sql += (i ? ", " : "") + QuoteName(field.Name) + " = " + v.Sql;
    }
    if (update.Where)
        sql += " WHERE " + ExpressionTranslator(context, scope).Translate(*update.Where).Sql;
    return Result(TranslatedStatement::Kind::Update, table, std::move(sql));
}

TranslatedStatement TranslateDelete(TranslationContext& context, const DeleteStatement& remove) {
    ResolvedTable table = context.RequireTable(remove.Table);
    NameScope scope;
    scope.AddSource(TargetSource(table, remove.Alias));
    std::string sql = "DELETE FROM " + TargetSql(table, remove.Alias);
    if (remove.Where)
        sql += " WHERE " + ExpressionTranslator(context, scope).Translate(*remove.Where).Sql;
    return Result(TranslatedStatement::Kind::Delete, table, std::move(sql));
}

} // namespace corvane::store::sql
