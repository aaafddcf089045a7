#include "store/Field.h"
#include "store/ValueConversion.h"

#include "core/MoneyLimit.h"

#include "core/DateEntry.h"
#include "core/DisplayFormat.h"
#include "core/Text.h"
#include "store/DataSet.h"
#include "store/EngineError.h"
#include "store/TableDef.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace corvane::store {

std::vector<std::string> SplitFieldList(std::string_view list) {
    std::vector<std::string> out;
    std::size_t start = 0;
    while (start <= list.size()) {
        std::size_t end = list.find(';', start);
        if (end == std::string_view::npos) end = list.size();
        std::string_view part = TrimBlanks(list.substr(start, end - start));
        if (!part.empty()) out.emplace_back(part);
        start = end + 1;
    }
    return out;
}

Field::Field(DataSet& owner, int index, std::string name, FieldType type, int size, FieldKind kind)
    : owner_(owner), index_(index), name_(std::move(name)), type_(type), size_(size), kind_(kind) {}

// ----- reading

bool Field::IsNull() const {
    return owner_.BufferValue(index_).IsNull();
}

const Value& Field::AsValue() const {
    return owner_.BufferValue(index_);
}

static std::string FloatText(double v) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.15g", v);
    return buf;
}

static std::string MoneyText(Money m) {
    // The shortest plain decimal: 12.5 rather than 12.5000.
    std::string s = m.ToString();
    if (s.find('.') != std::string::npos) {
        while (s.back() == '0')
            s.pop_back();
        if (s.back() == '.') s.pop_back();
    }
    return s;
}

std::string Field::AsString() const {
    const Value& v = AsValue();
    switch (v.kind()) {
    case Value::Kind::Null:
        return "";
    case Value::Kind::Integer:
        return std::to_string(v.Int());
    case Value::Kind::Float:
        return FloatText(v.Float());
    case Value::Kind::Money:
        return MoneyText(v.Money());
    case Value::Kind::String:
        return v.Str();
    case Value::Kind::Date:
        return DateToStr(v.Date());
    case Value::Kind::Boolean:
        return v.Bool() ? "True" : "False";
    case Value::Kind::Blob:
        return v.BlobValue().Bytes;
    }
    return "";
}

std::int64_t Field::AsInteger() const {
    const Value& v = AsValue();
    switch (v.kind()) {
    case Value::Kind::Integer:
        return v.Int();
    case Value::Kind::Float:
        if (auto n = RoundedInteger(v.Float())) return *n;
        ThrowEngineError(errValueOutOfRange,
                         v.DebugString() + " does not fit an integer (field '" + Label() + "')");
    case Value::Kind::Money:
        return *RoundedInteger(v.Money().ToDouble());
    case Value::Kind::Boolean:
        return v.Bool() ? 1 : 0;
    case Value::Kind::Date:
        return v.Date().DayNumber();
    case Value::Kind::String:
        return Coerce(v).Int();
    default:
        return 0;
    }
}

double Field::AsFloat() const {
    const Value& v = AsValue();
    switch (v.kind()) {
    case Value::Kind::Integer:
        return static_cast<double>(v.Int());
    case Value::Kind::Float:
        return v.Float();
    case Value::Kind::Money:
        return v.Money().ToDouble();
    case Value::Kind::Boolean:
        return v.Bool() ? 1.0 : 0.0;
    case Value::Kind::Date:
        return static_cast<double>(v.Date().DayNumber());
    default:
        return 0.0;
    }
}

Money Field::AsMoney() const {
    const Value& v = AsValue();
    switch (v.kind()) {
    case Value::Kind::Money:
        return v.Money();
    case Value::Kind::Integer:
        return Money::FromWhole(v.Int());
    case Value::Kind::Float:
        return Money::FromDouble(v.Float());
    default:
        return Money();
    }
}

Date Field::AsDate() const {
    const Value& v = AsValue();
    if (v.kind() == Value::Kind::Date) return v.Date();
    return Date();
}

