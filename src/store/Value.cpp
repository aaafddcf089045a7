#include "store/Value.h"

#include <cstdio>

namespace corvane::store {

std::string Value::DebugString() const {
    switch (kind()) {
    case Kind::Null:
        return "null";
    case Kind::Integer:
        return std::to_string(Int());
    case Kind::Float: {
        char buf[64];
        std::snprintf(buf, sizeof buf, "%.15g", Float());
        return buf;
    }
    case Kind::Money:
        return Money().ToString();
    case Kind::String:
        return "'" + Str() + "'";
    case Kind::Date:
        return Date().ToIso();
    case Kind::Boolean:
        return Bool() ? "true" : "false";
    case Kind::Blob:
        return "<blob " + std::to_string(BlobValue().Bytes.size()) + " bytes>";
    }
    return "";
}

} // namespace corvane::store
