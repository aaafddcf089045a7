#pragma once

#include "store/sql/SqlError.h"
#include "store/sql/SqlTranslator.h"
#include "store/sql/TypedSql.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane::store::sql {

// A table or derived table of a FROM clause.
struct ScopeSource {
    std::string Alias;                 // the alias, else the table's own name
    std::string SqlRef;                // the quoted qualifier written before its columns
    const TableDef* Table = nullptr;   // null for (SELECT ...) alias
    std::vector<ResultColumn> Columns; // the columns of a derived table
};

// A named result column that later clauses may refer to (GROUP BY InvYear).
struct OutputAlias {
    std::string Name;
    TypedSql Value;
};

// The names one SELECT (or UPDATE, DELETE) can see: its sources, the result aliases once the
// select list is read, and the scopes of the statements it stands in.
class NameScope {
public:
    explicit NameScope(const NameScope* outer = nullptr) : outer_(outer) {}

    void AddSource(ScopeSource source) { sources_.push_back(std::move(source)); }
    const std::vector<ScopeSource>& Sources() const { return sources_; }
    const ScopeSource* FindSource(std::string_view alias) const;

    // Result aliases become visible to the clauses after the select list. ORDER BY reads a bare
    // name as an alias first; the other clauses read it as a column first.
    void SetAliases(const std::vector<OutputAlias>* aliases, bool aliasesFirst) {
        aliases_ = aliases;
        aliasesFirst_ = aliasesFirst;
    }

    // Throws EngineError(errFieldNotFound) for a name that no source has.
    TypedSql Resolve(std::string_view qualifier, std::string_view name, SourcePos pos) const;

private:
    bool TryResolve(std::string_view qualifier, std::string_view name, SourcePos pos,
                    TypedSql& out) const;
    bool TryAlias(std::string_view name, TypedSql& out) const;

    const NameScope* outer_;
    std::vector<ScopeSource> sources_;
    const std::vector<OutputAlias>* aliases_ = nullptr;
    bool aliasesFirst_ = false;
};

// The column of a source as a typed fragment.
TypedSql SourceColumn(const ScopeSource& source, std::string_view name, bool& found);

} // namespace corvane::store::sql
