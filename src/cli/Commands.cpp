#include "cli/Commands.h"

#include "store/Database.h"
#include "store/Query.h"
#include "store/Session.h"
#include "store/Table.h"
#include "store/tables/CompanyDatabase.h"

#include <cstdio>
#include <iostream>

namespace corvane::cli {

using namespace corvane::store;

namespace {

void Usage() {
    std::fputs("usage: corvane-cli create-company FOLDER\n"
               "       corvane-cli tables FOLDER\n"
               "       corvane-cli sql FOLDER QUERY\n",
               stderr);
}

int PrintTables(const std::string& folder) {
    Session session;
    Database db(session);
    db.SetDirectory(folder);
    db.Open();
    std::printf("%-12s %7s %7s %9s\n", "Table", "Fields", "Indexes", "Rows");
    for (const auto& name : db.TableNames()) {
        const TableDef& def = db.TableDefinition(Database::MainSchema, name);
        Table t(db, name);
        t.Open();
        std::printf("%-12s %7zu %7zu %9lld\n", def.Name.c_str(), def.Fields.size(), def.Indexes.size(),
                    static_cast<long long>(t.RecordCount()));
    }
    return 0;
}

std::string CsvCell(const std::string& text) {
    if (text.find_first_of(",\"\n\r") == std::string::npos) return text;
    std::string out = "\"";
    for (char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

int PrintQuery(const std::string& folder, const std::string& text) {
    Session session;
    Database db(session);
    db.SetDirectory(folder);
    db.Open();
    Query q(db, text);
    q.Open(); // a statement that would write is refused: it does not open as a cursor
    std::string line;
    for (int i = 0; i < q.FieldCount(); ++i)
        line += (i ? "," : "") + CsvCell(q.Fields()[static_cast<std::size_t>(i)]->FieldName());
    std::cout << line << "\n";
    for (q.First(); !q.Eof(); q.Next()) {
        line.clear();
        for (int i = 0; i < q.FieldCount(); ++i) {
            const Field& f = *q.Fields()[static_cast<std::size_t>(i)];
            const Value& v = f.AsValue();
            std::string cell = v.kind() == Value::Kind::Date ? v.Date().ToIso() : f.AsString();
            line += (i ? "," : "") + CsvCell(cell);
        }
        std::cout << line << "\n";
    }
    return 0;
}

} // namespace

int RunCommand(const std::vector<std::string>& args) {
    if (args.size() == 2 && args[0] == "create-company") {
        tables::CreateCompanyDatabase(args[1]);
        return PrintTables(args[1]);
    }
    if (args.size() == 2 && args[0] == "tables") return PrintTables(args[1]);
    if (args.size() == 3 && args[0] == "sql") return PrintQuery(args[1], args[2]);
    Usage();
    return 2;
}

} // namespace corvane::cli
