#pragma once

#include <string>
#include <vector>

namespace corvane::cli {

// Runs one command line of corvane-cli and returns its exit code: "create-company FOLDER",
// "tables FOLDER", "sql FOLDER QUERY", "script FILE", or one of the ledger's commands on a
// company folder, "post FOLDER", "check FOLDER" and "export-ledger FOLDER" (LedgerCommands.h),
// and "report ..." (ReportCommand.h).
// Anything else prints the usage and returns 2. A company that cannot be opened raises.
int RunCommand(const std::vector<std::string>& args);

} // namespace corvane::cli
