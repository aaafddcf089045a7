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

// Where the reader of an expression or statement sends what it could not read. SQL raises its
// own error; a filter or a report expression words the fault its own way, for its own caller.
// Fail never returns.
class SyntaxSink {
public:
    virtual ~SyntaxSink() = default;
    [[noreturn]] virtual void Fail(const std::string& what, SourcePos pos) const;
};
// The SQL statements' sink: ThrowSqlSyntax.
const SyntaxSink& SqlSyntax();

} // namespace corvane::store::sql
