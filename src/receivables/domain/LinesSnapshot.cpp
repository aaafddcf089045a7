#include "receivables/domain/LinesSnapshot.h"

#include "store/BulkWriter.h"
#include "store/Database.h"
#include "store/Query.h"

namespace corvane::receivables {

void LinesSnapshot::Take(store::Database& db, const std::string& table, const std::string& field,
                         const store::Value& id) {
    if (taken_) return;
    // The table and field are the program's own names, never typed text.
    store::Query q(db, "SELECT * FROM " + table + " WHERE " + field + " = :ID");
    q.ParamByName("ID").SetValue(id);
    q.Open();
    fields_.clear();
    for (const auto& f : q.Fields())
        fields_.push_back(f->FieldName());
    rows_.clear();
    for (q.First(); !q.Eof(); q.Next()) {
        std::vector<store::Value> row;
        row.reserve(fields_.size());
        for (const auto& f : q.Fields())
            row.push_back(f->AsValue());
        rows_.push_back(std::move(row));
    }
    table_ = table;
    field_ = field;
    id_ = id;
    taken_ = true;
}

void LinesSnapshot::Restore(store::Database& db) {
    if (!taken_) return;
    store::Transaction restore(db, {table_});
    store::DeleteRowsWhere(db, table_, field_, id_);
    if (!rows_.empty()) {
        store::BulkInsert insert(db, table_, fields_);
        for (const auto& row : rows_)
            insert.Add(row);
    }
    restore.Commit();
    Forget();
}

void LinesSnapshot::Forget() {
    taken_ = false;
    rows_.clear();
}

} // namespace corvane::receivables
