#include "store/sql/TokenCursor.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace corvane::store::sql {

namespace {

// Words that end an expression or a name list; a bare alias can never be one of them.
constexpr std::string_view ReservedWords[] = {
    "ALL",    "AND",    "AS",       "ASC",    "BETWEEN", "BY",    "CASE",   "CREATE", "CROSS",
    "DELETE", "DESC",   "DISTINCT", "DROP",   "ELSE",    "END",   "EXISTS", "FALSE",  "FOR",
    "FROM",   "FULL",   "GROUP",    "HAVING", "IN",      "INDEX", "INNER",  "INSERT", "INTO",
    "IS",     "JOIN",   "LEFT",     "LIKE",   "NOCASE",  "NOT",   "NULL",   "ON",     "OR",
    "ORDER",  "OUTER",  "RIGHT",    "SELECT", "SET",     "TABLE", "THEN",   "TOP",    "TRUE",
    "UNION",  "UPDATE", "VALUES",   "WHEN",   "WHERE",
};

} // namespace

bool IsReservedWord(const Token& t) {
    if (t.Kind != TokenKind::Word) return false;
    return std::any_of(std::begin(ReservedWords), std::end(ReservedWords),
                       [&](std::string_view w) { return t.IsWord(w); });
}

std::string DescribeToken(const Token& t) {
    switch (t.Kind) {
    case TokenKind::End:
        return "end of statement";
    case TokenKind::String:
        return "'" + t.Text + "'";
    case TokenKind::QuotedName:
        return "\"" + t.Text + "\"";
    case TokenKind::Parameter:
        return "':" + t.Text + "'";
    default:
        return "'" + t.Text + "'";
    }
}

const Token& TokenCursor::Peek(std::size_t ahead) const {
    return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

const Token& TokenCursor::Next() {
    const Token& t = tokens_[at_];
    if (at_ + 1 < tokens_.size()) ++at_;
    return t;
}

const Token& TokenCursor::Previous() const {
    return tokens_[at_ == 0 ? 0 : at_ - 1];
}

bool TokenCursor::AcceptWord(std::string_view word) {
    if (!Peek().IsWord(word)) return false;
    Next();
    return true;
}

bool TokenCursor::AcceptSymbol(std::string_view symbol) {
    if (!Peek().IsSymbol(symbol)) return false;
    Next();
    return true;
}

void TokenCursor::ExpectWord(std::string_view word) {
    if (!AcceptWord(word)) Fail("expected " + std::string(word) + " but found " + Describe(Peek()));
}

void TokenCursor::ExpectSymbol(std::string_view symbol) {
    if (!AcceptSymbol(symbol))
        Fail("expected '" + std::string(symbol) + "' but found " + Describe(Peek()));
}

void TokenCursor::Fail(const std::string& what) const {
    FailAt(what, Peek().Pos);
}

void TokenCursor::FailAt(const std::string& what, SourcePos pos) const {
    sink_->Fail(what, pos);
    std::abort(); // every sink throws, which a call through the base cannot promise
}

std::string TokenCursor::Describe(const Token& t) const {
    return t.Kind == TokenKind::End ? endName_ : DescribeToken(t);
}

bool TokenCursor::AtName() const {
    return Peek().Kind == TokenKind::QuotedName ||
           (Peek().Kind == TokenKind::Word && !IsReservedWord(Peek()));
}

NamePos TokenCursor::ExpectName(const char* what) {
    if (!AtName()) Fail(std::string("expected ") + what + " but found " + Describe(Peek()));
    const Token& t = Next();
    return {t.Text, t.Pos};
}

long long TokenCursor::ExpectCount(const char* what) {
    const Token& t = Peek();
    long long n = 0;
    if (t.Kind == TokenKind::Number) {
        auto [p, ec] = std::from_chars(t.Text.data(), t.Text.data() + t.Text.size(), n);
        if (ec == std::errc() && p == t.Text.data() + t.Text.size() && n >= 0) {
            Next();
            return n;
        }
    }
    Fail(std::string("expected ") + what + " but found " + Describe(t));
}

} // namespace corvane::store::sql
