#pragma once

#include <string>
#include <vector>

namespace corvane::cli {

// Runs "create-company FOLDER", "tables FOLDER", "sql FOLDER QUERY" or "script FILE"; returns
// the exit code.
int RunCommand(const std::vector<std::string>& args);

} // namespace corvane::cli
