#include "company/sample/RowWriter.h"

#include "store/Database.h"
#include "store/Schema.h"
#include "store/sql/Connection.h"

#include <stdexcept>

namespace corvane::company {

RowWriter::RowWriter(store::Database& db, const std::string& table,
                     std::vector<std::string> columns)
    : db_(db), columns_(columns.size()) {
    // Checks the names against the table's definition, so a misspelt column fails at once.
    const store::TableDef& def = db.TableDefinition(store::Database::MainSchema, table);
    std::string names;
    std::string marks;
    for (const auto& column : columns) {
        if (!def.FindField(column))
            throw std::logic_error("Table " + table + " has no field " + column);
        names += (names.empty() ? "" : ", ") + store::schema::QuoteIdent(column);
        marks += marks.empty() ? "?" : ", ?";
    }
    sql_ = "INSERT INTO main." + store::schema::QuoteIdent(table) + " (" + names + ") VALUES (" +
           marks + ")";
}

void RowWriter::Add(const std::vector<store::Value>& values) {
    if (values.size() != columns_) throw std::logic_error("RowWriter: wrong number of values");
    store::Statement& s = db_.Conn().Cached(sql_);
    store::StatementRun run(s);
    s.BindAll(values);
    s.Step();
}

} // namespace corvane::company
