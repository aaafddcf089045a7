#pragma once

#include <string>

namespace corvane::store::tables {

// Makes a new, empty company database in folder (created if needed): every table of the
// company, with all its indexes, in the fixed order. The file appears under its real name only
// when all tables are there, so a run that fails half way leaves no half-made company behind.
// Fails when the folder already holds a database.
void CreateCompanyDatabase(const std::string& folder);

} // namespace corvane::store::tables
