#include "reports/engine/Expression.h"

#include "reports/engine/ExpressionError.h"
#include "reports/engine/ValueArithmetic.h"
#include "store/Field.h"
#include "store/sql/ExpressionReader.h"

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

std::string Upper(std::string_view s) {
    std::string u(s);
    std::transform(u.begin(), u.end(), u.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return u;
}

// Report expressions are read by the store's one expression reader: "text" is text here, and
// the aggregates are functions; the tree is then made into nodes that evaluate rows.
class ReportSyntax : public store::sql::SyntaxSink {
public:
    explicit ReportSyntax(const std::string& text) : text_(text) {}
    [[noreturn]] void Fail(const std::string& what, store::sql::SourcePos pos) const override {
        const std::size_t at = store::sql::OffsetOf(text_, pos);
        const std::string where =
            at >= text_.size() ? " at the end" : " at position " + std::to_string(at + 1);
        throw ExpressionError("Error in expression '" + text_ + "': " + what + where);
    }

private:
    const std::string& text_;
};

class Binder {
public:
    Binder(const std::string& text, const FieldResolver& resolver)
        : text_(text), resolver_(resolver), syntax_(text) {}

    NodePtr ParseAll() {
        store::sql::LexRules rules;
        rules.DoubleQuotedText = true;
        rules.Comments = false;
        store::sql::ExprPtr tree =
            store::sql::ReadExpression(text_, rules, syntax_, "end of expression");
        return Bind(*tree);
    }

    bool sawAggregate = false;

private:
    using Expr = store::sql::Expr;

    [[noreturn]] void Fail(const Expr& at, const std::string& what) const {
        syntax_.Fail(what, at.Pos);
    }

    NodePtr Number(const Expr& e) {
        try {
            if (e.Text.find_first_of(".eE") == std::string::npos)
                return std::make_unique<Literal>(
                    Value(static_cast<std::int64_t>(std::stoll(e.Text))));
            return std::make_unique<Literal>(Value(std::stod(e.Text)));
        } catch (const std::logic_error&) { // out of range or not a number after all
            Fail(e, "the number " + e.Text + " is out of range");
        }
    }

    NodePtr Field(const Expr& e) {
        if (e.Qualifier.empty() && Upper(e.Text) == "COUNT")
            return Aggregated(e, AggregateKind::Count);
        const std::string name = e.Qualifier.empty() ? e.Text : e.Qualifier + "." + e.Text;
        store::Field* field = resolver_(e.Qualifier, e.Text);
        if (!field)
            throw ExpressionError("Error in expression '" + text_ + "': unknown field '" + name +
                                  "'");
        return std::make_unique<FieldRef>(*field);
    }

    NodePtr Aggregated(const Expr& e, AggregateKind kind) {
        if (insideAggregate_) Fail(e, "an aggregate cannot hold another");
        sawAggregate = true;
        if (kind == AggregateKind::Count) { // COUNT, COUNT() and COUNT(*) are the same
            if (!e.Args.empty()) Fail(e, "COUNT takes no value");
            return std::make_unique<Aggregate>(kind, nullptr);
        }
        if (e.Star || e.Args.size() != 1) Fail(e, Upper(e.Text) + " takes one value");
        insideAggregate_ = true;
        NodePtr arg = Bind(*e.Args[0]);
        insideAggregate_ = false;
        return std::make_unique<Aggregate>(kind, std::move(arg));
    }

    NodePtr Function(const Expr& e) {
        static const std::pair<const char*, AggregateKind> aggregates[] = {
            {"SUM", AggregateKind::Sum},
            {"COUNT", AggregateKind::Count},
            {"MAX", AggregateKind::Max},
            {"MIN", AggregateKind::Min},
            {"AVERAGE", AggregateKind::Average}};
        for (const auto& [name, kind] : aggregates)
            if (Upper(e.Text) == name) return Aggregated(e, kind);
        Fail(e, "unknown function '" + e.Text + "'");
    }

    NodePtr Operation(const Expr& e) {
        using Sql = store::sql::BinaryOp;
        static const std::pair<Sql, BinaryOp> ops[] = {
            {Sql::Add, BinaryOp::Add},           {Sql::Subtract, BinaryOp::Subtract},
            {Sql::Multiply, BinaryOp::Multiply}, {Sql::Divide, BinaryOp::Divide},
            {Sql::Equal, BinaryOp::Equal},       {Sql::NotEqual, BinaryOp::NotEqual},
            {Sql::Less, BinaryOp::Less},         {Sql::LessEqual, BinaryOp::LessEqual},
            {Sql::Greater, BinaryOp::Greater},   {Sql::GreaterEqual, BinaryOp::GreaterEqual},
            {Sql::And, BinaryOp::And},           {Sql::Or, BinaryOp::Or}};
        for (const auto& [sql, op] : ops)
            if (e.Op == sql)
                return std::make_unique<Binary>(op, Bind(*e.Args[0]), Bind(*e.Args[1]));
        Fail(e, "this operator cannot stand in a report expression");
    }

    NodePtr Bind(const Expr& e) {
        using store::sql::ExprKind;
        switch (e.Kind) {
        case ExprKind::Number:
            return Number(e);
        case ExprKind::String:
            return std::make_unique<Literal>(Value(e.Text));
        case ExprKind::Boolean:
            return std::make_unique<Literal>(Value(e.BoolValue));
        case ExprKind::Null:
            return std::make_unique<Literal>(Value());
        case ExprKind::Column:
            return Field(e);
        case ExprKind::Negate:
        case ExprKind::Not:
            return std::make_unique<Unary>(e.Kind == ExprKind::Negate, Bind(*e.Args[0]));
        case ExprKind::Binary:
            return Operation(e);
        case ExprKind::Function:
            return Function(e);
        default:
            Fail(e, "this cannot stand in a report expression");
        }
    }

    const std::string& text_;
    const FieldResolver& resolver_;
    ReportSyntax syntax_;
    bool insideAggregate_ = false;
};

} // namespace

Expression::Expression(std::string text, const FieldResolver& resolver) : text_(std::move(text)) {
    Binder parser(text_, resolver);
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
