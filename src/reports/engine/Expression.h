#pragma once

#include "store/Value.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace corvane::store {
class Field;
}

namespace corvane::reports {

// Finds the field an expression names: `qualifier` is the part before the dot of "Table.Field"
// (empty for a plain name). Nothing when there is no such field.
using FieldResolver =
    std::function<store::Field*(std::string_view qualifier, std::string_view name)>;

// A compiled report expression: field names, numbers, quoted strings, + - * /, comparisons,
// AND OR NOT, parentheses, and the aggregates SUM, COUNT, MAX, MIN and AVERAGE. Fields are found
// once when the expression is compiled, so evaluating a row costs no look-up by name.
//
// Aggregates see only the rows handed to Accumulate: the report calls it for each row it prints,
// so a total counts what the reader sees, and Reset starts the count again (after a group footer
// or a page footer prints).
class Expression {
public:
    // Throws ExpressionError, naming the expression, for text that cannot be read or a field that
    // the resolver does not know.
    Expression(std::string text, const FieldResolver& resolver);
    ~Expression();
    Expression(Expression&&) noexcept;
    Expression& operator=(Expression&&) noexcept;

    const std::string& Text() const { return text_; }
    bool HasAggregates() const { return hasAggregates_; }

    // The value on the current rows of the datasets. Throws ExpressionError for an operation the
    // values do not allow (text times a number, a division by zero).
    store::Value Evaluate() const;
    // Adds the current rows to every aggregate in the expression.
    void Accumulate();
    void Reset();

    struct Node;

private:
    std::string text_;
    std::unique_ptr<Node> root_;
    bool hasAggregates_ = false;
};

} // namespace corvane::reports
