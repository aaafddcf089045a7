#include "banking/domain/RecordChecks.h"

#include "banking/domain/RowUse.h"
#include "core/Text.h"
#include "store/DataSet.h"

namespace corvane::banking {

bool IsBlank(const store::Field& field) {
    return field.IsNull() || TrimBlanks(field.AsString()).empty();
}

bool NoId(const store::Field& field) {
    return field.IsNull() || field.AsInteger() == 0;
}

Verdict FirstMissing(store::DataSet& record, std::initializer_list<RequiredField> fields) {
    for (const RequiredField& required : fields) {
        const store::Field& field = record.FieldByName(required.Field);
        const bool empty = required.Is == RequiredField::Text ? IsBlank(field)
                           : required.Is == RequiredField::Id ? NoId(field)
                                                              : field.IsNull();
        if (empty) return MissingValue(required.Field, required.Label);
    }
    return std::nullopt;
}

bool RowExists(store::Database& db, std::string_view table, std::string_view keyField,
               std::int64_t id) {
    return AnyRowHolds(db, table, keyField, id);
}

} // namespace corvane::banking
