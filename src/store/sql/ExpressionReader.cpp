#include "store/sql/ExpressionReader.h"

#include "store/sql/ExpressionParser.h"

namespace corvane::store::sql {

namespace {

class Reader : public ExpressionParser {
public:
    using ExpressionParser::ExpressionParser;

    ExprPtr ReadAll() {
        ExprPtr e = ParseExpr();
        if (Peek().Kind != TokenKind::End) Fail("unexpected " + Describe(Peek()));
        return e;
    }

protected:
    SelectStatement ParseSelectStatement() override { Fail("a query is not allowed here"); }
};

} // namespace

ExprPtr ReadExpression(std::string_view text, const LexRules& rules, const SyntaxSink& sink,
                       std::string endName) {
    return Reader(text, rules, sink, std::move(endName)).ReadAll();
}

std::size_t OffsetOf(std::string_view text, SourcePos pos) {
    std::size_t at = 0;
    for (int line = 1; line < pos.Line && at < text.size(); ++at)
        if (text[at] == '\n') ++line;
    return std::min(text.size(), at + static_cast<std::size_t>(pos.Column - 1));
}

} // namespace corvane::store::sql
