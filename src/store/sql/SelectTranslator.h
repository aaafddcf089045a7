#pragma once

#include "store/sql/NameScope.h"
#include "store/sql/SqlAst.h"
#include "store/sql/TranslationContext.h"
#include "store/sql/TypedSql.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane::store::sql {

// One SELECT of a statement, translated but not yet joined into text, so that callers can still
// bring its result columns to the scale they need (a UNION, IN (SELECT ...), INSERT ... SELECT).
struct CoreParts {
    std::string Head;            // "SELECT " or "SELECT DISTINCT "
    std::vector<TypedSql> Items; // the result columns
    std::vector<std::string> Names;
    std::vector<bool> FromStar;     // given by * or alias.*: written without AS
    std::string Tail;               // " FROM ... WHERE ... GROUP BY ... HAVING ..."
    std::optional<long long> Limit; // a UNION branch's own TOP
};

struct SelectParts {
    std::vector<CoreParts> Cores;
    std::vector<bool> UnionAll;
    std::string OrderBy; // " ORDER BY ..." or empty
    std::optional<long long> Limit;
    std::vector<ResultColumn> Columns;
};

// Translates a SELECT (with its UNIONs, ORDER BY and TOP). outer is the scope of the statement
// it stands in, for correlated subqueries. INTO is refused unless allowInto, and then only on
// the first SELECT; the caller handles it.
SelectParts TranslateSelect(TranslationContext& context, const SelectStatement& select,
                            const NameScope* outer, bool allowInto = false);

std::string ComposeSelect(const SelectParts& parts);

} // namespace corvane::store::sql
