#include "reports/engine/Expression.h"

#include "core/ExpressionDepth.h"

#include "reports/engine/ExpressionError.h"
#include "reports/engine/ValueArithmetic.h"
#include "store/Field.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>
#include <vector>

namespace corvane::reports {

using store::Value;

struct Expression::Node {
    virtual ~Node() = default;
    virtual Value Eval() const = 0;
    virtual void Accumulate() {}
    virtual void Reset() {}
};

namespace {

using Node = Expression::Node;
using NodePtr = std::unique_ptr<Node>;

struct Literal : Node {
    explicit Literal(Value v) : value(std::move(v)) {}
    Value Eval() const override { return value; }
    Value value;
};

// A null reads as the zero of its field's kind, so that a missing amount adds as nothing and a
// missing name compares as empty; a null date stays null.
Value ZeroOf(store::FieldType type) {
    switch (type) {
    case store::FieldType::String:
    case store::FieldType::Memo:
        return Value(std::string());
    case store::FieldType::SmallInt:
    case store::FieldType::Integer:
    case store::FieldType::AutoInc:
        return Value(std::int64_t{0});
    case store::FieldType::Float:
        return Value(0.0);
    case store::FieldType::Currency:
        return Value(Money());
    case store::FieldType::Boolean:
        return Value(false);
    default:
        return Value();
    }
}

struct FieldRef : Node {
    explicit FieldRef(store::Field& f) : field(f) {}
    Value Eval() const override {
        const Value& v = field.AsValue();
        return v.IsNull() ? ZeroOf(field.DataType()) : v;
    }
    store::Field& field;
};

struct Unary : Node {
    Unary(bool minus, NodePtr of) : negate(minus), operand(std::move(of)) {}
    Value Eval() const override {
        Value v = operand->Eval();
        return negate ? Negate(v) : Not(v);
    }
    void Accumulate() override { operand->Accumulate(); }
    void Reset() override { operand->Reset(); }
    bool negate;
    NodePtr operand;
};

struct Binary : Node {
    Binary(BinaryOp how, NodePtr left, NodePtr right)
        : op(how), a(std::move(left)), b(std::move(right)) {}
    Value Eval() const override { return ApplyBinary(op, a->Eval(), b->Eval()); }
    void Accumulate() override {
        a->Accumulate();
        b->Accumulate();
    }
    void Reset() override {
        a->Reset();
        b->Reset();
    }
    BinaryOp op;
    NodePtr a, b;
};

enum class AggregateKind { Sum, Count, Max, Min, Average };

struct Aggregate : Node {
    Aggregate(AggregateKind what, NodePtr of) : kind(what), arg(std::move(of)) {}

    Value Eval() const override {
        switch (kind) {
        case AggregateKind::Count:
            return Value(count);
        case AggregateKind::Sum:
            return count ? sum : Value(std::int64_t{0});
        case AggregateKind::Max:
        case AggregateKind::Min:
            return extreme;
        case AggregateKind::Average:
            return Average();
        }
        return Value();
    }

    void Accumulate() override {
        ++count;
        if (!arg) return;
        Value v = arg->Eval();
        if (v.IsNull()) return;
        if (kind == AggregateKind::Max || kind == AggregateKind::Min) {
            const int wanted = kind == AggregateKind::Max ? 1 : -1;
            if (extreme.IsNull() || CompareValues(v, extreme) == wanted) extreme = std::move(v);
            return;
        }
        sum = sum.IsNull() ? v : ApplyBinary(BinaryOp::Add, sum, v);
    }

    void Reset() override {
        count = 0;
        sum = Value();
        extreme = Value();
    }

    Value Average() const {
        if (count == 0 || sum.IsNull()) return Value(std::int64_t{0});
        if (sum.kind() == Value::Kind::Money) {
            // Rounded half away from zero in whole ten-thousandths, without a double.
            const std::int64_t units = sum.Money().Units();
            std::int64_t q = units / count, r = units % count;
            if (2 * (r < 0 ? -r : r) >= count) q += units < 0 ? -1 : 1;
            return Value(Money::FromUnits(q));
        }
        return ApplyBinary(BinaryOp::Divide, sum, Value(count));
    }