bool Field::AsBoolean() const {
    const Value& v = AsValue();
    switch (v.kind()) {
    case Value::Kind::Boolean:
        return v.Bool();
    case Value::Kind::Integer:
        return v.Int() != 0;
    default:
        return false;
    }
}

// ----- converting

[[noreturn]] static void BadValue(const Field& f, const std::string& shown, const char* what) {
    ThrowEngineError(errInvalidValue, "'" + shown + "' is not a valid " + what +
                                          " value for field '" + f.Label() + "'");
}

static std::int64_t ParseInteger(const Field& f, std::string_view text) {
    if (auto n = store::ParseInteger(text)) return *n;
    BadValue(f, std::string(text), "integer");
}

static double ParseFloat(const Field& f, std::string_view text) {
    if (auto d = ParseNumber(text)) return *d;
    BadValue(f, std::string(text), "floating point");
}

static std::size_t CharacterCount(std::string_view s) {
    std::size_t n = 0;
    for (unsigned char c : s)
        if ((c & 0xC0) != 0x80) ++n;
    return n;
}

Value Field::Coerce(const Value& v) const {
    if (v.IsNull()) return v;
    using K = Value::Kind;
    switch (type_) {
    case FieldType::String:
    case FieldType::Memo: {
        std::string s;
        switch (v.kind()) {
        case K::String:
            s = v.Str();
            break;
        case K::Integer:
            s = std::to_string(v.Int());
            break;
        case K::Float:
            s = FloatText(v.Float());
            break;
        case K::Money:
            s = MoneyText(v.Money());
            break;
        case K::Date:
            s = DateToStr(v.Date());
            break;
        case K::Boolean:
            s = v.Bool() ? "True" : "False";
            break;
        default:
            BadValue(*this, v.DebugString(), "text");
        }
        if (type_ == FieldType::String && CharacterCount(s) > static_cast<std::size_t>(size_))
            ThrowEngineError(errStringTooLong, "The value '" + s + "' is too long for field '" +
                                                   Label() + "' (at most " + std::to_string(size_) +
                                                   " characters)");
        return Value(std::move(s));
    }
    case FieldType::SmallInt:
    case FieldType::Integer:
    case FieldType::AutoInc: {
        std::int64_t n = 0;
        switch (v.kind()) {
        case K::Integer:
            n = v.Int();
            break;
        case K::Float:
            if (auto whole = WholeNumber(v.Float()))
                n = *whole;
            else
                BadValue(*this, v.DebugString(), "integer");
            break;
        case K::Boolean:
            n = v.Bool() ? 1 : 0;
            break;
        case K::String:
            n = ParseInteger(*this, v.Str());
            break;
        default:
            BadValue(*this, v.DebugString(), "integer");
        }
        std::int64_t lo = type_ == FieldType::SmallInt ? std::numeric_limits<std::int16_t>::min()
                                                       : std::numeric_limits<std::int32_t>::min();
        std::int64_t hi = type_ == FieldType::SmallInt ? std::numeric_limits<std::int16_t>::max()
                                                       : std::numeric_limits<std::int32_t>::max();
        if (n < lo || n > hi)
            ThrowEngineError(errValueOutOfRange,
                             std::to_string(n) + " is out of range for field '" + Label() + "' (" +
                                 std::to_string(lo) + " to " + std::to_string(hi) + ")");
        return Value(n);
    }
    case FieldType::Boolean:
        switch (v.kind()) {
        case K::Boolean:
            return v;
        case K::Integer:
            return Value(v.Int() != 0);
        case K::String:
            if (auto b = ParseBoolean(v.Str())) return Value(*b);
            [[fallthrough]];
        default:
            BadValue(*this, v.DebugString(), "boolean");
        }
    case FieldType::Float:
        switch (v.kind()) {
        case K::Float:
            return v;
        case K::Integer:
            return Value(static_cast<double>(v.Int()));
        case K::Money:
            return Value(v.Money().ToDouble());
        case K::String:
            return Value(ParseFloat(*this, v.Str()));
        default:
            BadValue(*this, v.DebugString(), "floating point");
        }
    case FieldType::Currency:
        switch (v.kind()) {
        case K::Money:
            return v;
        case K::Integer:
            return Value(Money::FromWhole(v.Int()));
        case K::Float:
            if (!std::isfinite(v.Float())) BadValue(*this, v.DebugString(), "currency");
            return Value(Money::FromDouble(v.Float()));
        case K::String:
            if (auto m = Money::Parse(v.Str())) return Value(*m);
            if (AmountTooLarge(v.Str()))
                ThrowEngineError(errValueOutOfRange,
                                 "'" + v.Str() + "' is larger than the largest amount field '" +
                                     Label() + "' holds (" + LargestAmountText + ")");
            [[fallthrough]];
        default:
            BadValue(*this, v.DebugString(), "currency");
        }
    case FieldType::Date:
        switch (v.kind()) {
        case K::Date:
            return v;
        case K::String: {
            if (auto d = Date::FromIso(v.Str())) return Value(*d);
            try {
                return Value(StrToDate(v.Str()));
            } catch (const Exception&) {
                BadValue(*this, v.Str(), "date");
            }
        }
        default:
            BadValue(*this, v.DebugString(), "date");
        }
    case FieldType::Graphic:
        if (v.kind() == K::Blob) return v;
        if (v.kind() == K::String) return Value(Blob{v.Str()});
        BadValue(*this, v.DebugString(), "graphic");
    }
    return v;
}

