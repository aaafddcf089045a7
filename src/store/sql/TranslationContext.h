#pragma once

#include "store/sql/SqlAst.h"
#include "store/sql/SqlTranslator.h"

#include <string>
#include <vector>

namespace corvane::store::sql {

// A table of the schema as a statement names it, found.
struct ResolvedTable {
    const TableDef* Def = nullptr;
    std::string Schema;
    std::string Sql; // main."Name" or memory."Name", in the table's own spelling
};

// What the translation of one statement shares: the schema and the parameter slots.
class TranslationContext {
public:
    explicit TranslationContext(const SchemaLookup& schema) : schema_(schema) {}

    // Throws EngineError(errTableNotFound) when the table does not exist.
    ResolvedTable RequireTable(const TableName& name) const;
    const TableDef* FindTable(const TableName& name) const;

    // A new slot for one occurrence of :name; returns its index.
    int AddParam(const std::string& name);
    std::vector<ParamSlot>& Params() { return params_; }

private:
    const SchemaLookup& schema_;
    std::vector<ParamSlot> params_;
};

} // namespace corvane::store::sql
