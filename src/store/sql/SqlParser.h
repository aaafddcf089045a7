#pragma once

#include "store/sql/SqlAst.h"

#include <string_view>

namespace corvane::store::sql {

// Reads one statement of the dialect, with an optional trailing ';'. Throws
// EngineError(errSqlSyntax, "SQL error: <what> at line L, column C") on text it cannot read.
ParsedStatement ParseSql(std::string_view text);

} // namespace corvane::store::sql
