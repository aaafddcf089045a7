#include "store/FilterExpression.h"

#include "core/ExpressionDepth.h"
#include "core/Text.h"

#include "store/EngineError.h"
#include "store/ValueConversion.h"
#include "store/sql/ExpressionReader.h"

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

[[noreturn]] void SyntaxError(std::string_view source, std::size_t pos, const std::string& what,
                              int code = errFilterSyntax) {
    ThrowEngineError(code, "Filter error: " + what + " at position " + std::to_string(pos) +
                               " in: " + std::string(source));
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

// Reads a filter with the store's one expression reader and makes its tree into the filter's own:
// fields looked up in the table, literals kept with how they were written, and a value where a
// value must stand.
class FilterSyntax : public sql::SyntaxSink {
public:
    explicit FilterSyntax(std::string_view source) : src_(source) {}
    [[noreturn]] void Fail(const std::string& what, sql::SourcePos pos) const override {
        SyntaxError(src_, sql::OffsetOf(src_, pos), what);
    }

private:
    std::string_view src_;
};

class Binder {
public:
    Binder(std::string_view source, const TableDef& table)
        : src_(source), table_(table), syntax_(source) {}

    NodePtr Parse() {
        sql::LexRules rules;
        rules.Comments = false;
        sql::ExprPtr tree = sql::ReadExpression(src_, rules, syntax_, "end of filter");
        return Bind(*tree);
    }

private:
    [[noreturn]] void Fail(const sql::Expr& at, const std::string& what) const {
        syntax_.Fail(what, at.Pos);
    }

    std::size_t Offset(const sql::Expr& e) const { return sql::OffsetOf(src_, e.Pos); }

    NodePtr ValueOf(const sql::Expr& e) {
        NodePtr n = Bind(e);
        if (n->IsCondition()) Fail(e, "expected a value, not a condition");
        return n;
    }

    NodePtr Kids(NodeKind kind, const sql::Expr& e, bool values) {
        NodePtr n = MakeNode(kind, Offset(e));
        for (const auto& arg : e.Args)
            n->Kids.push_back(values ? ValueOf(*arg) : Bind(*arg));
        return n;
    }

    NodePtr Literal(const sql::Expr& e, LitKind kind, store::Value value) {
        NodePtr n = MakeNode(NodeKind::Literal, Offset(e));
        n->Lit = kind;
        n->Literal = std::move(value);
        return n;
    }

    NodePtr Field(const sql::Expr& e) {
        if (!e.Qualifier.empty()) Fail(e, "a field of another table cannot stand in a filter");
        // "text" names a field when the table has one by that name, else it is text.
        if (e.Quote == '"' && !table_.FindField(e.Text)) return Literal(e, LitKind::Text, e.Text);
        const FieldDef* f = table_.FindField(e.Text);
        if (!f)
            ThrowEngineError(errFieldNotFound,
                             "Field '" + e.Text + "' not found in table '" + table_.Name + "'");
        NodePtr n = MakeNode(NodeKind::Field, Offset(e));
        n->Field = f;
        return n;
    }

    NodePtr Number(const sql::Expr& e) {
        store::Value v;
        if (e.Text.find_first_of(".eE") == std::string::npos) {
            if (auto i = ParseInteger(e.Text))
                v = *i;
            else
                v = ParseNumber(e.Text).value_or(0.0);
        } else {
            v = ParseNumber(e.Text).value_or(0.0);
        }
        NodePtr n = Literal(e, LitKind::Number, v);
        n->NumberText = e.Text;
        n->ExactMoney = ParseDecimalMoney(e.Text);
        return n;
    }

    NodePtr Function(const sql::Expr& e) {
        std::string name;
        for (std::string_view func : {"UPPER", "LOWER", "TRIM"})
            if (SameName(e.Text, func)) name = func;
        if (name.empty()) Fail(e, "unknown function '" + e.Text + "'");
        if (e.Star || e.Distinct || e.Args.size() != 1) Fail(e, name + " takes one value");
        NodePtr n = Kids(NodeKind::Func, e, true);
        n->Func = name;
        return n;
    }

    NodePtr Binary(const sql::Expr& e) {
        using sql::BinaryOp;
        switch (e.Op) {
        case BinaryOp::And:
            return Kids(NodeKind::And, e, false);
        case BinaryOp::Or:
            return Kids(NodeKind::Or, e, false);
        case BinaryOp::Like: {
            NodePtr n = Kids(NodeKind::Like, e, true);
            n->Negated = e.Negated;
            return n;
        }
        case BinaryOp::Add:
        case BinaryOp::Subtract:
        case BinaryOp::Multiply:
        case BinaryOp::Divide: {
            NodePtr n = Kids(NodeKind::Arith, e, true);
            n->ArithOp = e.Op == BinaryOp::Add        ? '+'
                         : e.Op == BinaryOp::Subtract ? '-'
                         : e.Op == BinaryOp::Multiply ? '*'
                                                      : '/';
            return n;
        }
        case BinaryOp::Equal:
        case BinaryOp::NotEqual:
        case BinaryOp::Less:
        case BinaryOp::LessEqual:
        case BinaryOp::Greater:
        case BinaryOp::GreaterEqual: {
            NodePtr n = Kids(NodeKind::Compare, e, true);
            n->Cmp = e.Op == BinaryOp::Equal       ? CmpOp::Eq
                     : e.Op == BinaryOp::NotEqual  ? CmpOp::Ne
                     : e.Op == BinaryOp::Less      ? CmpOp::Lt
                     : e.Op == BinaryOp::LessEqual ? CmpOp::Le
                     : e.Op == BinaryOp::Greater   ? CmpOp::Gt
                                                   : CmpOp::Ge;
            return n;
        }
        case BinaryOp::Modulo:
        case BinaryOp::Concat:
            break;
        }
        Fail(e, "this operator cannot stand in a filter");
    }

    NodePtr Bind(const sql::Expr& e) {
        using sql::ExprKind;
        switch (e.Kind) {
        case ExprKind::Number:
            return Number(e);
        case ExprKind::String:
            return Literal(e, LitKind::Text, e.Text);
        case ExprKind::Boolean:
            return Literal(e, LitKind::Boolean, e.BoolValue);
        case ExprKind::Null:
            return Literal(e, LitKind::Null, store::Value());
        case ExprKind::Column:
            return Field(e);
        case ExprKind::Negate:
            return Kids(NodeKind::Negate, e, true);
        case ExprKind::Not:
            return Kids(NodeKind::Not, e, false);
        case ExprKind::Binary:
            return Binary(e);
        case ExprKind::InList:
        case ExprKind::IsNull: {
            NodePtr n = Kids(e.Kind == ExprKind::InList ? NodeKind::In : NodeKind::IsNull, e, true);
            n->Negated = e.Negated;
            return n;
        }
        case ExprKind::Function:
            return Function(e);
        default:
            Fail(e, "a filter compares fields with values; this cannot stand in one");
        }
    }

    std::string_view src_;
    const TableDef& table_;
    FilterSyntax syntax_;
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
    Compiler(std::string_view source, FilterTerms terms) : src_(source), terms_(terms) {}

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
            return {{(terms_ == FilterTerms::Tested ? "+" : "") + QuoteField(n.Field->Name), {}},
                    KindOfField(n.Field->Type),
                    true,
                    nullptr};
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
    FilterTerms terms_;
};

} // namespace

SqlFragment CompileFilter(std::string_view expression, const TableDef& table, FilterTerms terms) {
    if (expression.find_first_not_of(" \t\r\n") == std::string_view::npos) return {};
    NodePtr root = Binder(expression, table).Parse();
    return Compiler(expression, terms).Condition(*root, false);
}

} // namespace corvane::store
