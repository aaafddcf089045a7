#include "store/ValueConversion.h"

#include "core/Text.h"
#include "store/EngineError.h"
#include "store/TableDef.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace corvane::store {

std::optional<std::int64_t> ParseInteger(std::string_view text) {
    text = TrimBlanks(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    std::int64_t value = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || ec != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<double> ParseNumber(std::string_view text) {
    text = TrimBlanks(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    double value = 0;
    auto [end, ec] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::general);
    if (text.empty() || ec != std::errc() || end != text.data() + text.size() ||
        !std::isfinite(value))
        return std::nullopt;
    return value;
}

// Reads "-12.34567" exactly as ten-thousandths (the fifth decimal rounds half away from zero),
// so that an amount written in a filter never passes through floating point.
std::optional<Money> ParseDecimalMoney(std::string_view text) {
    text = TrimBlanks(text);
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    const auto point = text.find('.');
    std::string_view whole = text.substr(0, point);
    std::string_view fraction = point == std::string_view::npos ? "" : text.substr(point + 1);
    if (whole.empty() && fraction.empty()) return std::nullopt;
    constexpr std::int64_t maxWhole = std::numeric_limits<std::int64_t>::max() / Money::Scale - 1;
    std::int64_t units = 0;
    for (char c : whole) {
        if (c < '0' || c > '9') return std::nullopt;
        units = units * 10 + (c - '0');
        if (units > maxWhole) return std::nullopt;
    }
    units *= Money::Scale;
    std::int64_t place = Money::Scale;
    for (std::size_t i = 0; i < fraction.size(); ++i) {
        const char c = fraction[i];
        if (c < '0' || c > '9') return std::nullopt;
        if (place > 1) {
            place /= 10;
            units += (c - '0') * place;
        } else if (i == 4 && c >= '5') {
            units += 1;
        }
    }
    return Money::FromUnits(negative ? -units : units);
}

std::optional<bool> ParseBoolean(std::string_view text) {
    const std::string_view t = TrimBlanks(text);
    for (std::string_view yes : {"true", "t", "yes", "y", "1"})
        if (SameName(t, yes)) return true;
    for (std::string_view no : {"false", "f", "no", "n", "0"})
        if (SameName(t, no)) return false;
    return std::nullopt;
}

// 2^63 is exact as a double; anything at or past it does not fit, nor anything below -2^63.
constexpr double kTwoTo63 = 9223372036854775808.0;

std::optional<std::int64_t> WholeNumber(double value) {
    if (!std::isfinite(value) || std::trunc(value) != value) return std::nullopt;
    if (value < -kTwoTo63 || value >= kTwoTo63) return std::nullopt;
    return static_cast<std::int64_t>(value);
}

std::optional<std::int64_t> RoundedInteger(double value) {
    if (!std::isfinite(value)) return std::nullopt;
    const double rounded = value > 0 ? std::trunc(value + 0.5) : std::trunc(value - 0.5);
    return WholeNumber(rounded);
}

namespace {

std::string NumberText(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.15g", value);
    return text;
}

[[noreturn]] void NotValid(const Value& value, std::string_view what) {
    ThrowEngineError(errInvalidValue, value.DebugString() + " is not a valid " + std::string(what));
}

Value ToText(const Value& v) {
    switch (v.kind()) {
    case Value::Kind::Null:
        return v;
    case Value::Kind::Integer:
        return std::to_string(v.Int());
    case Value::Kind::Float:
        return NumberText(v.Float());
    case Value::Kind::Money:
        return v.Money().ToString();
    case Value::Kind::String:
        return v;
    case Value::Kind::Date:
        return v.Date().ToIso();
    case Value::Kind::Boolean:
        return v.Bool() ? "true" : "false";
    case Value::Kind::Blob:
        return v.BlobValue().Bytes;
    }
    return v;
}

Value ToInteger(const Value& v) {
    switch (v.kind()) {
    case Value::Kind::Integer:
        return v;
    case Value::Kind::Float:
        if (auto n = WholeNumber(v.Float())) return *n;
        break;
    case Value::Kind::Money:
        if (v.Money().Units() % Money::Scale == 0) return v.Money().Units() / Money::Scale;
        break;
    case Value::Kind::String:
        if (auto n = ParseInteger(v.Str())) return *n;
        break;
    case Value::Kind::Boolean:
        return static_cast<std::int64_t>(v.Bool() ? 1 : 0);
    default:
        break;
    }
    NotValid(v, "integer");
}

Value ToFloat(const Value& v) {
    switch (v.kind()) {
    case Value::Kind::Integer:
        return static_cast<double>(v.Int());
    case Value::Kind::Float:
        return v;
    case Value::Kind::Money:
        return v.Money().ToDouble();
    case Value::Kind::String:
        if (auto d = ParseNumber(v.Str())) return *d;
        break;
    default:
        break;
    }
    NotValid(v, "number");
}

Value ToMoney(const Value& v) {
    try {
        switch (v.kind()) {
        case Value::Kind::Integer:
            if (v.Int() > -std::numeric_limits<std::int64_t>::max() / Money::Scale &&
                v.Int() < std::numeric_limits<std::int64_t>::max() / Money::Scale)
                return Money::FromWhole(v.Int());
            break;
        case Value::Kind::Float:
            if (std::isfinite(v.Float())) return Money::FromDouble(v.Float());
            break;
        case Value::Kind::Money:
            return v;
        case Value::Kind::String:
            // Plain decimal text first: it does not depend on the user's separators.
            if (auto m = ParseDecimalMoney(v.Str())) return *m;
            if (auto m = Money::Parse(v.Str())) return *m;
            break;
        default:
            break;
        }
    } catch (const Exception&) {
        // Out of range for an amount: reported below like any other unusable value.
    }
    NotValid(v, "amount");
}

Value ToDate(const Value& v) {
    if (v.kind() == Value::Kind::Date) return v;
    if (v.kind() == Value::Kind::String)
        if (auto d = Date::FromIso(TrimBlanks(v.Str()))) return *d;
    NotValid(v, "date (yyyy-mm-dd)");
}

Value ToBoolean(const Value& v) {
    switch (v.kind()) {
    case Value::Kind::Boolean:
        return v;
    case Value::Kind::Integer:
        if (v.Int() == 0 || v.Int() == 1) return v.Int() == 1;
        break;
    case Value::Kind::String:
        if (auto b = ParseBoolean(v.Str())) return *b;
        break;
    default:
        break;
    }
    NotValid(v, "true/false value");
}

Value ToBlob(const Value& v) {
    if (v.kind() == Value::Kind::Blob) return v;
    if (v.kind() == Value::Kind::String) return Blob{v.Str()};
    NotValid(v, "picture");
}

} // namespace

Value CoerceToField(const Value& literal, FieldType type) {
    if (literal.IsNull()) return literal;
    switch (type) {
    case FieldType::String:
    case FieldType::Memo:
        return ToText(literal);
    case FieldType::SmallInt:
    case FieldType::Integer:
    case FieldType::AutoInc:
        return ToInteger(literal);
    case FieldType::Float:
        return ToFloat(literal);
    case FieldType::Currency:
        return ToMoney(literal);
    case FieldType::Date:
        return ToDate(literal);
    case FieldType::Boolean:
        return ToBoolean(literal);
    case FieldType::Graphic:
        return ToBlob(literal);
    }
    return literal;
}

} // namespace corvane::store
