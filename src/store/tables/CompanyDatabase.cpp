#include "store/tables/CompanyDatabase.h"

#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Schema.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyTables.h"

#include <filesystem>

namespace corvane::store::tables {

namespace fs = std::filesystem;

namespace {

constexpr fs::perms SharedFolder = fs::perms::owner_all | fs::perms::group_all | fs::perms::set_gid;

bool FolderMarkedShared(const std::string& folder) {
    std::error_code ec;
    const fs::perms p = fs::status(folder, ec).permissions();
    return !ec && (p & SharedFolder) == SharedFolder;
}

} // namespace

void MarkFolderShared(const std::string& folder) {
    std::error_code ec;
    fs::permissions(folder, SharedFolder, fs::perm_options::replace, ec);
    if (ec) ThrowEngineError(errIo, "Unable to share the folder '" + folder + "': " + ec.message());
}

void CreateCompanyDatabase(const std::string& folder, bool shared) {
    if (Database::IsDatabaseFolder(folder))
        ThrowEngineError(errTableExists,
                         "The folder '" + folder + "' already holds a company database");
    std::error_code ec;
    fs::create_directories(folder, ec);
    if (ec)
        ThrowEngineError(errIo, "Unable to create the folder '" + folder + "': " + ec.message());
    // Nobody else on the machine reads a company unless its group is meant to share it.
    shared = shared || FolderMarkedShared(folder);
    const fs::perms folderMode = shared ? SharedFolder : fs::perms::owner_all;
    const fs::perms fileMode = shared ? fs::perms::owner_read | fs::perms::owner_write |
                                            fs::perms::group_read | fs::perms::group_write
                                      : fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(folder, folderMode, fs::perm_options::replace, ec);
    if (ec)
        ThrowEngineError(errIo, "Unable to set the permissions of the folder '" + folder +
                                    "': " + ec.message());
    fs::path target = fs::path(folder) / Database::MarkFileName;
    fs::path draft = target;
    draft += ".new";
    fs::remove(draft, ec);
    {
        Connection conn(draft.string(), Connection::Mode::ReadWriteCreate);
        conn.Exec("PRAGMA page_size = 4096");
        conn.Exec("PRAGMA journal_mode = DELETE");
        conn.Exec("BEGIN");
        for (const TableDef* def : CompanyTables())
            for (const auto& statement : schema::CreateTableStatements(*def, Database::MainSchema))
                conn.Exec(statement);
        conn.Exec(schema::CreateAutoIncTableStatement(Database::MainSchema));
        conn.Exec("COMMIT");
    }
    fs::permissions(draft, fileMode, fs::perm_options::replace, ec);
    fs::rename(draft, target, ec);
    if (ec) ThrowEngineError(errIo, "Unable to create '" + target.string() + "': " + ec.message());
}

} // namespace corvane::store::tables
