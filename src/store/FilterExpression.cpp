#include "store/FilterExpression.h"

#include "core/ExpressionDepth.h"
#include "core/Text.h"

#include "store/EngineError.h"
#include "store/ValueConversion.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

namespace corvane::store {

namespace {

// Literals are made the kind they are compared with through the store's one conversion.
Value ToText(const Value& v) {
    return CoerceToField(v, FieldType::String);
}
Value ToInteger(const Value& v) {
    return CoerceToField(v, FieldType::Integer);
}
Value ToFloat(const Value& v) {
    return CoerceToField(v, FieldType::Float);
}
Value ToMoney(const Value& v) {
    return CoerceToField(v, FieldType::Currency);
}
Value ToDate(const Value& v) {
    return CoerceToField(v, FieldType::Date);
}
Value ToBoolean(const Value& v) {
    return CoerceToField(v, FieldType::Boolean);
}
Value ToBlob(const Value& v) {
    return CoerceToField(v, FieldType::Graphic);
}

// ----- tokens

enum class Tok {
    End,
    Number,
    String,   // 'text'
    DqString, // "text": a field name when the table has one by that name, else text
    Bracket,  // [field name]
    Ident,
    LParen,
    RParen,
    Comma,
    Eq,
    Ne,
    Lt,
    Le,
    Gt,
    Ge,
    Plus,
    Minus,
    Star,
    Slash,
};

struct Token {
    Tok Kind = Tok::End;
    std::string Text; // the literal's content, the name, or the operator as written
    std::size_t Pos = 0;
};

[[noreturn]] void SyntaxError(std::string_view source, std::size_t pos, const std::string& what,
                              int code = errFilterSyntax) {
    ThrowEngineError(code, "Filter error: " + what + " at position " + std::to_string(pos) +
                               " in: " + std::string(source));
}

bool IsIdentStart(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool IsIdentChar(char c) {
    return IsIdentStart(c) || (c >= '0' && c <= '9');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::vector<Token> Tokenize(std::string_view src) {
    std::vector<Token> out;
    std::size_t i = 0;
    auto quoted = [&](char close, Tok kind, const char* missing) {
        const std::size_t start = i++;
        std::string text;
        for (;;) {
            if (i >= src.size()) SyntaxError(src, start, missing);
            if (src[i] == close) {
                // A doubled closing quote stands for one quote inside the text.
                if (close != ']' && i + 1 < src.size() && src[i + 1] == close) {
                    text += close;
                    i += 2;
                    continue;
                }
                ++i;
                break;
            }
            text += src[i++];
        }
        out.push_back({kind, std::move(text), start});
    };
    while (i < src.size()) {
        const char c = src[i];
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
            ++i;
            continue;
        }
        const std::size_t start = i;
        if (c == '\'') {
            quoted('\'', Tok::String, "unterminated string");
        } else if (c == '"') {
            quoted('"', Tok::DqString, "unterminated string");
        } else if (c == '[') {
            quoted(']', Tok::Bracket, "missing ']' after field name");
        } else if (IsDigit(c) || (c == '.' && i + 1 < src.size() && IsDigit(src[i + 1]))) {
            while (i < src.size() && IsDigit(src[i]))
                ++i;
            if (i < src.size() && src[i] == '.') {
                ++i;
                while (i < src.size() && IsDigit(src[i]))
                    ++i;
            }
            if (i < src.size() && IsIdentChar(src[i])) SyntaxError(src, start, "malformed number");
            out.push_back({Tok::Number, std::string(src.substr(start, i - start)), start});
        } else if (IsIdentStart(c)) {
            while (i < src.size() && IsIdentChar(src[i]))
                ++i;
            out.push_back({Tok::Ident, std::string(src.substr(start, i - start)), start});
        } else {
            static const struct {
                std::string_view Text;
                Tok Kind;
            } operators[] = {
                {"<>", Tok::Ne},    {"!=", Tok::Ne},   {"<=", Tok::Le},  {">=", Tok::Ge},
                {"=", Tok::Eq},     {"<", Tok::Lt},    {">", Tok::Gt},   {"(", Tok::LParen},
                {")", Tok::RParen}, {",", Tok::Comma}, {"+", Tok::Plus}, {"-", Tok::Minus},
                {"*", Tok::Star},   {"/", Tok::Slash},
            };
            bool found = false;
            for (const auto& op : operators) {
                if (src.substr(i, op.Text.size()) == op.Text) {
                    out.push_back({op.Kind, std::string(op.Text), start});
                    i += op.Text.size();
                    found = true;
                    break;
                }
            }
            if (!found) SyntaxError(src, start, "unexpected character '" + std::string(1, c) + "'");
        }
    }
    out.push_back({Tok::End, "", src.size()});
    return out;
}

// ----- syntax tree

enum class NodeKind {
    Field,
    Literal,
    Negate,
    Arith,
    Func,
    Compare,
    Like,
    In,
    IsNull,
    And,
    Or,
    Not
};
enum class CmpOp { Eq, Ne, Lt, Le, Gt, Ge };
enum class LitKind { Number, Text, Boolean, Null };

struct Node {
    NodeKind Kind = NodeKind::Literal;
    std::size_t Pos = 0;
    const FieldDef* Field = nullptr; // Field
    LitKind Lit = LitKind::Null;     // Literal
    Value Literal;
    std::string NumberText;          // a number as written, for comparison with text
    std::optional<Money> ExactMoney; // a number read exactly as an amount, when it fits
    char ArithOp = 0;                // Arith: + - * /
    CmpOp Cmp = CmpOp::Eq;           // Compare
    std::string Func;                // Func: UPPER, LOWER, TRIM
    bool Negated = false;            // Like, In, IsNull
    std::vector<std::unique_ptr<Node>> Kids;

    bool IsCondition() const {
        switch (Kind) {
        case NodeKind::Compare:
        case NodeKind::Like:
        case NodeKind::In:
        case NodeKind::IsNull:
        case NodeKind::And:
        case NodeKind::Or:
        case NodeKind::Not:
            return true;
        default:
            return false;
        }
    }
};

using NodePtr = std::unique_ptr<Node>;

NodePtr MakeNode(NodeKind kind, std::size_t pos) {
    auto n = std::make_unique<Node>();
    n->Kind = kind;
    n->Pos = pos;
    return n;
}

class Parser {
public:
    Parser(std::string_view source, const TableDef& table)
        : src_(source), table_(table), toks_(Tokenize(source)) {}

    NodePtr Parse() {
        NodePtr root = ParseOr();
        if (Peek().Kind != Tok::End) Fail(Peek().Pos, "unexpected " + Describe(Peek()));
        return root;
    }

private:
    const Token& Peek(std::size_t ahead = 0) const {
        return toks_[std::min(at_ + ahead, toks_.size() - 1)];
    }
    const Token& Next() { return toks_[at_ < toks_.size() - 1 ? at_++ : at_]; }

    bool IsWord(const Token& t, std::string_view word) const {
        return t.Kind == Tok::Ident && SameName(t.Text, word);
    }

    [[noreturn]] void Fail(std::size_t pos, const std::string& what) const {
        SyntaxError(src_, pos, what);
    }

    static std::string Describe(const Token& t) {
        switch (t.Kind) {
        case Tok::End:
            return "end of filter";
        case Tok::String:
            return "'" + t.Text + "'";
        case Tok::DqString:
            return "\"" + t.Text + "\"";
        case Tok::Bracket:
            return "[" + t.Text + "]";
        default:
            return "'" + t.Text + "'";
        }
    }

    void Expect(Tok kind, std::string_view what) {
        if (Peek().Kind != kind) Fail(Peek().Pos, "expected " + std::string(what));
        Next();
    }

    void Deeper(ExpressionDepth::Scope& levels) {
        if (!levels.Enter()) Fail(Peek().Pos, ExpressionTooDeep);
    }

    NodePtr Binary(NodeKind kind, std::size_t pos, NodePtr left, NodePtr right) {
        NodePtr n = MakeNode(kind, pos);
        n->Kids.push_back(std::move(left));
        n->Kids.push_back(std::move(right));
        return n;
    }

    NodePtr RequireValue(NodePtr n) {
        if (n->IsCondition()) Fail(n->Pos, "expected a value, not a condition");
        return n;
    }

    NodePtr ParseOr() {
        ExpressionDepth::Scope levels(depth_);
        Deeper(levels);
        NodePtr left = ParseAnd();
        while (IsWord(Peek(), "or")) {
            Deeper(levels);
            const std::size_t pos = Next().Pos;
            left = Binary(NodeKind::Or, pos, std::move(left), ParseAnd());
        }
        return left;
    }

    NodePtr ParseAnd() {
        ExpressionDepth::Scope levels(depth_);
        NodePtr left = ParseNot();
        while (IsWord(Peek(), "and")) {
            Deeper(levels);
            const std::size_t pos = Next().Pos;
            left = Binary(NodeKind::And, pos, std::move(left), ParseNot());
        }
        return left;
    }

    NodePtr ParseNot() {
        if (!IsWord(Peek(), "not")) return ParsePredicate();
        ExpressionDepth::Scope levels(depth_);
        Deeper(levels);
        NodePtr n = MakeNode(NodeKind::Not, Next().Pos);
        n->Kids.push_back(ParseNot());
        return n;
    }

    static bool IsComparison(Tok t) {
        return t == Tok::Eq || t == Tok::Ne || t == Tok::Lt || t == Tok::Le || t == Tok::Gt ||
               t == Tok::Ge;
    }

    static CmpOp ComparisonOf(Tok t) {
        switch (t) {
        case Tok::Ne:
            return CmpOp::Ne;
        case Tok::Lt:
            return CmpOp::Lt;
        case Tok::Le:
            return CmpOp::Le;
        case Tok::Gt:
            return CmpOp::Gt;
        case Tok::Ge:
            return CmpOp::Ge;
        default:
            return CmpOp::Eq;
        }
    }

    NodePtr ParsePredicate() {
        NodePtr left = ParseAdditive();
        const Token& t = Peek();
        if (IsComparison(t.Kind)) {
            Next();
            NodePtr n = Binary(NodeKind::Compare, t.Pos, RequireValue(std::move(left)),
                               RequireValue(ParseAdditive()));
            n->Cmp = ComparisonOf(t.Kind);
            return n;
        }
        if (IsWord(t, "is")) {
            NodePtr n = MakeNode(NodeKind::IsNull, Next().Pos);
            if (IsWord(Peek(), "not")) {
                Next();
                n->Negated = true;
            }
            if (!IsWord(Peek(), "null")) Fail(Peek().Pos, "expected NULL after IS");
            Next();
            n->Kids.push_back(RequireValue(std::move(left)));
            return n;
        }
        bool negated = false;
        if (IsWord(t, "not") && (IsWord(Peek(1), "like") || IsWord(Peek(1), "in"))) {
            Next();
            negated = true;
        }
        if (IsWord(Peek(), "like")) {
            NodePtr n = Binary(NodeKind::Like, Next().Pos, RequireValue(std::move(left)), nullptr);
            n->Kids[1] = RequireValue(ParseAdditive());
            n->Negated = negated;
            return n;
        }
        if (IsWord(Peek(), "in")) {
            NodePtr n = MakeNode(NodeKind::In, Next().Pos);
            n->Negated = negated;
            n->Kids.push_back(RequireValue(std::move(left)));
            Expect(Tok::LParen, "'(' after IN");
            n->Kids.push_back(RequireValue(ParseAdditive()));
            while (Peek().Kind == Tok::Comma) {
                Next();
                n->Kids.push_back(RequireValue(ParseAdditive()));
            }
            Expect(Tok::RParen, "')'");
            return n;
        }
        return left;
    }

    NodePtr ParseAdditive() {
        ExpressionDepth::Scope levels(depth_);
        NodePtr left = ParseMultiplicative();
        while (Peek().Kind == Tok::Plus || Peek().Kind == Tok::Minus) {
            Deeper(levels);
            const Token& op = Next();
            left = Binary(NodeKind::Arith, op.Pos, RequireValue(std::move(left)),
                          RequireValue(ParseMultiplicative()));
            left->ArithOp = op.Text[0];
        }
        return left;
    }

    NodePtr ParseMultiplicative() {
        ExpressionDepth::Scope levels(depth_);
        NodePtr left = ParseUnary();
        while (Peek().Kind == Tok::Star || Peek().Kind == Tok::Slash) {
            Deeper(levels);
            const Token& op = Next();
            left = Binary(NodeKind::Arith, op.Pos, RequireValue(std::move(left)),
                          RequireValue(ParseUnary()));
            left->ArithOp = op.Text[0];
        }
        return left;
    }

    NodePtr ParseUnary() {
        ExpressionDepth::Scope levels(depth_);
        Deeper(levels);
        if (Peek().Kind == Tok::Plus) {
            Next();
            return RequireValue(ParseUnary());
        }
        if (Peek().Kind != Tok::Minus) return ParsePrimary();
        const std::size_t pos = Next().Pos;
        NodePtr operand = RequireValue(ParseUnary());
        if (operand->Kind == NodeKind::Literal && operand->Lit == LitKind::Number) {
            const Value& v = operand->Literal;
            if (v.kind() == Value::Kind::Integer &&
                v.Int() != std::numeric_limits<std::int64_t>::min())
                operand->Literal = -v.Int();
            else
                operand->Literal = -ToFloat(v).Float();
            if (operand->ExactMoney) operand->ExactMoney = -*operand->ExactMoney;
            operand->NumberText = operand->NumberText.starts_with('-')
                                      ? operand->NumberText.substr(1)
                                      : "-" + operand->NumberText;
            operand->Pos = pos;
            return operand;
        }
        NodePtr n = MakeNode(NodeKind::Negate, pos);
        n->Kids.push_back(std::move(operand));
        return n;
    }

    NodePtr Literal(std::size_t pos, LitKind kind, Value value) {
        NodePtr n = MakeNode(NodeKind::Literal, pos);
        n->Lit = kind;
        n->Literal = std::move(value);
        return n;
    }

    NodePtr FieldNode(std::size_t pos, std::string_view name) {
        const FieldDef* f = table_.FindField(name);
        if (!f)
            ThrowEngineError(errFieldNotFound, "Field '" + std::string(name) +
                                                   "' not found in table '" + table_.Name + "'");
        NodePtr n = MakeNode(NodeKind::Field, pos);
        n->Field = f;
        return n;
    }

    NodePtr NumberNode(const Token& t) {
        Value v;
        if (t.Text.find('.') == std::string::npos) {
            if (auto i = ParseInteger(t.Text))
                v = *i;
            else
                v = ParseNumber(t.Text).value_or(0.0);
        } else {
            v = ParseNumber(t.Text).value_or(0.0);
        }
        NodePtr n = Literal(t.Pos, LitKind::Number, v);
        n->NumberText = t.Text;
        n->ExactMoney = ParseDecimalMoney(t.Text);
        return n;
    }

    NodePtr ParsePrimary() {
        const Token& t = Peek();
        switch (t.Kind) {
        case Tok::Number:
            return NumberNode(Next());
        case Tok::String:
            Next();
            return Literal(t.Pos, LitKind::Text, t.Text);
        case Tok::DqString:
            Next();
            if (table_.FindField(t.Text)) return FieldNode(t.Pos, t.Text);
            return Literal(t.Pos, LitKind::Text, t.Text);
        case Tok::Bracket:
            Next();
            return FieldNode(t.Pos, t.Text);
        case Tok::LParen: {
            Next();
            NodePtr inner = ParseOr();
            Expect(Tok::RParen, "')'");
            return inner;
        }
        case Tok::Ident:
            return ParseWord();
        case Tok::End:
            Fail(t.Pos, "expected a value");
        default:
            Fail(t.Pos, "expected a value but found " + Describe(t));
        }
    }

    NodePtr ParseWord() {
        const Token& t = Next();
        if (SameName(t.Text, "true")) return Literal(t.Pos, LitKind::Boolean, true);
        if (SameName(t.Text, "false")) return Literal(t.Pos, LitKind::Boolean, false);
        if (SameName(t.Text, "null")) return Literal(t.Pos, LitKind::Null, Value());
        for (std::string_view word : {"and", "or", "not", "like", "in", "is"})
            if (SameName(t.Text, word)) Fail(t.Pos, "expected a value but found " + Describe(t));
        if (Peek().Kind != Tok::LParen) return FieldNode(t.Pos, t.Text);

        std::string name;
        for (std::string_view func : {"UPPER", "LOWER", "TRIM"})
            if (SameName(t.Text, func)) name = func;
        if (name.empty()) Fail(t.Pos, "unknown function '" + t.Text + "'");
        Next();
        NodePtr n = MakeNode(NodeKind::Func, t.Pos);
        n->Func = name;
        n->Kids.push_back(RequireValue(ParseOr()));
        Expect(Tok::RParen, "')'");
        return n;
    }

    std::string_view src_;
    const TableDef& table_;
    std::vector<Token> toks_;
    ExpressionDepth depth_;
    std::size_t at_ = 0;
};

// ----- SQL

// What a value expression holds, in its stored representation: Money as ten-thousandths,
// Date as ISO text, Boolean as 0/1.
enum class ValueKind { Null, Integer, Float, Money, Text, Date, Boolean, Blob };

ValueKind KindOfField(FieldType type) {
    switch (type) {
    case FieldType::String:
    case FieldType::Memo:
        return ValueKind::Text;
    case FieldType::SmallInt:
    case FieldType::Integer:
    case FieldType::AutoInc:
        return ValueKind::Integer;
    case FieldType::Boolean:
        return ValueKind::Boolean;
    case FieldType::Float:
        return ValueKind::Float;
    case FieldType::Currency:
        return ValueKind::Money;
    case FieldType::Date:
        return ValueKind::Date;
    case FieldType::Graphic:
        return ValueKind::Blob;
    }
    return ValueKind::Null;
}

std::string KindName(ValueKind k) {
    switch (k) {
    case ValueKind::Null:
        return "null";
    case ValueKind::Integer:
        return "an integer";
    case ValueKind::Float:
        return "a number";
    case ValueKind::Money:
        return "an amount";
    case ValueKind::Text:
        return "text";
    case ValueKind::Date:
        return "a date";
    case ValueKind::Boolean:
        return "true/false";
    case ValueKind::Blob:
        return "a picture";
    }
    return "";
}

bool IsNumberKind(ValueKind k) {
    return k == ValueKind::Integer || k == ValueKind::Float || k == ValueKind::Money;
}

std::string QuoteField(std::string_view name) {
    std::string out = "\"";
    for (char c : name) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

// Appends text and fragments in order, so that the parameters always follow their '?'.
struct Builder {
    SqlFragment Out;
    Builder& operator<<(std::string_view text) {
        Out.Sql += text;
        return *this;
    }
    Builder& operator<<(const SqlFragment& f) {
        Out.Sql += f.Sql;
        Out.Params.insert(Out.Params.end(), f.Params.begin(), f.Params.end());
        return *this;
    }
};

SqlFragment Param(Value v) {
    if (v.IsNull()) return {"NULL", {}};
    return {"?", {std::move(v)}};
}

// One side of a comparison or operation. Its Sql is always a single term (a column, a '?',
// a call or a parenthesised expression), so that it can stand next to any operator.
struct Operand {
    SqlFragment Sql;
    ValueKind Kind = ValueKind::Null;
    bool IsField = false;
    const Node* Literal = nullptr; // set while the operand is still a literal

    bool IsNullLiteral() const { return Literal && Literal->Lit == LitKind::Null; }
    bool IsValueLiteral() const { return Literal && Literal->Lit != LitKind::Null; }
};

CmpOp Negation(CmpOp op) {
    switch (op) {
    case CmpOp::Eq:
        return CmpOp::Ne;
    case CmpOp::Ne:
        return CmpOp::Eq;
    case CmpOp::Lt:
        return CmpOp::Ge;
    case CmpOp::Le:
        return CmpOp::Gt;
    case CmpOp::Gt:
        return CmpOp::Le;
    case CmpOp::Ge:
        return CmpOp::Lt;
    }
    return op;
}

// The same comparison with its sides swapped.
CmpOp Mirror(CmpOp op) {
    switch (op) {
    case CmpOp::Lt:
        return CmpOp::Gt;
    case CmpOp::Le:
        return CmpOp::Ge;
    case CmpOp::Gt:
        return CmpOp::Lt;
    case CmpOp::Ge:
        return CmpOp::Le;
    default:
        return op;
    }
}

std::string_view SqlOperator(CmpOp op) {
    switch (op) {
    case CmpOp::Eq:
        return " IS ";
    case CmpOp::Ne:
        return " IS NOT ";
    case CmpOp::Lt:
        return " < ";
    case CmpOp::Le:
        return " <= ";
    case CmpOp::Gt:
        return " > ";
    case CmpOp::Ge:
        return " >= ";
    }
    return "";
}

// Writes conditions with every NOT pushed down to the comparisons, where two-valued logic
// turns it into the opposite comparison. What is left is positive, so a comparison that SQL
// answers with NULL (a null column against a literal) can only ever mean "not selected", which
// is the right answer; and field-against-literal terms keep the shape that an index serves.
class Compiler {
public:
    explicit Compiler(std::string_view source) : src_(source) {}

    SqlFragment Condition(const Node& n, bool negate) {
        switch (n.Kind) {
        case NodeKind::And:
        case NodeKind::Or: {
            const bool conjunction = (n.Kind == NodeKind::And) != negate;
            Builder b;
            b << "(" << Condition(*n.Kids[0], negate) << (conjunction ? " AND " : " OR ")
              << Condition(*n.Kids[1], negate) << ")";
            return b.Out;
        }
        case NodeKind::Not:
            return Condition(*n.Kids[0], !negate);
        case NodeKind::Compare:
            return Compare(negate ? Negation(n.Cmp) : n.Cmp, ValueOf(*n.Kids[0]),
                           ValueOf(*n.Kids[1]), n.Pos);
        case NodeKind::IsNull: {
            Builder b;
            b << "(" << ValueOf(*n.Kids[0]).Sql
              << (n.Negated != negate ? " IS NOT NULL)" : " IS NULL)");
            return b.Out;
        }
        case NodeKind::Like:
            return Like(n, n.Negated != negate);
        case NodeKind::In:
            return In(n, n.Negated != negate);
        default:
            return BareValue(n, negate);
        }
    }

private:
    [[noreturn]] void Fail(std::size_t pos, const std::string& what) const {
        SyntaxError(src_, pos, what);
    }

    // A value standing alone as a condition: a boolean field means "is true".
    SqlFragment BareValue(const Node& n, bool negate) {
        Operand v = ValueOf(n);
        if (n.Kind == NodeKind::Literal && n.Lit == LitKind::Boolean)
            return {(n.Literal.Bool() != negate) ? "1" : "0", {}};
        if (v.Kind != ValueKind::Boolean && !v.IsNullLiteral())
            Fail(n.Pos, "expected a condition, not " + KindName(v.Kind));
        Operand yes{Param(true), ValueKind::Boolean, false, nullptr};
        return Compare(negate ? CmpOp::Ne : CmpOp::Eq, v, yes, n.Pos);
    }

    Operand ValueOf(const Node& n) {
        switch (n.Kind) {
        case NodeKind::Field:
            return {{QuoteField(n.Field->Name), {}}, KindOfField(n.Field->Type), true, nullptr};
        case NodeKind::Literal: {
            ValueKind k = ValueKind::Null;
            switch (n.Lit) {
            case LitKind::Number:
                k = n.Literal.kind() == Value::Kind::Integer ? ValueKind::Integer
                                                             : ValueKind::Float;
                break;
            case LitKind::Text:
                k = ValueKind::Text;
                break;
            case LitKind::Boolean:
                k = ValueKind::Boolean;
                break;
            case LitKind::Null:
                k = ValueKind::Null;
                break;
            }
            return {Param(n.Literal), k, false, &n};
        }
        case NodeKind::Negate: {
            Operand x = ValueOf(*n.Kids[0]);
            if (!IsNumberKind(x.Kind) && x.Kind != ValueKind::Null)
                Fail(n.Pos, "cannot negate " + KindName(x.Kind));
            Builder b;
            b << "(-" << x.Sql << ")";
            return {b.Out, x.Kind, false, nullptr};
        }
        case NodeKind::Func: {
            Operand x = ValueOf(*n.Kids[0]);
            if (x.IsValueLiteral()) x = Coerce(x, ValueKind::Text);
            if (x.Kind != ValueKind::Text && x.Kind != ValueKind::Null)
                Fail(n.Pos, n.Func + " needs text, not " + KindName(x.Kind));
            Builder b;
            b << n.Func << "(" << x.Sql << ")";
            return {b.Out, ValueKind::Text, false, nullptr};
        }
        case NodeKind::Arith:
            return Arith(n);
        default:
            Fail(n.Pos, "expected a value, not a condition");
        }
    }

    // A literal rebound in the representation of the kind it meets.
    Operand Coerce(const Operand& lit, ValueKind target) {
        if (!lit.IsValueLiteral()) return lit;
        const Node& n = *lit.Literal;
        const Value& v = n.Literal;
        Value out;
        try {
            switch (target) {
            case ValueKind::Null:
                return lit;
            case ValueKind::Integer:
            case ValueKind::Float:
                // Numbers meet numbers as they are: 2.5 against an integer field must stay 2.5.
                if (n.Lit == LitKind::Number) return {Param(v), lit.Kind, false, &n};
                out = target == ValueKind::Integer ? ToInteger(v) : ToFloat(v);
                break;
            case ValueKind::Money:
                out = n.ExactMoney ? Value(*n.ExactMoney) : ToMoney(v);
                break;
            case ValueKind::Text:
                out = n.Lit == LitKind::Number ? Value(n.NumberText) : ToText(v);
                break;
            case ValueKind::Date:
                out = ToDate(v);
                break;
            case ValueKind::Boolean:
                out = ToBoolean(v);
                break;
            case ValueKind::Blob:
                out = ToBlob(v);
                break;
            }
        } catch (const EngineError& e) {
            SyntaxError(src_, n.Pos, e.what(), e.ErrorCode());
        }
        return {Param(std::move(out)), target, false, &n};
    }

    static bool Comparable(ValueKind a, ValueKind b) {
        if (a == b || a == ValueKind::Null || b == ValueKind::Null) return true;
        if (IsNumberKind(a) && IsNumberKind(b)) return true;
        auto pair = [&](ValueKind x, ValueKind y) {
            return (a == x && b == y) || (a == y && b == x);
        };
        return pair(ValueKind::Text, ValueKind::Date) ||
               pair(ValueKind::Boolean, ValueKind::Integer);
    }

    static void ScaleToMoney(Operand& x) {
        Builder b;
        b << "(" << x.Sql << " * 10000)";
        x = {b.Out, ValueKind::Money, false, nullptr};
    }

    // Brings both sides of a comparison to one representation: a literal takes the kind of the
    // other side (12 against an amount is 120000 ten-thousandths, '2017-03-01' against a date
    // is a date); an amount against a plain number is compared in ten-thousandths.
    void Unify(Operand& a, Operand& b, std::size_t pos) {
        if (a.IsValueLiteral() && !b.IsValueLiteral()) {
            a = Coerce(a, b.Kind);
            return;
        }
        if (b.IsValueLiteral() && !a.IsValueLiteral()) {
            b = Coerce(b, a.Kind);
            return;
        }
        if (a.IsValueLiteral() && b.IsValueLiteral()) {
            if (a.Kind == b.Kind || (IsNumberKind(a.Kind) && IsNumberKind(b.Kind))) return;
            if (a.Kind == ValueKind::Text)
                a = Coerce(a, b.Kind);
            else
                b = Coerce(b, a.Kind);
            return;
        }
        if (!Comparable(a.Kind, b.Kind))
            Fail(pos, "cannot compare " + KindName(a.Kind) + " with " + KindName(b.Kind));
        if (a.Kind == ValueKind::Money &&
            (b.Kind == ValueKind::Integer || b.Kind == ValueKind::Float))
            ScaleToMoney(b);
        else if (b.Kind == ValueKind::Money &&
                 (a.Kind == ValueKind::Integer || a.Kind == ValueKind::Float))
            ScaleToMoney(a);
    }

    SqlFragment Compare(CmpOp op, Operand a, Operand b, std::size_t pos) {
        if (a.IsNullLiteral() && b.IsNullLiteral()) {
            const bool holds = op == CmpOp::Eq || op == CmpOp::Le || op == CmpOp::Ge;
            return {holds ? "1" : "0", {}};
        }
        if (a.IsNullLiteral()) {
            std::swap(a, b);
            op = Mirror(op);
        }
        Builder s;
        if (b.IsNullLiteral()) {
            // Null is the smallest value: nothing is below it and everything is at least it.
            switch (op) {
            case CmpOp::Eq:
            case CmpOp::Le:
                s << "(" << a.Sql << " IS NULL)";
                break;
            case CmpOp::Ne:
            case CmpOp::Gt:
                s << "(" << a.Sql << " IS NOT NULL)";
                break;
            case CmpOp::Lt:
                s << "0";
                break;
            case CmpOp::Ge:
                s << "1";
                break;
            }
            return s.Out;
        }
        Unify(a, b, pos);
        if (b.IsField && a.IsValueLiteral()) {
            std::swap(a, b);
            op = Mirror(op);
        }
        const SqlFragment& x = a.Sql;
        const SqlFragment& y = b.Sql;
        if (a.IsField && b.IsValueLiteral()) {
            switch (op) {
            case CmpOp::Eq:
            case CmpOp::Ne:
            case CmpOp::Gt:
            case CmpOp::Ge:
                s << x << SqlOperator(op) << y;
                break;
            case CmpOp::Lt:
            case CmpOp::Le:
                s << "(" << x << SqlOperator(op) << y << " OR " << x << " IS NULL)";
            }
            return s.Out;
        }
        switch (op) {
        case CmpOp::Eq:
        case CmpOp::Ne:
            s << "(" << x << SqlOperator(op) << y << ")";
            break;
        case CmpOp::Lt:
            s << "(COALESCE(" << x << " < " << y << ", 0) OR (" << x << " IS NULL AND " << y
              << " IS NOT NULL))";
            break;
        case CmpOp::Le:
            s << "(COALESCE(" << x << " <= " << y << ", 0) OR " << x << " IS NULL)";
            break;
        case CmpOp::Gt:
            s << "(COALESCE(" << x << " > " << y << ", 0) OR (" << x << " IS NOT NULL AND " << y
              << " IS NULL))";
            break;
        case CmpOp::Ge:
            s << "(COALESCE(" << x << " >= " << y << ", 0) OR " << y << " IS NULL)";
            break;
        }
        return s.Out;
    }

    Operand Arith(const Node& n) {
        Operand a = ValueOf(*n.Kids[0]);
        Operand b = ValueOf(*n.Kids[1]);
        const char op = n.ArithOp;
        Builder s;
        if (op == '+' && (a.Kind == ValueKind::Text || b.Kind == ValueKind::Text)) {
            for (Operand* side : {&a, &b}) {
                *side = Coerce(*side, ValueKind::Text);
                if (side->Kind != ValueKind::Text && side->Kind != ValueKind::Null)
                    Fail(n.Pos, "cannot add text and " + KindName(side->Kind));
            }
            s << "(" << a.Sql << " || " << b.Sql << ")";
            return {s.Out, ValueKind::Text, false, nullptr};
        }
        for (Operand* side : {&a, &b}) {
            if (side->IsValueLiteral() && side->Kind == ValueKind::Text)
                *side = Coerce(*side, ValueKind::Float);
            if (!IsNumberKind(side->Kind) && side->Kind != ValueKind::Null)
                Fail(n.Pos, "cannot calculate with " + KindName(side->Kind));
        }
        const bool am = a.Kind == ValueKind::Money;
        const bool bm = b.Kind == ValueKind::Money;
        const bool whole = (a.Kind == ValueKind::Integer || a.Kind == ValueKind::Null) &&
                           (b.Kind == ValueKind::Integer || b.Kind == ValueKind::Null);
        ValueKind result = whole ? ValueKind::Integer : ValueKind::Float;
        switch (op) {
        case '+':
        case '-':
            // Amounts add in ten-thousandths, so the plain number joins them in that scale.
            if (am || bm) {
                for (Operand* side : {&a, &b}) {
                    if (side->Kind == ValueKind::Money || side->IsNullLiteral()) continue;
                    if (side->IsValueLiteral())
                        *side = Coerce(*side, ValueKind::Money);
                    else
                        ScaleToMoney(*side);
                }
                result = ValueKind::Money;
            }
            s << "(" << a.Sql << (op == '+' ? " + " : " - ") << b.Sql << ")";
            break;
        case '*':
            if (am && bm) {
                s << "(" << a.Sql << " * 1.0 * " << b.Sql << " / 100000000.0)";
                result = ValueKind::Float;
            } else {
                s << "(" << a.Sql << " * " << b.Sql << ")";
                if (am || bm) result = ValueKind::Money;
            }
            break;
        default:
            // Real division throughout: 7 / 2 is 3.5 here, as a user reads it.
            if (!am && bm) {
                s << "(" << a.Sql << " * 10000.0 / " << b.Sql << ")";
                result = ValueKind::Float;
            } else {
                s << "(" << a.Sql << " * 1.0 / " << b.Sql << ")";
                result = am && !bm ? ValueKind::Money : ValueKind::Float;
            }
            break;
        }
        return {s.Out, result, false, nullptr};
    }

    SqlFragment Like(const Node& n, bool negated) {
        Operand x = Coerce(ValueOf(*n.Kids[0]), ValueKind::Text);
        Operand p = Coerce(ValueOf(*n.Kids[1]), ValueKind::Text);
        // Amounts and booleans are stored in a form whose text means nothing to the user.
        if (x.Kind == ValueKind::Money || x.Kind == ValueKind::Boolean || x.Kind == ValueKind::Blob)
            Fail(n.Pos, "LIKE cannot match " + KindName(x.Kind));
        if (p.Kind != ValueKind::Text && p.Kind != ValueKind::Null)
            Fail(n.Kids[1]->Pos, "the LIKE pattern must be text, not " + KindName(p.Kind));
        Builder s;
        s << (negated ? "(NOT COALESCE(" : "COALESCE(") << x.Sql << " LIKE " << p.Sql
          << (negated ? ", 0))" : ", 0)");
        return s.Out;
    }

    SqlFragment In(const Node& n, bool negated) {
        const Operand x = ValueOf(*n.Kids[0]);
        std::vector<Operand> items;
        bool allLiterals = x.IsField;
        for (std::size_t i = 1; i < n.Kids.size(); ++i) {
            items.push_back(ValueOf(*n.Kids[i]));
            if (!items.back().IsValueLiteral()) allLiterals = false;
        }
        Builder s;
        if (allLiterals) {
            // A field against a list of literals stays a plain IN that an index can serve.
            if (negated) s << "(" << x.Sql << " IS NULL OR ";
            s << x.Sql << (negated ? " NOT IN (" : " IN (");
            for (std::size_t i = 0; i < items.size(); ++i) {
                Operand field = x;
                Unify(field, items[i], n.Kids[i + 1]->Pos);
                s << (i ? ", " : "") << items[i].Sql;
            }
            s << (negated ? "))" : ")");
            return s.Out;
        }
        s << "(";
        for (std::size_t i = 0; i < items.size(); ++i) {
            s << (i ? (negated ? " AND " : " OR ") : "")
              << Compare(negated ? CmpOp::Ne : CmpOp::Eq, x, items[i], n.Kids[i + 1]->Pos);
        }
        s << ")";
        return s.Out;
    }

    std::string_view src_;
};

} // namespace

SqlFragment CompileFilter(std::string_view expression, const TableDef& table) {
    if (expression.find_first_not_of(" \t\r\n") == std::string_view::npos) return {};
    NodePtr root = Parser(expression, table).Parse();
    return Compiler(expression).Condition(*root, false);
}

} // namespace corvane::store
