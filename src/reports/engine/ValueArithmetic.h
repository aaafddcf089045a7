#pragma once

#include "store/Value.h"

#include <string>

namespace corvane::reports {

// The arithmetic of report expressions over the store's values. Money stays money wherever the
// result is an amount (money plus money, money times a count, a sum of money), so totals are
// exact; only a product or quotient with a fraction rounds, to the nearest ten-thousandth.
// A null operand gives a null result. Operands of kinds that do not go together throw
// ExpressionError with `what` naming the operation.

enum class BinaryOp {
    Add,
    Subtract,
    Multiply,
    Divide,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessEqual,
    GreaterEqual,
    And,
    Or
};

store::Value ApplyBinary(BinaryOp op, const store::Value& a, const store::Value& b);
store::Value Negate(const store::Value& a);
store::Value Not(const store::Value& a);

// -1, 0 or 1; throws ExpressionError when the kinds cannot be compared.
int CompareValues(const store::Value& a, const store::Value& b);

bool IsNumber(const store::Value& v);
// As a truth value: a boolean as it is, a number when not zero, a string when not empty.
bool Truth(const store::Value& v);

} // namespace corvane::reports
