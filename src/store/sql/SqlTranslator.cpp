#include "store/sql/SqlTranslator.h"

#include "store/sql/SelectTranslator.h"
#include "store/sql/SqlParser.h"
#include "store/sql/TableStatements.h"
#include "store/sql/TranslationContext.h"
#include "store/sql/WriteStatements.h"

namespace corvane::store::sql {

namespace {

TranslatedStatement TranslateSelectStatement(TranslationContext& context,
                                             const SelectStatement& select) {
    TranslatedStatement out;
    SelectParts parts = TranslateSelect(context, select, nullptr, true);
    // Without ORDER BY the order is SQLite's choice: forcing one would make it scan a table
    // where an index would have found the few rows asked for. Queries that list rows say their
    // order.
    out.Columns = parts.Columns;
    const auto& into = select.Cores[0].Into;
    if (!into) {
        out.StatementKind = TranslatedStatement::Kind::Select;
        out.Sql = ComposeSelect(parts);
        return out;
    }
    out.StatementKind = TranslatedStatement::Kind::SelectInto;
    out.TargetSchema = into->Schema;
    out.TargetTable = into->Name;
    out.NewTable = TableFromColumns(into->Name, parts.Columns);
    // Amounts computed on the way (a product, a scaled float) are stored as whole ten-thousandths.
    for (auto& core : parts.Cores)
        for (std::size_t c = 0; c < core.Items.size(); ++c)
            if (out.NewTable->Fields[c].Type == FieldType::Currency)
                ConvertForColumn(core.Items[c], FieldType::Currency, context.Params());
    std::string columns;
    for (const auto& f : out.NewTable->Fields)
        columns += (columns.empty() ? "" : ", ") + QuoteName(f.Name);
    out.Sql = "INSERT INTO " + into->Schema + "." + QuoteName(into->Name) + " (" + columns + ") " +
              ComposeSelect(parts);
    return out;
}

} // namespace

TranslatedStatement TranslateSql(std::string_view text, const SchemaLookup& schema) {
    ParsedStatement parsed = ParseSql(text);
    TranslationContext context(schema);
    TranslatedStatement out = std::visit(
        [&](const auto& s) -> TranslatedStatement {
            using T = std::decay_t<decltype(s)>;
            if constexpr (std::is_same_v<T, SelectStatement>)
                return TranslateSelectStatement(context, s);
            else if constexpr (std::is_same_v<T, InsertStatement>)
                return TranslateInsert(context, s);
            else if constexpr (std::is_same_v<T, UpdateStatement>)
                return TranslateUpdate(context, s);
            else if constexpr (std::is_same_v<T, DeleteStatement>)
                return TranslateDelete(context, s);
            else if constexpr (std::is_same_v<T, CreateTableStatement>)
                return TranslateCreateTable(s);
            else if constexpr (std::is_same_v<T, CreateIndexStatement>)
                return TranslateCreateIndex(context, s);
            else
                return TranslateDropTable(context, s);
        },
        parsed);
    out.Params = std::move(context.Params());
    return out;
}

} // namespace corvane::store::sql
