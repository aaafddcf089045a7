#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::store {

class Database;

// The checks and mending of a table, run by the pack and repair commands and when a company
// opens on a damaged table. Repair and pack need the table exclusively: they fail with 11013
// while any other cursor of any process has it open.

// The problems found in a table and its indexes; empty when it is sound.
std::vector<std::string> VerifyTable(Database& db, std::string_view table);

struct RepairResult {
    bool WasDamaged = false;
    long long RowsKept = 0;
    long long RowsLost = 0; // at most this many rows could not be read back
};

// Rebuilds the table's indexes from its rows; when rows themselves cannot be read, the table is
// made anew from every row that can be read, and the rest is counted as lost.
RepairResult RepairTable(Database& db, std::string_view table);

// Re-indexes the table, and compacts the company file when no other process has it open
// (compacting renumbers rows, which another process's cursors would not survive). Returns
// whether the file was compacted.
bool PackTable(Database& db, std::string_view table);

} // namespace corvane::store
