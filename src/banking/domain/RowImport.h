#pragma once

#include "core/Refusal.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::banking {

// A data file to import: a header line naming fields of the table, then one row per record.
// Values are separated by commas; a value in double quotes may hold commas, and "" inside it is
// one quote. Blank lines are skipped.
struct ImportFile {
    std::vector<std::string> Header;
    std::vector<std::vector<std::string>> Rows;
    // The line of the file each row was read from, counting from 1 with the header.
    std::vector<int> Lines;
};

ImportFile ParseImportFile(std::string_view text);
ImportFile ReadImportFile(const std::filesystem::path& path);

// What a module's save does with a record, for the rows of a file: the table, the tables its
// save writes, the new record's number draw and defaults, its checks in order, and the message a
// duplicate of a unique index gets.
struct ImportTarget {
    std::string Table;
    std::string Label; // "Customer", as messages name the table
    std::vector<std::string> TransactionTables;
    std::function<void(store::DataSet&)> NewRecord;
    std::function<Verdict(store::DataSet&)> Check;
    std::string KeyViolationMessage;
};

struct ImportRefusal {
    int Row = 0; // the row of data, from 1
    std::string Message;
};

struct ImportOutcome {
    int Imported = 0;
    std::vector<ImportRefusal> Refused;
    // False when a refused row stopped the import and nothing was written.
    bool Committed = false;
};

// Header names that are no field of the target's table, or a field named twice: the sentence
// that refuses the file; empty when the header is good.
std::string CheckImportHeader(store::Database& db, const ImportTarget& target,
                              const ImportFile& file);

// Saves every row as the module saves a record typed on its form: a new record with its drawn
// number and defaults, the file's values over them, the checks, the post. All rows are one
// transaction: the first refused row rolls back everything and is the one reported, unless
// skipRefused, when the refused rows are left out, each reported, and the rest is saved.
ImportOutcome ImportRows(store::Database& db, const ImportTarget& target, const ImportFile& file,
                         bool skipRefused);

} // namespace corvane::banking
