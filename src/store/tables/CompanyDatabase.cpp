#include "store/tables/CompanyDatabase.h"

#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Schema.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyTables.h"

#include <filesystem>

namespace corvane::store::tables {

namespace fs = std::filesystem;

void CreateCompanyDatabase(const std::string& folder) {
    if (Database::IsDatabaseFolder(folder))
        ThrowEngineError(errTableExists,
                         "The folder '" + folder + "' already holds a company database");
    std::error_code ec;
    fs::create_directories(folder, ec);
    if (ec)
        ThrowEngineError(errIo, "Unable to create the folder '" + folder + "': " + ec.message());
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
    fs::rename(draft, target, ec);
    if (ec) ThrowEngineError(errIo, "Unable to create '" + target.string() + "': " + ec.message());
}

} // namespace corvane::store::tables
