#pragma once

namespace corvane {

// How deeply a filter, an SQL statement or a report expression may nest. Each parser and each
// pass over its tree recurses once per level, so input past the limit is refused as it is read,
// with a message of the parser's own kind, before anything could run out of stack. Operators
// chained onto a left side count as levels too: "1+1+1..." builds a tree as deep as it is long.
inline constexpr int MaxExpressionDepth = 256;
inline constexpr const char* ExpressionTooDeep = "the expression nests more than 256 levels deep";

class ExpressionDepth {
public:
    // The levels one parsing routine has entered; they are left when it returns.
    class Scope {
    public:
        explicit Scope(ExpressionDepth& depth) : depth_(depth) {}
        ~Scope() { depth_.levels_ -= entered_; }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        // One level deeper; false once past the limit.
        [[nodiscard]] bool Enter() {
            ++entered_;
            return ++depth_.levels_ <= MaxExpressionDepth;
        }

    private:
        ExpressionDepth& depth_;
        int entered_ = 0;
    };

private:
    int levels_ = 0;
};

} // namespace corvane