// ----- writing

void Field::SetValue(const Value& value) {
    if (!owner_.CanWriteField(*this)) {
        if (IsCalculated())
            ThrowEngineError(errDataSetState,
                             "Field '" + Label() + "' is calculated and cannot be modified");
        ThrowEngineError(errDataSetState,
                         (owner_.Name.empty() ? std::string() : owner_.Name + ": ") +
                             "Dataset not in edit or insert mode");
    }
    if (ReadOnly && !IsCalculated())
        ThrowEngineError(errDataSetState, "Field '" + Label() + "' cannot be modified");
    Value coerced = Coerce(value);
    Value old = AsValue();
    owner_.SetBufferValue(index_, coerced);
    if (OnValidate) {
        try {
            OnValidate(*this);
        } catch (...) {
            owner_.SetBufferValue(index_, std::move(old));
            throw;
        }
    }
    owner_.FieldWritten(*this);
}

void Field::SetAsString(std::string_view value) {
    SetValue(Value(std::string(value)));
}
void Field::SetAsInteger(std::int64_t value) {
    SetValue(Value(value));
}
void Field::SetAsFloat(double value) {
    SetValue(Value(value));
}
void Field::SetAsMoney(Money value) {
    SetValue(Value(value));
}
void Field::SetAsDate(Date value) {
    SetValue(Value(value));
}
void Field::SetAsBoolean(bool value) {
    SetValue(Value(value));
}
void Field::Clear() {
    SetValue(Value());
}

// ----- text for controls

std::string Field::DisplayText() const {
    if (OnGetText) return OnGetText(*this, true);
    const Value& v = AsValue();
    if (v.IsNull()) return "";
    if (!DisplayFormat.empty()) {
        switch (v.kind()) {
        case Value::Kind::Money:
            return FormatMoney(DisplayFormat, v.Money());
        case Value::Kind::Float:
            return FormatFloat(DisplayFormat, v.Float());
        case Value::Kind::Integer:
            return FormatFloat(DisplayFormat, static_cast<double>(v.Int()));
        case Value::Kind::Date:
            return FormatDate(DisplayFormat, v.Date());
        default:
            break;
        }
    }
    return AsString();
}

std::string Field::Text() const {
    if (OnGetText) return OnGetText(*this, false);
    return AsString();
}

void Field::SetText(std::string_view text) {
    if (OnSetText) {
        OnSetText(*this, text);
        return;
    }
    if (text.empty() && type_ != FieldType::String && type_ != FieldType::Memo) {
        Clear();
        return;
    }
    if (type_ == FieldType::Date) {
        // Typed dates, whatever box they come from, follow the one entry rule.
        SetValue(Value(ParseEnteredDate(text)));
        return;
    }
    SetValue(Value(std::string(text)));
}

} // namespace corvane::store
