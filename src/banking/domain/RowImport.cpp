#include "banking/domain/RowImport.h"

#include "core/Exception.h"
#include "core/Text.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Table.h"

#include <cctype>
#include <fstream>
#include <set>
#include <sstream>

namespace corvane::banking {

namespace {

std::vector<std::string> SplitValues(std::string_view line) {
    std::vector<std::string> values(1);
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (quoted) {
            if (c != '"')
                values.back() += c;
            else if (i + 1 < line.size() && line[i + 1] == '"')
                values.back() += line[++i];
            else
                quoted = false;
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            values.emplace_back();
        } else {
            values.back() += c;
        }
    }
    for (std::string& value : values)
        value = std::string(TrimBlanks(value));
    return values;
}

std::string UpperCase(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

} // namespace

ImportFile ParseImportFile(std::string_view text) {
    ImportFile file;
    int line = 0;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view current = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
        if (!current.empty() && current.back() == '\r') current.remove_suffix(1);
        ++line;
        if (TrimBlanks(current).empty()) continue;
        std::vector<std::string> values = SplitValues(current);
        if (file.Header.empty()) {
            file.Header = std::move(values);
            continue;
        }
        file.Rows.push_back(std::move(values));
        file.Lines.push_back(line);
    }
    if (file.Header.empty()) throw Exception("The file is empty: there is nothing to import.");
    return file;
}

ImportFile ReadImportFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw Exception("The file '" + path.string() + "' cannot be opened.");
    std::ostringstream text;
    text << in.rdbuf();
    return ParseImportFile(text.str());
}

std::string CheckImportHeader(store::Database& db, const ImportTarget& target,
                              const ImportFile& file) {
    const store::TableDef& def = db.TableDefinition(store::Database::MainSchema, target.Table);
    std::set<std::string> seen;
    for (const std::string& name : file.Header) {
        if (name.empty()) return "The first line names no field for one of its columns.";
        if (!def.FindField(name))
            return "'" + name + "' is not a field of the " + target.Label + " table.";
        if (!seen.insert(UpperCase(name)).second)
            return "The field '" + name + "' is named twice in the first line.";
    }
    return {};
}

ImportOutcome ImportRows(store::Database& db, const ImportTarget& target, const ImportFile& file,
                         bool skipRefused) {
    if (std::string fault = CheckImportHeader(db, target, file); !fault.empty())
        throw Exception(fault);
    ImportOutcome outcome;
    store::Table table(db, target.Table);
    table.Open();
    table.OnNewRecord = target.NewRecord;
    // One transaction for the whole file; the number draws join it, so that another workstation
    // importing at the same time waits for this one's numbers to be committed.
    store::Transaction transaction(db, target.TransactionTables);
    for (std::size_t r = 0; r < file.Rows.size(); ++r) {
        const std::vector<std::string>& values = file.Rows[r];
        std::string refused;
        try {
            if (values.size() > file.Header.size())
                throw Exception("The row has more values than the first line has fields.");
            table.Insert();
            for (std::size_t c = 0; c < values.size(); ++c)
                if (!values[c].empty()) table.FieldByName(file.Header[c]).SetText(values[c]);
            if (Verdict verdict = target.Check(table)) throw Exception(verdict->Message);
            table.Post();
            ++outcome.Imported;
        } catch (const store::EngineError& e) {
            refused = e.ErrorCode() == store::errKeyViolation ? target.KeyViolationMessage
                                                              : std::string(e.what());
        } catch (const Exception& e) {
            refused = e.what();
        }
        if (refused.empty()) continue;
        if (table.State() != store::DataSetState::Browse) table.Cancel();
        outcome.Refused.push_back({static_cast<int>(r + 1), refused});
        if (!skipRefused) {
            transaction.Rollback();
            outcome.Imported = 0;
            return outcome;
        }
    }
    transaction.Commit();
    outcome.Committed = true;
    return outcome;
}

} // namespace corvane::banking
