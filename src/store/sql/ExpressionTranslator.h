#pragma once

#include "store/sql/NameScope.h"
#include "store/sql/SqlAst.h"
#include "store/sql/TranslationContext.h"
#include "store/sql/TypedSql.h"

namespace corvane::store::sql {

// Turns one expression of the dialect into SQLite SQL with its type, keeping every number that
// meets money in ten-thousandths: plain numbers compared with, added to or subtracted from an
// amount are scaled; products and quotients of an amount by a number stay amounts.
class ExpressionTranslator {
public:
    ExpressionTranslator(TranslationContext& context, const NameScope& scope)
        : context_(context), scope_(scope) {}

    TypedSql Translate(const Expr& e);

private:
    TypedSql Literal(const Expr& e);
    TypedSql Parameter(const Expr& e);
    TypedSql Binary(const Expr& e);
    TypedSql Add(TypedSql l, TypedSql r, SourcePos pos);
    TypedSql Subtract(TypedSql l, TypedSql r, SourcePos pos);
    TypedSql MultiplyOrDivide(BinaryOp op, TypedSql l, TypedSql r, SourcePos pos);
    TypedSql Concat(const TypedSql& l, const TypedSql& r);
    TypedSql Negate(const Expr& e);
    TypedSql Between(const Expr& e);
    TypedSql InList(const Expr& e);
    TypedSql InSelect(const Expr& e);
    TypedSql Subquery(const Expr& e);
    TypedSql Case(const Expr& e);
    TypedSql Function(const Expr& e);
    TypedSql Aggregate(const Expr& e, std::vector<TypedSql>& args);
    TypedSql Cast(const Expr& e);

    std::vector<ParamSlot>& Params() { return context_.Params(); }

    TranslationContext& context_;
    const NameScope& scope_;
};

} // namespace corvane::store::sql
