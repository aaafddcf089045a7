#include "ledger/accounts/NextId.h"

#include "store/Query.h"

namespace corvane::ledger {

std::int64_t NextId(store::Database& db, const std::string& table, const std::string& field) {
    store::Query query(db);
    query.SetSQL("SELECT max(" + field + ") AS MaxID FROM " + table);
    query.Open();
    return query.FieldByName("MaxID").AsInteger() + 1;
}

} // namespace corvane::ledger
