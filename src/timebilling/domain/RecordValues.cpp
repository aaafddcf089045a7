#include "timebilling/domain/RecordValues.h"

#include "core/Text.h"
#include "store/Query.h"

namespace corvane::timebilling {

bool Blank(const store::Field& field) {
    return field.IsNull() || TrimBlanks(field.AsString()).empty();
}

bool RowExists(store::Database& db, const std::string& table, const std::string& keyField,
               const store::Value& value) {
    if (value.IsNull()) return false;
    store::Query q(db, "SELECT COUNT(*) AS n FROM " + table + " WHERE " + keyField + " = :Key");
    q.ParamByName("Key").SetValue(value);
    q.Open();
    return q.FieldByName("n").AsInteger() > 0;
}

} // namespace corvane::timebilling
