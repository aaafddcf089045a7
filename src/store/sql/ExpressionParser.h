#pragma once

#include "core/ExpressionDepth.h"
#include "store/sql/SqlAst.h"
#include "store/sql/TokenCursor.h"

namespace corvane::store::sql {

// Reads expressions and type names. A SELECT inside an expression (IN (SELECT ...), EXISTS, a
// subquery) is read by the statement parser that derives from this one.
class ExpressionParser : public TokenCursor {
public:
    using TokenCursor::TokenCursor;
    virtual ~ExpressionParser() = default;

protected:
    ExprPtr ParseExpr() { return ParseOr(); }
    TypeSpec ParseTypeSpec();
    virtual SelectStatement ParseSelectStatement() = 0;
    // One level deeper for as long as levels lives; refuses input nested past the limit.
    void Deeper(ExpressionDepth::Scope& levels);

    ExpressionDepth depth_;

private:
    ExprPtr MakeBinary(BinaryOp op, SourcePos pos, ExprPtr left, ExprPtr right);
    ExprPtr ParseOr();
    ExprPtr ParseAnd();
    ExprPtr ParseNot();
    ExprPtr ParsePredicate();
    ExprPtr ParseAdditive();
    ExprPtr ParseMultiplicative();
    ExprPtr ParseUnary();
    ExprPtr ParsePrimary();
    ExprPtr ParseColumnRef();
    ExprPtr ParseCase(SourcePos pos);
    ExprPtr ParseIf();
    ExprPtr ParseCast();
    ExprPtr ParseExtract();
    ExprPtr ParseSubstring();
    ExprPtr ParseFunction();
};

} // namespace corvane::store::sql
