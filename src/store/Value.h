#pragma once

#include "core/Date.h"
#include "core/Money.h"

#include <cstdint>
#include <string>
#include <variant>

namespace corvane::store {

struct Blob {
    std::string Bytes;
    bool operator==(const Blob&) const = default;
};

// One field's value as the store moves it: null, or one of the stored kinds.
class Value {
public:
    enum class Kind { Null, Integer, Float, Money, String, Date, Boolean, Blob };

    Value() = default;
    Value(std::nullptr_t) {}
    Value(int v) : v_(static_cast<std::int64_t>(v)) {}
    Value(std::int64_t v) : v_(v) {}
    Value(double v) : v_(v) {}
    Value(corvane::Money v) : v_(v) {}
    Value(std::string v) : v_(std::move(v)) {}
    Value(const char* v) : v_(std::string(v)) {}
    Value(corvane::Date v) : v_(v) {}
    Value(bool v) : v_(v) {}
    Value(Blob v) : v_(std::move(v)) {}

    Kind kind() const { return static_cast<Kind>(v_.index()); }
    bool IsNull() const { return v_.index() == 0; }

    // Direct access; the caller knows the kind.
    std::int64_t Int() const { return std::get<std::int64_t>(v_); }
    double Float() const { return std::get<double>(v_); }
    corvane::Money Money() const { return std::get<corvane::Money>(v_); }
    const std::string& Str() const { return std::get<std::string>(v_); }
    corvane::Date Date() const { return std::get<corvane::Date>(v_); }
    bool Bool() const { return std::get<bool>(v_); }
    const store::Blob& BlobValue() const { return std::get<store::Blob>(v_); }

    bool operator==(const Value&) const = default;

    // For messages and tests: "null", 12, 3.5, 12.5000, 'text', 2017-03-05, true.
    std::string DebugString() const;

private:
    std::variant<std::monostate, std::int64_t, double, corvane::Money, std::string, corvane::Date,
                 bool, store::Blob>
        v_;
};

} // namespace corvane::store
