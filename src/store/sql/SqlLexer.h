#pragma once

#include "store/sql/SqlError.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::store::sql {

enum class TokenKind {
    Word, // a name or a keyword; keywords are told apart by the parser, without regard to case
    QuotedName, // "name" or [name]: always a name, never a keyword (Quote tells which)
    String,     // 'text', with '' inside read as one quote
    Number,     // 12, 2.5, .5, 1e3
    Parameter,  // :Name (Text holds the name without the colon)
    Symbol,     // ( ) , . * + - / % = <> < <= > >= || ;  ("!=" is read as "<>")
    End,
};

struct Token {
    TokenKind Kind = TokenKind::End;
    std::string Text;
    SourcePos Pos;
    std::size_t Offset = 0; // in the statement text
    std::size_t Length = 0;
    char Quote = 0; // a quoted name's opening quote: '"' or '['

    // A word that reads as the given keyword, in any case.
    bool IsWord(std::string_view keyword) const;
    bool IsSymbol(std::string_view symbol) const;
};

// What the text being read allows beside the SQL statements' tokens.
struct LexRules {
    // "text" is a string, as in report expressions, rather than a quoted name.
    bool DoubleQuotedText = false;
    // -- and /* */ are comments; in a filter or a report expression they are operators.
    bool Comments = true;
};

// Splits a statement or expression into tokens; the last one is always End. Comments (-- to the
// end of the line, /* ... */) are skipped. A character that starts no token and an unterminated
// string or name go to the sink (errSqlSyntax by default).
std::vector<Token> TokenizeSql(std::string_view text, const LexRules& rules = {},
                               const SyntaxSink& sink = SqlSyntax());

} // namespace corvane::store::sql
