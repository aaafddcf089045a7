#pragma once

#include "store/TableDef.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::store {

class Connection;

// How table definitions become SQLite tables and indexes, and how they are read back.
// Each field is a column declared with its stored type name; each index an SQLite index named
// "<Table>@<Index>" ("<Table>@" for the primary one) with NOCASE and DESC per field.
namespace schema {

std::string QuoteIdent(std::string_view name);
std::string StoredIndexName(std::string_view table, std::string_view index);
// SQL for one column term in an index's order: "\"Name\" COLLATE NOCASE".
std::string IndexColumnTerm(const IndexDef& index, std::string_view field);

std::vector<std::string> CreateTableStatements(const TableDef& def, std::string_view schemaName);
std::string CreateIndexStatement(const TableDef& def, const IndexDef& index,
                                 std::string_view schemaName);

// Reads a table's definition from the database; empty when the table does not exist.
std::optional<TableDef> ReadTableDef(Connection& conn, std::string_view schemaName,
                                     std::string_view table);
std::vector<std::string> TableNames(Connection& conn, std::string_view schemaName);

// The store's own bookkeeping table of auto-increment counters, one per schema.
inline constexpr std::string_view AutoIncTable = "CorvaneAutoInc";
std::string CreateAutoIncTableStatement(std::string_view schemaName);

} // namespace schema
} // namespace corvane::store
