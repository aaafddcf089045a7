#pragma once

#include <string>
#include <vector>

namespace corvane::cli {

// Runs "create-company FOLDER", "tables FOLDER" or "sql FOLDER QUERY"; returns the exit code.
int RunCommand(const std::vector<std::string>& args);

} // namespace corvane::cli
