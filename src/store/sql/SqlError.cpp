#include "store/sql/SqlError.h"

#include "store/EngineError.h"

namespace corvane::store::sql {

std::string PositionText(SourcePos pos) {
    return " at line " + std::to_string(pos.Line) + ", column " + std::to_string(pos.Column);
}

void ThrowSqlSyntax(const std::string& what, SourcePos pos) {
    ThrowEngineError(errSqlSyntax, "SQL error: " + what + PositionText(pos));
}

void SyntaxSink::Fail(const std::string& what, SourcePos pos) const {
    ThrowSqlSyntax(what, pos);
}

const SyntaxSink& SqlSyntax() {
    static const SyntaxSink sql;
    return sql;
}

} // namespace corvane::store::sql
