#pragma once

#include <string>

namespace corvane::store::sql {

// Where a token stands in the statement text, counted from 1 as an editor shows it.
struct SourcePos {
    int Line = 1;
    int Column = 1;
};

// " at line L, column C", for the end of a message.
std::string PositionText(SourcePos pos);

// Raises EngineError(errSqlSyntax, "SQL error: <what> at line L, column C").
[[noreturn]] void ThrowSqlSyntax(const std::string& what, SourcePos pos);

} // namespace corvane::store::sql
