#include "ledger/vouchers/JVImport.h"

#include "core/Exception.h"
#include "core/Text.h"
#include "store/Query.h"
#include "store/Table.h"

#include <cctype>
#include <fstream>
#include <optional>
#include <sstream>

namespace corvane::ledger {

namespace {

// The fields of one line; a quoted field may hold commas, and "" inside quotes is one quote.
std::vector<std::string> SplitFields(std::string_view line) {
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        char c = line[i];
        if (quoted) {
            if (c != '"')
                fields.back() += c;
            else if (i + 1 < line.size() && line[i + 1] == '"')
                fields.back() += line[++i];
            else
                quoted = false;
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    for (std::string& field : fields)
        field = std::string(TrimBlanks(field));
    return fields;
}

// An amount as files carry it whatever the user's locale: an optional minus, digits, and a
// point with at most four decimals. No separators of thousands: the comma divides fields.
std::optional<Money> ParseFileAmount(std::string_view text) {
    bool negative = !text.empty() && text.front() == '-';
    if (negative) text.remove_prefix(1);
    std::size_t point = text.find('.');
    std::string_view whole = text.substr(0, point);
    std::string_view fraction = point == std::string_view::npos ? "" : text.substr(point + 1);
    if (whole.empty() && fraction.empty()) return std::nullopt;
    if (whole.size() > 14 || fraction.size() > 4) return std::nullopt;
    std::int64_t units = 0;
    for (char c : whole) {
        if (!std::isdigit(static_cast<unsigned char>(c))) return std::nullopt;
        units = units * 10 + (c - '0');
    }
    std::int64_t scale = Money::Scale;
    for (char c : fraction) {
        if (!std::isdigit(static_cast<unsigned char>(c))) return std::nullopt;
        scale /= 10;
        units = units * 10 + (c - '0');
    }
    units *= scale;
    return Money::FromUnits(negative ? -units : units);
}

bool HasDigit(std::string_view text) {
    for (char c : text)
        if (std::isdigit(static_cast<unsigned char>(c))) return true;
    return false;
}

std::string LineLabel(int line) {
    return "Line " + std::to_string(line) + " of the import file";
}

// The scratch table's definition: the file's columns, numbers as text.
store::TableDef ImportTableDef(std::string name) {
    using store::FieldType;
    return store::TableDef{std::move(name),
                           {
                               {"Line", FieldType::Integer, 0, true},
                               {"GLAccount", FieldType::String, 30},
                               {"GLAmount", FieldType::Currency},
                               {"SubAccount1", FieldType::String, 30},
                               {"SubAccount2", FieldType::String, 30},
                               {"SubAccount3", FieldType::String, 30},
                           },
                           {{"", {"Line"}, store::ixPrimary | store::ixUnique}}};
}

// Drops the scratch table however the join ends.
class ScratchTable {
public:
    explicit ScratchTable(store::Database& db) : db_(db) {
        static int made = 0;
        do
            name_ = "JVImport" + std::to_string(++made);
        while (db_.TableExists(store::Database::MemorySchema, name_));
        db_.CreateTable(ImportTableDef(name_), store::Database::MemorySchema);
    }
    ~ScratchTable() {
        try {
            db_.DropTable(store::Database::MemorySchema, name_);
        } catch (...) {
        }
    }
    const std::string& Name() const { return name_; }

private:
    store::Database& db_;
    std::string name_;
};

store::Value TextOrNull(const std::string& text) {
    return text.empty() ? store::Value() : store::Value(text);
}

} // namespace

std::vector<JVImportRow> ParseJVImport(std::string_view text) {
    std::vector<JVImportRow> rows;
    int lineNo = 0;
    bool first = true;
    while (!text.empty()) {
        std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        ++lineNo;
        std::vector<std::string> fields = SplitFields(line);
        bool blank = true;
        for (const std::string& field : fields)
            blank = blank && field.empty();
        if (blank) continue;
        bool header = first && fields.size() >= 2 && !HasDigit(fields[1]);
        first = false;
        if (header) continue;
        if (fields.size() < 2 || fields[0].empty() || fields[1].empty())
            throw Exception(LineLabel(lineNo) +
                            " must hold at least an account no. and an amount.\n\nNothing "
                            "has been imported.");
        if (fields.size() > 5)
            throw Exception(LineLabel(lineNo) +
                            " has more than five values (account no., amount and three "
                            "subaccount no.).\n\nNothing has been imported.");
        std::optional<Money> amount = ParseFileAmount(fields[1]);
        if (!amount)
            throw Exception(LineLabel(lineNo) + ": '" + fields[1] +
                            "' is not an amount. Amounts are written like 1234.56 or -10.00."
                            "\n\nNothing has been imported.");
        JVImportRow row;
        row.Line = lineNo;
        row.Account = fields[0];
        row.Amount = *amount;
        for (std::size_t level = 0; level < 3 && level + 2 < fields.size(); ++level)
            row.SubAccounts[level] = fields[level + 2];
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<JVImportRow> ReadJVImportFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw Exception("The file '" + path.string() + "' cannot be opened.");
    std::ostringstream text;
    text << in.rdbuf();
    return ParseJVImport(text.str());
}

std::vector<JVImportMatch> MatchJVImport(store::Database& db,
                                         const std::vector<JVImportRow>& rows) {
    ScratchTable scratch(db);
    {
        store::Table table(db, scratch.Name());
        table.SetDatabaseName(std::string(store::Database::MemorySchema));
        table.Open();
        for (const JVImportRow& row : rows) {
            table.Append();
            table.FieldByName("Line").SetAsInteger(row.Line);
            table.FieldByName("GLAccount").SetValue(TextOrNull(row.Account));
            table.FieldByName("GLAmount").SetAsMoney(row.Amount);
            for (int level = 0; level < 3; ++level)
                table.FieldByName("SubAccount" + std::to_string(level + 1))
                    .SetValue(TextOrNull(row.SubAccounts[level]));
            table.Post();
        }
    }
    // The table name is the program's own; nothing the user typed goes into the statement.
    store::Query join(db, "SELECT i.Line, g.GLAccountID, s1.SubAccountID AS SubAccount1ID, "
                          "s2.SubAccountID AS SubAccount2ID, s3.SubAccountID AS SubAccount3ID "
                          "FROM \"\\Memory\\" +
                              scratch.Name() +
                              "\" i LEFT OUTER JOIN GLAccnt g ON g.GLAccount = i.GLAccount "
                              "LEFT OUTER JOIN GLAcSub1 s1 ON s1.SubAccount = i.SubAccount1 "
                              "LEFT OUTER JOIN GLAcSub2 s2 ON s2.SubAccount = i.SubAccount2 "
                              "LEFT OUTER JOIN GLAcSub3 s3 ON s3.SubAccount = i.SubAccount3 "
                              "ORDER BY i.Line");
    join.Open();
    std::vector<JVImportMatch> matches;
    std::size_t next = 0;
    for (; !join.Eof(); join.Next(), ++next) {
        JVImportMatch match;
        match.Row = rows.at(next);
        match.GLAccountID = join.FieldByName("GLAccountID").AsValue();
        for (int level = 0; level < 3; ++level)
            match.SubAccountIDs[level] =
                join.FieldByName("SubAccount" + std::to_string(level + 1) + "ID").AsValue();
        matches.push_back(std::move(match));
    }
    join.Close();
    return matches;
}

std::string MissingNumberQuestion(std::string_view kind, std::string_view number) {
    return std::string(kind) + " '" + std::string(number) +
           "' does not exist.\nData for this account cannot be imported.\n\nDo you want to "
           "continue?";
}

} // namespace corvane::ledger
