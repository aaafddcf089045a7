#include "store/sql/SqlLexer.h"

#include "store/TableDef.h"

#include <cctype>

namespace corvane::store::sql {

bool Token::IsWord(std::string_view keyword) const {
    return Kind == TokenKind::Word && SameName(Text, keyword);
}

bool Token::IsSymbol(std::string_view symbol) const {
    return Kind == TokenKind::Symbol && Text == symbol;
}

namespace {

bool IsWordStart(char c) {
    // Bytes past ASCII belong to names written in UTF-8.
    return std::isalpha(static_cast<unsigned char>(c)) || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool IsWordChar(char c) {
    return IsWordStart(c) || std::isdigit(static_cast<unsigned char>(c));
}

bool IsDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

class Lexer {
public:
    Lexer(std::string_view text, const LexRules& rules, const SyntaxSink& sink)
        : text_(text), rules_(rules), sink_(sink) {}

    std::vector<Token> Run() {
        std::vector<Token> tokens;
        for (;;) {
            SkipBlanksAndComments();
            Token t;
            t.Pos = pos_;
            t.Offset = at_;
            if (at_ >= text_.size()) {
                tokens.push_back(std::move(t));
                return tokens;
            }
            Read(t);
            t.Length = at_ - t.Offset;
            tokens.push_back(std::move(t));
        }
    }

private:
    char Peek(std::size_t ahead = 0) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
    }

    void Advance() {
        if (text_[at_] == '\n') {
            ++pos_.Line;
            pos_.Column = 1;
        } else {
            ++pos_.Column;
        }
        ++at_;
    }

    void SkipBlanksAndComments() {
        while (at_ < text_.size()) {
            char c = Peek();
            if (std::isspace(static_cast<unsigned char>(c))) {
                Advance();
            } else if (!rules_.Comments) {
                return;
            } else if (c == '-' && Peek(1) == '-') {
                while (at_ < text_.size() && Peek() != '\n')
                    Advance();
            } else if (c == '/' && Peek(1) == '*') {
                SourcePos start = pos_;
                Advance();
                Advance();
                while (at_ < text_.size() && !(Peek() == '*' && Peek(1) == '/'))
                    Advance();
                if (at_ >= text_.size()) sink_.Fail("unterminated comment", start);
                Advance();
                Advance();
            } else {
                return;
            }
        }
    }

    void Read(Token& t) {
        char c = Peek();
        if (IsWordStart(c)) {
            t.Kind = TokenKind::Word;
            while (at_ < text_.size() && IsWordChar(Peek()))
                Advance();
            t.Text = std::string(text_.substr(t.Offset, at_ - t.Offset));
        } else if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) {
            ReadNumber(t);
        } else if (c == '\'') {
            t.Kind = TokenKind::String;
            t.Text = ReadQuoted('\'', "unterminated string");
        } else if (c == '"' && rules_.DoubleQuotedText) {
            t.Kind = TokenKind::String;
            t.Text = ReadQuoted('"', "unterminated string");
        } else if (c == '"') {
            t.Kind = TokenKind::QuotedName;
            t.Quote = c;
            t.Text = ReadQuoted('"', "unterminated quoted name");
        } else if (c == '[') {
            t.Kind = TokenKind::QuotedName;
            t.Quote = c;
            t.Text = ReadQuoted(']', "unterminated name in brackets");
        } else if (c == ':' && IsWordChar(Peek(1))) {
            t.Kind = TokenKind::Parameter;
            Advance();
            while (at_ < text_.size() && IsWordChar(Peek()))
                Advance();
            t.Text = std::string(text_.substr(t.Offset + 1, at_ - t.Offset - 1));
        } else {
            ReadSymbol(t);
        }
    }

    void ReadNumber(Token& t) {
        t.Kind = TokenKind::Number;
        while (IsDigit(Peek()))
            Advance();
        if (Peek() == '.') {
            Advance();
            while (IsDigit(Peek()))
                Advance();
        }
        if ((Peek() == 'e' || Peek() == 'E') &&
            (IsDigit(Peek(1)) || ((Peek(1) == '+' || Peek(1) == '-') && IsDigit(Peek(2))))) {
            Advance();
            if (Peek() == '+' || Peek() == '-') Advance();
            while (IsDigit(Peek()))
                Advance();
        }
        t.Text = std::string(text_.substr(t.Offset, at_ - t.Offset));
        if (IsWordStart(Peek())) sink_.Fail("malformed number", t.Pos);
    }

    // Reads a quoted run; the closing quote written twice stands for itself.
    std::string ReadQuoted(char close, const char* unterminated) {
        SourcePos start = pos_;
        Advance();
        std::string value;
        for (;;) {
            if (at_ >= text_.size()) sink_.Fail(unterminated, start);
            char c = Peek();
            if (c == close) {
                if (Peek(1) == close) {
                    value += close;
                    Advance();
                    Advance();
                    continue;
                }
                Advance();
                return value;
            }
            value += c;
            Advance();
        }
    }

    void ReadSymbol(Token& t) {
        t.Kind = TokenKind::Symbol;
        static const std::string_view pairs[] = {"<=", ">=", "<>", "!=", "||"};
        for (std::string_view p : pairs) {
            if (text_.substr(at_, 2) == p) {
                t.Text = p == "!=" ? "<>" : std::string(p);
                Advance();
                Advance();
                return;
            }
        }
        char c = Peek();
        if (std::string_view("(),.*+-/%=<>;").find(c) == std::string_view::npos)
            sink_.Fail(std::string("unexpected character '") + c + "'", pos_);
        t.Text = std::string(1, c);
        Advance();
    }

    std::string_view text_;
    const LexRules& rules_;
    const SyntaxSink& sink_;
    std::size_t at_ = 0;
    SourcePos pos_;
};

} // namespace

std::vector<Token> TokenizeSql(std::string_view text, const LexRules& rules,
                               const SyntaxSink& sink) {
    return Lexer(text, rules, sink).Run();
}

} // namespace corvane::store::sql
