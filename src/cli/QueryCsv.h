#pragma once

#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::cli {

// A cell as CSV writes it: quoted only when it holds a comma, a quote or a line break.
std::string CsvCell(const std::string& text);
// Cells joined into one CSV line.
std::string CsvLine(const std::vector<std::string>& cells);

// The result of a read-only query as CSV lines, the header of field names first. Dates read as
// ISO text so that the lines do not depend on the display format. A statement that would write
// is refused by the store: it does not open as a cursor.
std::vector<std::string> QueryCsvLines(store::Database& db, const std::string& sql);

} // namespace corvane::cli
