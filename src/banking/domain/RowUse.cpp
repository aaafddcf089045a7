#include "banking/domain/RowUse.h"

#include "store/Query.h"

namespace corvane::banking {

bool AnyRowHolds(store::Database& db, std::string_view table, std::string_view field,
                 std::int64_t id) {
    store::Query query(db);
    query.SetSQL("SELECT TOP 1 " + std::string(field) + " FROM " + std::string(table) + " WHERE " +
                 std::string(field) + " = :ID");
    query.ParamByName("ID").SetAsInteger(id);
    query.Open();
    return !query.IsEmpty();
}

std::string FirstUse(store::Database& db, std::span<const RowUse> uses, std::int64_t id) {
    for (const RowUse& use : uses)
        if (AnyRowHolds(db, use.Table, use.Field, id)) return std::string(use.Reason);
    return {};
}

} // namespace corvane::banking
