#pragma once

#include "store/sql/SqlAst.h"
#include "store/sql/TranslationContext.h"

namespace corvane::store::sql {

// CREATE TABLE, CREATE INDEX and DROP TABLE give definitions for the caller to apply; no SQL.
TranslatedStatement TranslateCreateTable(const CreateTableStatement& create);
TranslatedStatement TranslateCreateIndex(TranslationContext& context,
                                         const CreateIndexStatement& create);
TranslatedStatement TranslateDropTable(TranslationContext& context, const DropTableStatement& drop);

// The table SELECT ... INTO creates: one field per result column, in order. Two columns of one
// name become Name and Name_1; a column whose type only a parameter tells, or text of no known
// size, becomes a memo.
TableDef TableFromColumns(const std::string& name, const std::vector<ResultColumn>& columns);

} // namespace corvane::store::sql
