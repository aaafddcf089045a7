#include "store/sql/TranslationContext.h"

#include "store/EngineError.h"
#include "store/sql/TypedSql.h"

namespace corvane::store::sql {

const TableDef* TranslationContext::FindTable(const TableName& name) const {
    return schema_.FindTable(name.Schema, name.Name);
}

ResolvedTable TranslationContext::RequireTable(const TableName& name) const {
    const TableDef* def = FindTable(name);
    if (!def) {
        ThrowEngineError(errTableNotFound, "Table '" + name.Name + "' does not exist" +
                                               (name.Schema == "memory" ? " in memory" : ""));
    }
    return {def, name.Schema, name.Schema + "." + QuoteName(def->Name)};
}

int TranslationContext::AddParam(const std::string& name) {
    params_.push_back(ParamSlot{name, false});
    return static_cast<int>(params_.size()) - 1;
}

} // namespace corvane::store::sql
