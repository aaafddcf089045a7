#include "store/sql/SelectTranslator.h"

#include "store/EngineError.h"
#include "store/sql/ExpressionTranslator.h"

#include <algorithm>

namespace corvane::store::sql {

namespace {

std::string OrderSuffix(const OrderItem& item) {
    return std::string(item.NoCase ? " COLLATE NOCASE" : "") + (item.Descending ? " DESC" : "");
}

bool IsPosition(const Expr& e) {
    return e.Kind == ExprKind::Number &&
           e.Text.find_first_not_of("0123456789") == std::string::npos;
}

class CoreTranslator {
public:
    CoreTranslator(TranslationContext& context, const SelectCore& core, const NameScope* outer)
        : context_(context), core_(core), scope_(outer), outer_(outer) {}

    CoreParts Run(const std::vector<OrderItem>* orderBy, std::string* orderSql) {
        CoreParts parts;
        parts.Head = core_.Distinct ? "SELECT DISTINCT " : "SELECT ";
        std::string from = From();
        Items(parts);
        scope_.SetAliases(&aliases_, false);
        if (!from.empty()) parts.Tail = " FROM " + from;
        if (core_.Where) parts.Tail += " WHERE " + Expression(*core_.Where).Sql;
        if (!core_.GroupBy.empty()) {
            parts.Tail += " GROUP BY ";
            for (std::size_t i = 0; i < core_.GroupBy.size(); ++i) {
                const Expr& g = *core_.GroupBy[i];
                parts.Tail += (i ? ", " : "") + (IsPosition(g) ? g.Text : Expression(g).Sql);
            }
        }
        if (core_.Having) parts.Tail += " HAVING " + Expression(*core_.Having).Sql;
        if (orderBy && !orderBy->empty()) {
            scope_.SetAliases(&aliases_, true);
            *orderSql = " ORDER BY ";
            for (std::size_t i = 0; i < orderBy->size(); ++i) {
                const OrderItem& o = (*orderBy)[i];
                std::string term = IsPosition(*o.Value) ? o.Value->Text : Expression(*o.Value).Sql;
                *orderSql += (i ? ", " : "") + term + OrderSuffix(o);
            }
        }
        return parts;
    }

private:
    TypedSql Expression(const Expr& e) {
        return ExpressionTranslator(context_, scope_).Translate(e);
    }

    std::string From() {
        std::string sql;
        std::vector<std::string> pieces;
        for (const FromItem& item : core_.From) {
            ScopeSource source;
            std::string piece;
            if (item.Derived) {
                SelectParts sub = TranslateSelect(context_, *item.Derived, outer_);
                source.Alias = item.Alias;
                source.Columns = sub.Columns;
                piece = "(" + ComposeSelect(sub) + ")";
            } else {
                ResolvedTable table = context_.RequireTable(item.Table);
                source.Table = table.Def;
                source.Alias = item.Alias.empty() ? table.Def->Name : item.Alias;
                piece = table.Sql;
            }
            source.SqlRef = QuoteName(source.Alias);
            if (!item.Alias.empty()) piece += " AS " + source.SqlRef;
            if (scope_.FindSource(source.Alias))
                ThrowSqlSyntax("the name " + source.Alias + " stands for two tables", item.Pos);
            scope_.AddSource(std::move(source));
            pieces.push_back(std::move(piece));
        }
        // ON conditions are read once every table is known.
        for (std::size_t i = 0; i < core_.From.size(); ++i) {
            const FromItem& item = core_.From[i];
            switch (item.Join) {
            case JoinKind::First:
                break;
            case JoinKind::Comma:
                sql += ", ";
                break;
            case JoinKind::Inner:
                sql += " JOIN ";
                break;
            case JoinKind::Left:
                sql += " LEFT JOIN ";
                break;
            case JoinKind::Right:
                sql += " RIGHT JOIN ";
                break;
            case JoinKind::Full:
                sql += " FULL JOIN ";
                break;
            case JoinKind::Cross:
                sql += " CROSS JOIN ";
                break;
            }
            sql += pieces[i];
            if (item.On) sql += " ON " + Expression(*item.On).Sql;
        }
        return sql;
    }

    void AddStar(CoreParts& parts, const ScopeSource& source) {
        auto add = [&](std::string_view name) {
            bool found = false;
            parts.Items.push_back(SourceColumn(source, name, found));
            parts.Names.push_back(parts.Items.back().Name);
            parts.FromStar.push_back(true);
        };
        if (source.Table)
            for (const auto& f : source.Table->Fields)
                add(f.Name);
        else
            for (const auto& c : source.Columns)
                add(c.Name);
    }

    void Items(CoreParts& parts) {
        for (const SelectItem& item : core_.Items) {
            if (item.Star) {
                if (item.StarQualifier.empty()) {
                    if (scope_.Sources().empty()) ThrowSqlSyntax("* needs a FROM clause", item.Pos);
                    for (const auto& s : scope_.Sources())
                        AddStar(parts, s);
                } else if (const ScopeSource* s = scope_.FindSource(item.StarQualifier)) {
                    AddStar(parts, *s);
                } else {
                    ThrowEngineError(errTableNotFound, "Table or alias '" + item.StarQualifier +
                                                           "' not found" + PositionText(item.Pos));
                }
                continue;
            }
            TypedSql v = Expression(*item.Value);
            std::string name = !item.Alias.empty()        ? item.Alias
                               : v.From == Origin::Column ? v.Name
                                                          : item.Text;
            if (!item.Alias.empty()) aliases_.push_back({item.Alias, v});
            parts.Items.push_back(std::move(v));
            parts.Names.push_back(std::move(name));
            parts.FromStar.push_back(false);
        }
    }

