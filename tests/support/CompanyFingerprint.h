#pragma once

#include "store/Database.h"
#include "store/Session.h"
#include "store/sql/Connection.h"

#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <vector>

namespace corvane::testing {

// Every row of every table of the company, in storage order, as text: two companies with the
// same fingerprint hold the same data, so a crash test can tell "exactly before" and "exactly
// after" a run from anything in between.
inline std::string CompanyFingerprint(store::Database& db) {
    std::vector<std::string> tables;
    {
        store::Statement s(db.Conn(), "SELECT name FROM main.sqlite_schema WHERE type = "
                                      "'table' AND name NOT LIKE 'sqlite_%' ORDER BY name");
        while (s.Step())
            tables.push_back(s.ColumnNatural(0).Str());
    }
    std::string text;
    for (const auto& table : tables) {
        text += "[" + table + "]\n";
        store::Statement s(db.Conn(), "SELECT * FROM main.\"" + table + "\" ORDER BY rowid");
        while (s.Step()) {
            for (int c = 0; c < s.ColumnCount(); ++c) {
                const unsigned char* v = sqlite3_column_text(s.Handle(), c);
                text += v ? reinterpret_cast<const char*>(v) : "<null>";
                text += '|';
            }
            text += '\n';
        }
    }
    return text;
}

inline std::string CompanyFingerprint(const std::string& folder) {
    store::Session session;
    store::Database db(session);
    db.SetDirectory(folder);
    db.Open();
    return CompanyFingerprint(db);
}

// Copies the files of a closed company into a new folder, to keep it as a pattern.
inline void CopyCompanyFiles(const std::string& from, const std::string& to) {
    std::filesystem::create_directory(to);
    for (const auto& entry : std::filesystem::directory_iterator(from))
        if (entry.is_regular_file())
            std::filesystem::copy_file(entry.path(), to + "/" + entry.path().filename().string());
}

} // namespace corvane::testing
