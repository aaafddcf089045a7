#pragma once

#include "store/FieldType.h"
#include "store/TableDef.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

// The store's SQL dialect, as the program's forms and reports write it, turned into SQLite SQL.
// Money is kept as whole ten-thousandths, so every number that meets an amount is brought to
// that scale here; dates are ISO text and date arithmetic goes through functions registered by
// RegisterSqlFunctions.
namespace corvane::store::sql {

// What the translator needs of the database: the definition of a table by schema and name.
// schema is "main" for company tables and "memory" for scratch tables; names compare
// case-insensitively.
class SchemaLookup {
public:
    virtual ~SchemaLookup() = default;
    virtual const TableDef* FindTable(std::string_view schema, std::string_view name) const = 0;
};

struct ResultColumn {
    std::string Name;
    FieldType Type = FieldType::Memo;
    int Size = 0;
    // False where only the bound value tells the type (a bare parameter, a null): the cursor
    // then reads the value as SQLite holds it, and Type is a guess.
    bool TypeKnown = true;
};

struct ParamSlot {
    std::string Name;         // without the colon; case-insensitive
    bool MoneyScaled = false; // the parameter meets a money expression: bind it as ten-thousandths
};

struct TranslatedStatement {
    enum class Kind {
        Select,
        SelectInto,
        Insert,
        Update,
        Delete,
        CreateTable,
        DropTable,
        CreateIndex
    };
    Kind StatementKind = Kind::Select;
    // SQLite text with ?1, ?2 ... placeholders (empty for CreateTable, CreateIndex, DropTable).
    std::string Sql;
    // Params[i] binds ?(i+1). Each occurrence of a parameter in the text has a slot of its own,
    // so a name written twice fills two slots: bind every slot of that name.
    std::vector<ParamSlot> Params;
    std::vector<ResultColumn> Columns;     // Select, SelectInto: the result columns
    std::string TargetSchema, TargetTable; // every kind but Select
    std::optional<TableDef> NewTable;      // CreateTable; SelectInto: a table made from Columns
    std::optional<IndexDef> NewIndex;      // CreateIndex
    bool IfExists = false;                 // DropTable
};

// Throws EngineError(errSqlSyntax, "SQL error: <what> at line L, column C") on bad text, and
// errTableNotFound / errFieldNotFound with a readable message for unknown tables or columns.
//
// SELECT ... INTO "\Memory\name" gives Sql "INSERT INTO memory."name" (...) SELECT ...": the
// caller drops the target if it exists and creates NewTable before running it.
TranslatedStatement TranslateSql(std::string_view text, const SchemaLookup& schema);

// Registers the functions that translated SQL calls (YEAR, MONTH, DAY and the cv_ helpers for
// dates and money) on a connection.
void RegisterSqlFunctions(sqlite3* db);

} // namespace corvane::store::sql
