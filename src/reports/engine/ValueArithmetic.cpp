#include "reports/engine/ValueArithmetic.h"

#include "reports/engine/ExpressionError.h"

#include <cmath>

namespace corvane::reports {

using store::Value;
using Kind = store::Value::Kind;

namespace {

const char* KindName(const Value& v) {
    switch (v.kind()) {
    case Kind::Null:
        return "null";
    case Kind::Integer:
    case Kind::Float:
    case Kind::Money:
        return "number";
    case Kind::String:
        return "text";
    case Kind::Date:
        return "date";
    case Kind::Boolean:
        return "boolean";
    case Kind::Blob:
        return "binary data";
    }
    return "value";
}

[[noreturn]] void Mismatch(const char* what, const Value& a, const Value& b) {
    throw ExpressionError(std::string("Cannot ") + what + " " + KindName(a) + " and " +
                          KindName(b));
}

double AsDouble(const Value& v) {
    switch (v.kind()) {
    case Kind::Integer:
        return static_cast<double>(v.Int());
    case Kind::Float:
        return v.Float();
    case Kind::Money:
        return v.Money().ToDouble();
    default:
        return 0;
    }
}

Money AsMoney(const Value& v) {
    if (v.kind() == Kind::Money) return v.Money();
    if (v.kind() == Kind::Integer) return Money::FromWhole(v.Int());
    return Money::FromDouble(AsDouble(v));
}

bool IsMoney(const Value& v) {
    return v.kind() == Kind::Money;
}

Value AddOrSubtract(bool add, const Value& a, const Value& b) {
    const int sign = add ? 1 : -1;
    if (a.kind() == Kind::Integer && b.kind() == Kind::Integer)
        return Value(a.Int() + sign * b.Int());
    if (IsNumber(a) && IsNumber(b)) {
        // Money with anything gives money: an amount plus a constant is still an amount.
        if (IsMoney(a) || IsMoney(b))
            return Value(add ? AsMoney(a) + AsMoney(b) : AsMoney(a) - AsMoney(b));
        return Value(AsDouble(a) + sign * AsDouble(b));
    }
    if (add && a.kind() == Kind::String && b.kind() == Kind::String)
        return Value(a.Str() + b.Str());
    if (a.kind() == Kind::Date && b.kind() == Kind::Integer)
        return Value(a.Date().AddDays(static_cast<int>(sign * b.Int())));
    if (!add && a.kind() == Kind::Date && b.kind() == Kind::Date)
        return Value(static_cast<std::int64_t>(a.Date() - b.Date()));
    Mismatch(add ? "add" : "subtract", a, b);
}

Value Multiply(const Value& a, const Value& b) {
    if (!IsNumber(a) || !IsNumber(b)) Mismatch("multiply", a, b);
    if (a.kind() == Kind::Integer && b.kind() == Kind::Integer) return Value(a.Int() * b.Int());
    if (IsMoney(a) != IsMoney(b)) {
        const Value& money = IsMoney(a) ? a : b;
        const Value& factor = IsMoney(a) ? b : a;
        if (factor.kind() == Kind::Integer) return Value(money.Money() * factor.Int());
        return Value(Money::FromDouble(money.Money().ToDouble() * factor.Float()));
    }
    return Value(AsDouble(a) * AsDouble(b));
}

Value Divide(const Value& a, const Value& b) {
    if (!IsNumber(a) || !IsNumber(b)) Mismatch("divide", a, b);
    if (AsDouble(b) == 0) throw ExpressionError("Division by zero");
    // An amount shared out stays an amount; a ratio of two amounts is a plain number.
    if (IsMoney(a) && !IsMoney(b)) return Value(Money::FromDouble(AsDouble(a) / AsDouble(b)));
    return Value(AsDouble(a) / AsDouble(b));
}

} // namespace

bool IsNumber(const Value& v) {
    return v.kind() == Kind::Integer || v.kind() == Kind::Float || v.kind() == Kind::Money;
}

bool Truth(const Value& v) {
    switch (v.kind()) {
    case Kind::Boolean:
        return v.Bool();
    case Kind::Integer:
    case Kind::Float:
    case Kind::Money:
        return AsDouble(v) != 0;
    case Kind::String:
        return !v.Str().empty();
    default:
        return false;
    }
}

int CompareValues(const Value& a, const Value& b) {
    auto order = [](auto x, auto y) { return x < y ? -1 : (y < x ? 1 : 0); };
    if (IsNumber(a) && IsNumber(b)) {
        if (a.kind() == Kind::Float || b.kind() == Kind::Float)
            return order(AsDouble(a), AsDouble(b));
        if (IsMoney(a) || IsMoney(b)) return order(AsMoney(a), AsMoney(b));
        return order(a.Int(), b.Int());
    }
    if (a.kind() != b.kind()) Mismatch("compare", a, b);
    switch (a.kind()) {
    case Kind::String:
        return order(a.Str(), b.Str());
    case Kind::Date:
        return order(a.Date(), b.Date());
    case Kind::Boolean:
        return order(a.Bool(), b.Bool());
    default:
        Mismatch("compare", a, b);
    }
}

Value ApplyBinary(BinaryOp op, const Value& a, const Value& b) {
    if (op == BinaryOp::And) return Value(Truth(a) && Truth(b));
    if (op == BinaryOp::Or) return Value(Truth(a) || Truth(b));
    if (a.IsNull() || b.IsNull()) {
        // Null equals only null; every other operation on a null is null.
        if (op == BinaryOp::Equal) return Value(a.IsNull() && b.IsNull());
        if (op == BinaryOp::NotEqual) return Value(a.IsNull() != b.IsNull());
        return Value();
    }
    switch (op) {
    case BinaryOp::Add:
        return AddOrSubtract(true, a, b);
    case BinaryOp::Subtract:
        return AddOrSubtract(false, a, b);
    case BinaryOp::Multiply:
        return Multiply(a, b);
    case BinaryOp::Divide:
        return Divide(a, b);
    case BinaryOp::Equal:
        return Value(CompareValues(a, b) == 0);
    case BinaryOp::NotEqual:
        return Value(CompareValues(a, b) != 0);
    case BinaryOp::Less:
        return Value(CompareValues(a, b) < 0);
    case BinaryOp::Greater:
        return Value(CompareValues(a, b) > 0);
    case BinaryOp::LessEqual:
        return Value(CompareValues(a, b) <= 0);
    case BinaryOp::GreaterEqual:
        return Value(CompareValues(a, b) >= 0);
    default:
        return Value();
    }
}

Value Negate(const Value& a) {
    switch (a.kind()) {
    case Kind::Null:
        return a;
    case Kind::Integer:
        return Value(-a.Int());
    case Kind::Float:
        return Value(-a.Float());
    case Kind::Money:
        return Value(-a.Money());
    default:
        throw ExpressionError(std::string("Cannot negate ") + KindName(a));
    }
}

Value Not(const Value& a) {
    return Value(!Truth(a));
}

} // namespace corvane::reports
