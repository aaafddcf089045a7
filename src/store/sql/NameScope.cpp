#include "store/sql/NameScope.h"

#include "store/EngineError.h"

#include <algorithm>

namespace corvane::store::sql {

TypedSql SourceColumn(const ScopeSource& source, std::string_view name, bool& found) {
    TypedSql v;
    v.From = Origin::Column;
    v.Source = source.Alias;
    found = false;
    if (source.Table) {
        const FieldDef* field = source.Table->FindField(name);
        if (!field) return v;
        v.Name = field->Name;
        v.Type = field->Type;
        v.Size = field->Size;
    } else {
        auto it = std::find_if(source.Columns.begin(), source.Columns.end(),
                               [&](const ResultColumn& c) { return SameName(c.Name, name); });
        if (it == source.Columns.end()) return v;
        v.Name = it->Name;
        v.Type = it->Type;
        v.Size = it->Size;
        v.Known = it->TypeKnown;
    }
    v.Sql = source.SqlRef + "." + QuoteName(v.Name);
    found = true;
    return v;
}

const ScopeSource* NameScope::FindSource(std::string_view alias) const {
    for (const auto& s : sources_)
        if (SameName(s.Alias, alias)) return &s;
    return nullptr;
}

bool NameScope::TryAlias(std::string_view name, TypedSql& out) const {
    if (!aliases_) return false;
    for (const auto& a : *aliases_) {
        if (!SameName(a.Name, name)) continue;
        out = a.Value;
        out.Sql = QuoteName(a.Name);
        out.Name = a.Name;
        // The alias stands for its expression, which is no literal that could be rewritten.
        if (out.From != Origin::Column) out.From = Origin::Computed;
        return true;
    }
    return false;
}

bool NameScope::TryResolve(std::string_view qualifier, std::string_view name, SourcePos pos,
                           TypedSql& out) const {
    bool found = false;
    if (!qualifier.empty()) {
        if (const ScopeSource* s = FindSource(qualifier)) {
            out = SourceColumn(*s, name, found);
            if (!found) {
                ThrowEngineError(
                    errFieldNotFound,
                    "Field '" + std::string(name) + "' not found in " +
                        (s->Table ? "table '" + s->Table->Name + "'" : "'" + s->Alias + "'") +
                        PositionText(pos));
            }
            return true;
        }
        return outer_ && outer_->TryResolve(qualifier, name, pos, out);
    }
    if (aliasesFirst_ && TryAlias(name, out)) return true;
    // A bare name that several tables of the FROM clause have is taken from the first of them.
    for (const auto& s : sources_) {
        out = SourceColumn(s, name, found);
        if (found) return true;
    }
    if (!aliasesFirst_ && TryAlias(name, out)) return true;
    return outer_ && outer_->TryResolve(qualifier, name, pos, out);
}

TypedSql NameScope::Resolve(std::string_view qualifier, std::string_view name,
                            SourcePos pos) const {
    TypedSql out;
    if (TryResolve(qualifier, name, pos, out)) return out;
    if (!qualifier.empty()) {
        ThrowEngineError(errFieldNotFound, "Field '" + std::string(qualifier) + "." +
                                               std::string(name) +
                                               "' not found: no table or alias '" +
                                               std::string(qualifier) + "'" + PositionText(pos));
    }
    std::string where;
    if (sources_.size() == 1 && sources_[0].Table)
        where = " in table '" + sources_[0].Table->Name + "'";
    ThrowEngineError(errFieldNotFound,
                     "Field '" + std::string(name) + "' not found" + where + PositionText(pos));
}

} // namespace corvane::store::sql
