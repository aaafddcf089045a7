#pragma once

#include "store/sql/SqlAst.h"
#include "store/sql/SqlLexer.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane::store::sql {

// A keyword that ends an expression or a list of names: never read as a bare name or alias.
bool IsReservedWord(const Token& t);
// A token as an error message quotes it.
std::string DescribeToken(const Token& t);

// The tokens of one statement and the parser's place in them. Every Expect... raises
// errSqlSyntax at the token where the reading stopped.
class TokenCursor {
public:
    explicit TokenCursor(std::string_view text) : text_(text), tokens_(TokenizeSql(text)) {}
    // Text that is not a statement: a filter or a report expression, with its own rules, its own
    // way of telling a fault, and its own name for where it ends ("end of filter").
    TokenCursor(std::string_view text, const LexRules& rules, const SyntaxSink& sink,
                std::string endName)
        : text_(text), tokens_(TokenizeSql(text, rules, sink)), sink_(&sink),
          endName_(std::move(endName)) {}

protected:
    const Token& Peek(std::size_t ahead = 0) const;
    const Token& Next();
    const Token& Previous() const;
    bool AcceptWord(std::string_view word);
    bool AcceptSymbol(std::string_view symbol);
    void ExpectWord(std::string_view word);
    void ExpectSymbol(std::string_view symbol);
    [[noreturn]] void Fail(const std::string& what) const;
    [[noreturn]] void FailAt(const std::string& what, SourcePos pos) const;
    // A token as this text's messages quote it.
    std::string Describe(const Token& t) const;

    // A name: a word that is no keyword, or a quoted name.
    bool AtName() const;
    NamePos ExpectName(const char* what);
    // A whole number of zero or more, as after TOP or in VARCHAR(n).
    long long ExpectCount(const char* what);

    std::string_view text_;
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    const SyntaxSink* sink_ = &SqlSyntax();
    std::string endName_ = "end of statement";
};

} // namespace corvane::store::sql
