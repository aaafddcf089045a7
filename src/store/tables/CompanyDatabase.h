#pragma once

#include <string>

namespace corvane::store::tables {

// Makes a new, empty company database in folder (created if needed): every table of the
// company, with all its indexes, in the fixed order. The file appears under its real name only
// when all tables are there, so a run that fails half way leaves no half-made company behind.
// Fails when the folder already holds a database.
//
// The folder and its files are the user's own (0700 and 0600) unless shared is asked for: then
// the user's group may read and write them too (0770 and 0660), so that several users of one
// group can work in the company. Files made later (the lock file, the journal) follow the mode
// of the folder.
// A folder marked shared beforehand (MarkFolderShared) makes a shared company too.
void CreateCompanyDatabase(const std::string& folder, bool shared = false);

// Opens the folder to the user's group before the company is made in it: 2770, the group bit
// set so that every file made in it later belongs to the folder's group.
void MarkFolderShared(const std::string& folder);

} // namespace corvane::store::tables
