#include "cli/Commands.h"

#include "cli/CommandCompany.h"
#include "cli/LedgerCommands.h"
#include "cli/NewCompanyCommand.h"
#include "cli/QueryCsv.h"
#include "cli/ReportCommand.h"
#include "cli/ScriptRunner.h"

#include "store/Database.h"
#include "store/Session.h"
#include "store/Table.h"
#include "store/tables/CompanyDatabase.h"

#include <cstddef>
#include <cstdio>
#include <iostream>
#include <optional>

namespace corvane::cli {

using namespace corvane::store;

namespace {

void Usage() {
    std::fputs("usage: corvane-cli create-company FOLDER\n"
               "       corvane-cli new-company FOLDER [--name N] [--year Y] [--currency C]\n"
               "                               [--bank B] [--tax NAME:RATE]\n"
               "       corvane-cli new-company FOLDER --sample [--size VOUCHERS]\n"
               "       corvane-cli tables FOLDER\n"
               "       corvane-cli sql FOLDER QUERY\n"
               "       corvane-cli script FILE\n"
               "       corvane-cli post FOLDER\n"
               "       corvane-cli check FOLDER\n"
               "       corvane-cli export-ledger FOLDER\n"
               "       corvane-cli report COMPANY NAME [--OPTION VALUE]...\n"
               "                          (--pdf FILE | --text FILE; FILE - is standard output)\n"
               "       corvane-cli report --list\n"
               "       corvane-cli --locale NAME COMMAND...\n"
               "A company with users needs --user NAME on every command that opens it; the\n"
               "password comes from CORVANE_PASSWORD or is asked at the terminal.\n",
               stderr);
}

int PrintTables(const std::string& folder) {
    Session session;
    Database db(session);
    OpenForCommand(db, folder, "Security", "Security");
    std::printf("%-12s %7s %7s %9s\n", "Table", "Fields", "Indexes", "Rows");
    for (const auto& name : db.TableNames()) {
        const TableDef& def = db.TableDefinition(Database::MainSchema, name);
        Table t(db, name);
        t.Open();
        std::printf("%-12s %7zu %7zu %9lld\n", def.Name.c_str(), def.Fields.size(),
                    def.Indexes.size(), static_cast<long long>(t.RecordCount()));
    }
    return 0;
}

int PrintQuery(const std::string& folder, const std::string& text) {
    Session session;
    Database db(session);
    OpenForCommand(db, folder, "Security", "Security");
    for (const auto& line : QueryCsvLines(db, text))
        std::cout << line << "\n";
    return 0;
}

// Takes --user NAME out of the words of a command on a company; false when it is malformed.
bool TakeUser(std::vector<std::string>& args) {
    std::optional<std::string> user;
    for (std::size_t i = 0; i < args.size();) {
        if (args[i] != "--user") {
            ++i;
            continue;
        }
        if (user || i + 1 >= args.size()) return false;
        user = args[i + 1];
        args.erase(args.begin() + static_cast<std::ptrdiff_t>(i),
                   args.begin() + static_cast<std::ptrdiff_t>(i + 2));
    }
    SetCommandUser(user);
    return true;
}

} // namespace

int RunCommand(const std::vector<std::string>& words) {
    std::vector<std::string> args = words;
    if (!TakeUser(args)) {
        Usage();
        return 2;
    }
    if (args.size() == 2 && args[0] == "create-company") {
        tables::CreateCompanyDatabase(args[1]);
        return PrintTables(args[1]);
    }
    if (args.size() >= 2 && args[0] == "new-company")
        return NewCompany({args.begin() + 1, args.end()}, std::cout, std::cerr);
    if (args.size() == 2 && args[0] == "tables") return PrintTables(args[1]);
    if (args.size() == 3 && args[0] == "sql") return PrintQuery(args[1], args[2]);
    if (args.size() == 2 && args[0] == "script") return RunScriptFile(args[1], std::cout);
    if (args.size() == 2 && args[0] == "post") return PostVouchers(args[1], std::cout, std::cerr);
    if (args.size() == 2 && args[0] == "check") return CheckLedger(args[1], std::cout);
    if (args.size() == 2 && args[0] == "export-ledger") return ExportLedger(args[1], std::cout);
    if (!args.empty() && args[0] == "report")
        return RunReport({args.begin() + 1, args.end()}, std::cout, std::cerr);
    Usage();
    return 2;
}

} // namespace corvane::cli
