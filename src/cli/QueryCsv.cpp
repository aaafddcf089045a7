#include "cli/QueryCsv.h"

#include "store/Database.h"
#include "store/Query.h"

namespace corvane::cli {

using namespace corvane::store;

std::string CsvCell(const std::string& text) {
    if (text.find_first_of(",\"\n\r") == std::string::npos) return text;
    std::string out = "\"";
    for (char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

std::string CsvLine(const std::vector<std::string>& cells) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i)
        line += (i ? "," : "") + CsvCell(cells[i]);
    return line;
}

std::vector<std::string> QueryCsvLines(Database& db, const std::string& sql) {
    Query q(db, sql);
    q.Open();
    std::vector<std::string> lines;
    std::vector<std::string> cells;
    for (const auto& f : q.Fields())
        cells.push_back(f->FieldName());
    lines.push_back(CsvLine(cells));
    for (q.First(); !q.Eof(); q.Next()) {
        cells.clear();
        for (const auto& f : q.Fields()) {
            const Value& v = f->AsValue();
            cells.push_back(v.kind() == Value::Kind::Date ? v.Date().ToIso() : f->AsString());
        }
        lines.push_back(CsvLine(cells));
    }
    return lines;
}

} // namespace corvane::cli
