#include "reports/engine/ValueText.h"

#include "core/DateEntry.h"
#include "core/DisplayFormat.h"

#include <cstdio>

namespace corvane::reports {

using Kind = store::Value::Kind;

std::string FormatReportValue(const store::Value& value, const std::string& mask) {
    switch (value.kind()) {
    case Kind::Null:
        return "";
    case Kind::Money:
        return FormatMoney(mask.empty() ? "#,##0.00" : mask, value.Money());
    case Kind::Integer:
        if (!mask.empty()) return FormatFloat(mask, static_cast<double>(value.Int()));
        return std::to_string(value.Int());
    case Kind::Float: {
        if (!mask.empty()) return FormatFloat(mask, value.Float());
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%.15g", value.Float());
        return buffer;
    }
    case Kind::Date:
        return mask.empty() ? DateToStr(value.Date()) : FormatDate(mask, value.Date());
    case Kind::Boolean:
        return value.Bool() ? "True" : "False";
    case Kind::String:
        return value.Str();
    case Kind::Blob:
        return "";
    }
    return "";
}

} // namespace corvane::reports