    AggregateKind kind;
    NodePtr arg; // none for COUNT
    std::int64_t count = 0;
    Value sum;
    Value extreme;
};

enum class Tok { End, Number, String, Name, Op, LParen, RParen, Comma };

struct Token {
    Tok kind = Tok::End;
    std::string text;
    std::size_t pos = 0;
};

std::string Upper(std::string_view s) {
    std::string u(s);
    std::transform(u.begin(), u.end(), u.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return u;
}

class Parser {
public:
    Parser(const std::string& text, const FieldResolver& resolver)
        : text_(text), resolver_(resolver) {
        Advance();
    }

    NodePtr ParseAll() {
        NodePtr n = ParseOr();
        if (tok_.kind != Tok::End) Fail("unexpected '" + tok_.text + "'");
        return n;
    }

    bool sawAggregate = false;

private:
    [[noreturn]] void Fail(const std::string& what) const {
        const std::string where =
            tok_.kind == Tok::End ? " at the end" : " at position " + std::to_string(tok_.pos + 1);
        throw ExpressionError("Error in expression '" + text_ + "': " + what + where);
    }

    void Advance() {
        std::size_t i = pos_;
        while (i < text_.size() && std::isspace(static_cast<unsigned char>(text_[i])))
            ++i;
        tok_ = Token{Tok::End, "", i};
        if (i >= text_.size()) {
            pos_ = i;
            return;
        }
        const char c = text_[i];
        auto isNameChar = [](char ch) {
            return std::isalnum(static_cast<unsigned char>(ch)) || ch == '_';
        };
        if (std::isdigit(static_cast<unsigned char>(c)) ||
            (c == '.' && i + 1 < text_.size() &&
             std::isdigit(static_cast<unsigned char>(text_[i + 1])))) {
            std::size_t j = i;
            bool dot = false;
            while (j < text_.size() && (std::isdigit(static_cast<unsigned char>(text_[j])) ||
                                        (text_[j] == '.' && !dot))) {
                dot = dot || text_[j] == '.';
                ++j;
            }
            tok_ = Token{Tok::Number, text_.substr(i, j - i), i};
            pos_ = j;
        } else if (c == '\'' || c == '"') {
            std::string s;
            std::size_t j = i + 1;
            for (;; ++j) {
                if (j >= text_.size()) {
                    tok_ = Token{Tok::String, text_.substr(i), i};
                    Fail("the string is not closed");
                }
                if (text_[j] == c) {
                    if (j + 1 < text_.size() && text_[j + 1] == c) {
                        s += c;
                        ++j;
                        continue;
                    }
                    break;
                }
                s += text_[j];
            }
            tok_ = Token{Tok::String, s, i};
            pos_ = j + 1;
        } else if (std::isalpha(static_cast<unsigned char>(c)) || c == '_') {
            std::size_t j = i;
            while (j < text_.size() && isNameChar(text_[j]))
                ++j;
            // Table.Field stays one name; the resolver splits it.
            if (j + 1 < text_.size() && text_[j] == '.' &&
                (std::isalpha(static_cast<unsigned char>(text_[j + 1])) || text_[j + 1] == '_')) {
                ++j;
                while (j < text_.size() && isNameChar(text_[j]))
                    ++j;
            }
            tok_ = Token{Tok::Name, text_.substr(i, j - i), i};
            pos_ = j;
        } else if (c == '(' || c == ')' || c == ',') {
            tok_ = Token{c == '('   ? Tok::LParen
                         : c == ')' ? Tok::RParen
                                    : Tok::Comma,
                         std::string(1, c), i};
            pos_ = i + 1;
        } else {
            static const char* ops[] = {"<>", "<=", ">=", "+", "-", "*", "/", "=", "<", ">"};
            for (const char* op : ops) {
                if (text_.compare(i, std::char_traits<char>::length(op), op) == 0) {
                    tok_ = Token{Tok::Op, op, i};
                    pos_ = i + std::char_traits<char>::length(op);
                    return;
                }
            }
            tok_ = Token{Tok::Op, std::string(1, c), i};
            Fail("unexpected '" + tok_.text + "'");
        }
    }

    bool IsKeyword(const char* word) const {
        return tok_.kind == Tok::Name && Upper(tok_.text) == word;
    }
    bool IsOp(const char* op) const { return tok_.kind == Tok::Op && tok_.text == op; }

    void Deeper(ExpressionDepth::Scope& levels) const {
        if (!levels.Enter()) Fail(ExpressionTooDeep);
    }

    NodePtr ParseOr() {
        ExpressionDepth::Scope levels(depth_);
        Deeper(levels);
        NodePtr n = ParseAnd();
        while (IsKeyword("OR")) {
            Deeper(levels);
            Advance();
            n = std::make_unique<Binary>(BinaryOp::Or, std::move(n), ParseAnd());
        }
        return n;
    }

    NodePtr ParseAnd() {
        ExpressionDepth::Scope levels(depth_);
        NodePtr n = ParseNot();
        while (IsKeyword("AND")) {
            Deeper(levels);
            Advance();
            n = std::make_unique<Binary>(BinaryOp::And, std::move(n), ParseNot());
        }
        return n;
    }

    NodePtr ParseNot() {
        if (IsKeyword("NOT")) {
            ExpressionDepth::Scope levels(depth_);
            Deeper(levels);
            Advance();
            return std::make_unique<Unary>(false, ParseNot());
        }
        return ParseComparison();
    }

    NodePtr ParseComparison() {
        NodePtr n = ParseAdditive();
        static const std::pair<const char*, BinaryOp> ops[] = {
            {"=", BinaryOp::Equal},   {"<>", BinaryOp::NotEqual},  {"<", BinaryOp::Less},
            {">", BinaryOp::Greater}, {"<=", BinaryOp::LessEqual}, {">=", BinaryOp::GreaterEqual}};
        for (const auto& [text, op] : ops) {
            if (IsOp(text)) {
                Advance();
                return std::make_unique<Binary>(op, std::move(n), ParseAdditive());
            }
        }
        return n;
    }

    NodePtr ParseAdditive() {
        ExpressionDepth::Scope levels(depth_);
        NodePtr n = ParseMultiplicative();
        while (IsOp("+") || IsOp("-")) {
            Deeper(levels);
            const BinaryOp op = tok_.text == "+" ? BinaryOp::Add : BinaryOp::Subtract;
            Advance();
            n = std::make_unique<Binary>(op, std::move(n), ParseMultiplicative());
        }
        return n;
    }

    NodePtr ParseMultiplicative() {
        ExpressionDepth::Scope levels(depth_);
        NodePtr n = ParseUnary();
        while (IsOp("*") || IsOp("/")) {
            Deeper(levels);
            const BinaryOp op = tok_.text == "*" ? BinaryOp::Multiply : BinaryOp::Divide;
            Advance();
            n = std::make_unique<Binary>(op, std::move(n), ParseUnary());
        }
        return n;
    }

    NodePtr ParseUnary() {
        ExpressionDepth::Scope levels(depth_);
        Deeper(levels);
        if (IsOp("-")) {
            Advance();
            return std::make_unique<Unary>(true, ParseUnary());
        }
        if (IsOp("+")) {
            Advance();
            return ParseUnary();
        }
        return ParsePrimary();
    }

    void Expect(Tok kind, const char* what) {
        if (tok_.kind != kind) Fail(std::string("'") + what + "' expected");
        Advance();
    }

    NodePtr ParsePrimary() {
        const Token t = tok_;
        switch (t.kind) {
        case Tok::Number: {
            Advance();
            try {
                if (t.text.find('.') == std::string::npos)
                    return std::make_unique<Literal>(
                        Value(static_cast<std::int64_t>(std::stoll(t.text))));
                return std::make_unique<Literal>(Value(std::stod(t.text)));
            } catch (const std::logic_error&) { // out of range or not a number after all
                Fail("the number " + t.text + " is out of range");
            }
        }
        case Tok::String:
            Advance();
            return std::make_unique<Literal>(Value(t.text));
        case Tok::LParen: {
            Advance();
            NodePtr n = ParseOr();
            Expect(Tok::RParen, ")");
            return n;
        }
        case Tok::Name:
            return ParseName();
        case Tok::End:
            Fail("a value is missing");
        default:
            Fail("unexpected '" + t.text + "'");
        }
    }

    NodePtr ParseName() {
        const std::string upper = Upper(tok_.text);
        if (upper == "TRUE" || upper == "FALSE") {
            Advance();
            return std::make_unique<Literal>(Value(upper == "TRUE"));
        }
        static const std::pair<const char*, AggregateKind> aggregates[] = {
            {"SUM", AggregateKind::Sum},
            {"COUNT", AggregateKind::Count},
            {"MAX", AggregateKind::Max},
            {"MIN", AggregateKind::Min},
            {"AVERAGE", AggregateKind::Average}};
        for (const auto& [name, kind] : aggregates) {
            if (upper != name) continue;
            const Token nameTok = tok_;
            Advance();
            if (kind == AggregateKind::Count) {
                if (tok_.kind == Tok::LParen) { // COUNT and COUNT() are the same
                    Advance();
                    Expect(Tok::RParen, ")");
                }
                sawAggregate = true;
                return std::make_unique<Aggregate>(kind, nullptr);
            }
            Expect(Tok::LParen, "(");
            if (insideAggregate_) {
                tok_ = nameTok;
                Fail("an aggregate cannot hold another");
            }
            insideAggregate_ = true;
            NodePtr arg = ParseOr();
            insideAggregate_ = false;
            Expect(Tok::RParen, ")");
            sawAggregate = true;
            return std::make_unique<Aggregate>(kind, std::move(arg));
        }
        if (upper == "AND" || upper == "OR" || upper == "NOT") Fail("a value is missing");
        const Token nameTok = tok_;
        const std::string name = tok_.text;
        Advance();
        if (tok_.kind == Tok::LParen) {
            tok_ = nameTok;
            Fail("unknown function '" + name + "'");
        }
        const auto dot = name.find('.');
        store::Field* field = dot == std::string::npos
                                  ? resolver_("", name)
                                  : resolver_(std::string_view(name).substr(0, dot),
                                              std::string_view(name).substr(dot + 1));
        if (!field)
            throw ExpressionError("Error in expression '" + text_ + "': unknown field '" + name +
                                  "'");
        return std::make_unique<FieldRef>(*field);
    }

    const std::string& text_;
    const FieldResolver& resolver_;
    std::size_t pos_ = 0;
    Token tok_;
    bool insideAggregate_ = false;
    ExpressionDepth depth_;
};

} // namespace

Expression::Expression(std::string text, const FieldResolver& resolver) : text_(std::move(text)) {
    Parser parser(text_, resolver);
    root_ = parser.ParseAll();
    hasAggregates_ = parser.sawAggregate;
}

Expression::~Expression() = default;
Expression::Expression(Expression&&) noexcept = default;
Expression& Expression::operator=(Expression&&) noexcept = default;

Value Expression::Evaluate() const {
    try {
        return root_->Eval();
    } catch (const ExpressionError& e) {
        throw ExpressionError("Error in expression '" + text_ + "': " + e.what());
    }
}

void Expression::Accumulate() {
    if (!hasAggregates_) return;
    try {
        root_->Accumulate();
    } catch (const ExpressionError& e) {
        throw ExpressionError("Error in expression '" + text_ + "': " + e.what());
    }
}

void Expression::Reset() {
    root_->Reset();
}

} // namespace corvane::reports
