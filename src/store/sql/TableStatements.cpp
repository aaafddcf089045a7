#include "store/sql/TableStatements.h"

#include "store/EngineError.h"

#include <algorithm>

namespace corvane::store::sql {

TranslatedStatement TranslateCreateTable(const CreateTableStatement& create) {
    TableDef def;
    def.Name = create.Table.Name;
    for (const ColumnDefinition& c : create.Columns) {
        if (def.FindField(c.Column.Name))
            ThrowSqlSyntax("the field " + c.Column.Name + " is given twice", c.Column.Pos);
        def.Fields.emplace_back(c.Column.Name, c.Type.Type, c.Type.Size, c.NotNull);
    }
    if (!create.PrimaryKey.empty()) {
        IndexDef primary("", {}, ixPrimary);
        for (const NamePos& k : create.PrimaryKey) {
            const FieldDef* f = def.FindField(k.Name);
            if (!f) {
                ThrowEngineError(errFieldNotFound, "Field '" + k.Name +
                                                       "' of the primary key not found" +
                                                       PositionText(k.Pos));
            }
            primary.Fields.push_back(f->Name);
        }
        def.Indexes.push_back(std::move(primary));
    }
    TranslatedStatement out;
    out.StatementKind = TranslatedStatement::Kind::CreateTable;
    out.TargetSchema = create.Table.Schema;
    out.TargetTable = def.Name;
    out.NewTable = std::move(def);
    return out;
}

TranslatedStatement TranslateCreateIndex(TranslationContext& context,
                                         const CreateIndexStatement& create) {
    ResolvedTable table = context.RequireTable(create.Table);
    IndexDef index;
    index.Name = create.Name;
    if (create.Unique) index.Options |= ixUnique;
    if (create.NoCase) index.Options |= ixNoCase;
    for (const IndexColumn& c : create.Columns) {
        const FieldDef* f = table.Def->FindField(c.Column.Name);
        if (!f) {
            ThrowEngineError(errFieldNotFound, "Field '" + c.Column.Name +
                                                   "' not found in table '" + table.Def->Name +
                                                   "'" + PositionText(c.Column.Pos));
        }
        index.Fields.push_back(f->Name);
        if (c.Descending) {
            index.Options |= ixDescending;
            index.DescFields.push_back(f->Name);
        }
    }
    TranslatedStatement out;
    out.StatementKind = TranslatedStatement::Kind::CreateIndex;
    out.TargetSchema = table.Schema;
    out.TargetTable = table.Def->Name;
    out.NewIndex = std::move(index);
    return out;
}

TranslatedStatement TranslateDropTable(TranslationContext& context,
                                       const DropTableStatement& drop) {
    TranslatedStatement out;
    out.StatementKind = TranslatedStatement::Kind::DropTable;
    out.TargetSchema = drop.Table.Schema;
    const TableDef* def = context.FindTable(drop.Table);
    out.TargetTable = def ? def->Name : drop.Table.Name;
    out.IfExists = drop.IfExists;
    return out;
}

TableDef TableFromColumns(const std::string& name, const std::vector<ResultColumn>& columns) {
    TableDef def;
    def.Name = name;
    for (const ResultColumn& c : columns) {
        std::string field = c.Name;
        for (int n = 1; def.FindField(field); ++n)
            field = c.Name + "_" + std::to_string(n);
        FieldType type = c.Type;
        int size = c.Size;
        if (!c.TypeKnown || (type == FieldType::String && size <= 0)) {
            type = FieldType::Memo;
            size = 0;
        }
        def.Fields.emplace_back(field, type, type == FieldType::String ? size : 0, false);
    }
    return def;
}

} // namespace corvane::store::sql
