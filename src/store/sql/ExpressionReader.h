#pragma once

#include "store/sql/SqlAst.h"
#include "store/sql/SqlLexer.h"

#include <string>
#include <string_view>

namespace corvane::store::sql {

// One expression on its own, as a cursor's filter or a report's expression is written: the
// tokens and syntax tree of the store's SQL dialect, without queries inside it and with nothing
// after it. Every fault goes to the sink, which words it for the reader's caller; endName is how
// its messages name the end of the text ("end of filter").
ExprPtr ReadExpression(std::string_view text, const LexRules& rules, const SyntaxSink& sink,
                       std::string endName);

// The offset in text of a position the reader reported, counted from 0.
std::size_t OffsetOf(std::string_view text, SourcePos pos);

} // namespace corvane::store::sql
