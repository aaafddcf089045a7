#include "store/sql/TypedSql.h"

#include <algorithm>

namespace corvane::store::sql {

std::string QuoteName(std::string_view name) {
    std::string out = "\"";
    for (char c : name) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

std::string QuoteString(std::string_view text) {
    std::string out = "'";
    for (char c : text) {
        if (c == '\'') out += '\'';
        out += c;
    }
    return out + "'";
}

bool IsMoney(const TypedSql& v) {
    return v.Known && v.Type == FieldType::Currency;
}

bool IsTextValue(const TypedSql& v) {
    return v.Known && IsTextType(v.Type);
}

bool IsDateValue(const TypedSql& v) {
    return v.Known && v.Type == FieldType::Date;
}

bool IsScalableToMoney(const TypedSql& v) {
    if (v.From == Origin::Null || IsMoney(v)) return false;
    if (v.From == Origin::Parameter || v.From == Origin::Number || !v.Known) return true;
    return IsIntegerType(v.Type) || v.Type == FieldType::Float || v.Type == FieldType::Boolean;
}

std::string MoneyLiteralText(std::string_view literal) {
    if (literal.find_first_of("eE") != std::string_view::npos) return {};
    std::string sign;
    if (!literal.empty() && (literal[0] == '-' || literal[0] == '+')) {
        if (literal[0] == '-') sign = "-";
        literal.remove_prefix(1);
    }
    auto dot = literal.find('.');
    std::string whole(literal.substr(0, dot));
    std::string fraction =
        dot == std::string_view::npos ? "" : std::string(literal.substr(dot + 1));
    fraction.resize(std::max<std::size_t>(fraction.size(), 4), '0');
    whole += fraction.substr(0, 4);
    std::string rest = fraction.substr(4);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));
    while (!rest.empty() && rest.back() == '0')
        rest.pop_back();
    std::string out = whole + (rest.empty() ? "" : "." + rest);
    return out == "0" ? out : sign + out;
}

void ScaleToMoney(TypedSql& v, std::vector<ParamSlot>& params) {
    if (v.From == Origin::Null) return;
    if (v.From == Origin::Parameter) {
        params[static_cast<std::size_t>(v.ParamSlot)].MoneyScaled = true;
    } else if (std::string text;
               v.From == Origin::Number && !(text = MoneyLiteralText(v.Sql)).empty()) {
        v.Sql = text;
    } else {
        v.Sql = "(" + v.Sql + " * 10000)";
        v.From = Origin::Computed;
    }
    v.Type = FieldType::Currency;
    v.Size = 0;
    v.Known = true;
}

void HarmonizeMoney(const std::vector<TypedSql*>& operands, std::vector<ParamSlot>& params) {
    bool money = std::any_of(operands.begin(), operands.end(),
                             [](const TypedSql* v) { return IsMoney(*v); });
    if (!money) return;
    for (TypedSql* v : operands)
        if (IsScalableToMoney(*v)) ScaleToMoney(*v, params);
}

namespace {

bool IsLiteral(const TypedSql& v) {
    return v.From == Origin::Number || v.From == Origin::Text;
}
bool IsNullOrParameter(const TypedSql& v) {
    return v.From == Origin::Null || v.From == Origin::Parameter;
}

} // namespace

TypedSql UnifyAlternatives(const std::vector<TypedSql*>& values, std::vector<ParamSlot>& params) {
    TypedSql result;
    result.Known = false;
    const TypedSql* primary = nullptr;
    for (const TypedSql* v : values)
        if (!primary && !IsNullOrParameter(*v) && !IsLiteral(*v)) primary = v;
    for (const TypedSql* v : values)
        if (!primary && IsLiteral(*v)) primary = v;
    if (!primary) {
        // Only nulls and parameters: a parameter's type decides, at run time.
        result.Type = FieldType::Float;
        return result;
    }
    HarmonizeMoney(values, params);
    result.Type = primary->Type;
    result.Known = primary->Known;
    result.Size = primary->Size;
    if (IsIntegerType(result.Type)) result.Type = FieldType::Integer;
    bool anyMoney = false, anyFloat = false, anyMemo = false;
    for (const TypedSql* v : values) {
        if (IsNullOrParameter(*v) || !v->Known) continue;
        anyMoney = anyMoney || v->Type == FieldType::Currency;
        anyFloat = anyFloat || v->Type == FieldType::Float;
        anyMemo = anyMemo || v->Type == FieldType::Memo;
        if (IsTextType(v->Type)) result.Size = std::max(result.Size, v->Size);
    }
    if (anyMoney) {
        result.Type = FieldType::Currency;
        result.Known = true;
    } else if (anyFloat && IsNumericType(result.Type)) {
        result.Type = FieldType::Float;
    } else if (anyMemo && result.Type == FieldType::String) {
        result.Type = FieldType::Memo;
    }
    if (!IsTextType(result.Type)) result.Size = 0;
    return result;
}

std::string MoneyAsText(const TypedSql& v) {
    return "cv_money_text(" + v.Sql + ")";
}

void ConvertForColumn(TypedSql& v, FieldType target, std::vector<ParamSlot>& params) {
    if (v.From == Origin::Null) return;
    if (target == FieldType::Currency) {
        if (IsTextValue(v)) {
            v.Sql = "cv_money_parse(" + v.Sql + ")";
        } else {
            if (IsScalableToMoney(v)) ScaleToMoney(v, params);
            bool whole = v.From == Origin::Column || v.From == Origin::Parameter ||
                         (v.From == Origin::Number && v.Sql.find('.') == std::string::npos);
            // Products, quotients and scaled floats may fall between two ten-thousandths.
            if (!whole) v.Sql = "cv_units(" + v.Sql + ")";
        }
    } else if (IsMoney(v)) {
        if (target == FieldType::Float)
            v.Sql = "(" + v.Sql + " / 10000.0)";
        else if (IsIntegerType(target))
            v.Sql = "CAST(" + v.Sql + " / 10000 AS INTEGER)";
        else if (IsTextType(target))
            v.Sql = MoneyAsText(v);
        else
            return;
    } else {
        return;
    }
    v.Type = target;
    v.From = Origin::Computed;
}

} // namespace corvane::store::sql