    TranslationContext& context_;
    const SelectCore& core_;
    NameScope scope_;
    const NameScope* outer_;
    std::vector<OutputAlias> aliases_;
};

// ORDER BY after a UNION names result columns: by their output name, or as alias.column of the
// first SELECT. Each becomes the column's position.
std::string UnionOrderBy(const SelectStatement& select, const CoreParts& first) {
    std::string sql;
    for (std::size_t i = 0; i < select.OrderBy.size(); ++i) {
        const OrderItem& o = select.OrderBy[i];
        const Expr& e = *o.Value;
        std::size_t column = first.Items.size();
        if (IsPosition(e)) {
            column = static_cast<std::size_t>(std::stoll(e.Text)) - 1;
        } else if (e.Kind == ExprKind::Column) {
            for (std::size_t c = 0; c < first.Items.size() && !e.Qualifier.empty(); ++c) {
                const TypedSql& item = first.Items[c];
                if (item.From == Origin::Column && SameName(item.Source, e.Qualifier) &&
                    SameName(item.Name, e.Text)) {
                    column = c;
                    break;
                }
            }
            for (std::size_t c = 0; c < first.Names.size() && column == first.Items.size(); ++c)
                if (SameName(first.Names[c], e.Text)) column = c;
            if (column == first.Items.size()) {
                std::string written = e.Qualifier.empty() ? e.Text : e.Qualifier + "." + e.Text;
                ThrowEngineError(errFieldNotFound, "Field '" + written +
                                                       "' in ORDER BY is no column of the UNION" +
                                                       PositionText(e.Pos));
            }
        } else {
            ThrowSqlSyntax("ORDER BY after a UNION can only name result columns", e.Pos);
        }
        if (column >= first.Items.size()) ThrowSqlSyntax("ORDER BY position out of range", e.Pos);
        sql += (i ? ", " : " ORDER BY ") + std::to_string(column + 1) + OrderSuffix(o);
    }
    return sql;
}

} // namespace

SelectParts TranslateSelect(TranslationContext& context, const SelectStatement& select,
                            const NameScope* outer, bool allowInto) {
    SelectParts parts;
    parts.UnionAll = select.UnionAll;
    bool single = select.Cores.size() == 1;
    for (std::size_t i = 0; i < select.Cores.size(); ++i) {
        const SelectCore& core = select.Cores[i];
        if (core.Into && !(allowInto && i == 0))
            ThrowSqlSyntax("INTO is not allowed here", core.Into->Pos);
        CoreParts p = CoreTranslator(context, core, outer)
                          .Run(single ? &select.OrderBy : nullptr, &parts.OrderBy);
        bool last = i + 1 == select.Cores.size();
        // TOP after the FROM clause of the last SELECT of a UNION closes the whole statement.
        if (core.Top && (single || (last && core.TopAfterFrom)))
            parts.Limit = core.Top;
        else
            p.Limit = core.Top;
        if (!parts.Cores.empty() && p.Items.size() != parts.Cores[0].Items.size())
            ThrowSqlSyntax("each SELECT of a UNION must give the same number of columns", core.Pos);
        parts.Cores.push_back(std::move(p));
    }
    if (select.Top) parts.Limit = parts.Limit ? std::min(*parts.Limit, *select.Top) : *select.Top;
    const CoreParts& first = parts.Cores[0];
    if (!single) parts.OrderBy = UnionOrderBy(select, first);
    for (std::size_t c = 0; c < first.Items.size(); ++c) {
        ResultColumn column{first.Names[c], first.Items[c].Type, first.Items[c].Size,
                            first.Items[c].Known};
        if (!single) {
            // The columns of a UNION: money in any branch makes the column money, and the plain
            // numbers of the other branches (CAST(0 AS FLOAT)) are brought to its scale.
            std::vector<TypedSql*> branch;
            for (auto& core : parts.Cores)
                branch.push_back(&core.Items[c]);
            TypedSql t = UnifyAlternatives(branch, context.Params());
            column.Type = t.Type;
            column.Size = t.Size;
            column.TypeKnown = t.Known;
        }
        parts.Columns.push_back(std::move(column));
    }
    return parts;
}

std::string ComposeSelect(const SelectParts& parts) {
    std::string sql;
    for (std::size_t i = 0; i < parts.Cores.size(); ++i) {
        const CoreParts& core = parts.Cores[i];
        if (i > 0) sql += parts.UnionAll[i - 1] ? " UNION ALL " : " UNION ";
        std::string one = core.Head;
        for (std::size_t c = 0; c < core.Items.size(); ++c) {
            one += (c ? ", " : "") + core.Items[c].Sql;
            if (!core.FromStar[c]) one += " AS " + QuoteName(core.Names[c]);
        }
        one += core.Tail;
        if (core.Limit)
            one = "SELECT * FROM (" + one + " LIMIT " + std::to_string(*core.Limit) + ")";
        sql += one;
    }
    // SQLite cannot read a collated position ("ORDER BY 4 COLLATE NOCASE") against a UNION one
    // of whose SELECTs groups its rows: it looks for the grouped columns and fails. Ordering the
    // union's result from outside means the same and reads.
    if (parts.Cores.size() > 1 && parts.OrderBy.find(" COLLATE ") != std::string::npos)
        sql = "SELECT * FROM (" + sql + ")";
    sql += parts.OrderBy;
    if (parts.Limit) sql += " LIMIT " + std::to_string(*parts.Limit);
    return sql;
}

} // namespace corvane::store::sql
