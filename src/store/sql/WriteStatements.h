#pragma once

#include "store/sql/SqlAst.h"
#include "store/sql/TranslationContext.h"

namespace corvane::store::sql {

// INSERT, UPDATE and DELETE. Values written to a column are brought to its stored form: plain
// numbers into money columns are scaled and rounded to whole ten-thousandths.
TranslatedStatement TranslateInsert(TranslationContext& context, const InsertStatement& insert);
TranslatedStatement TranslateUpdate(TranslationContext& context, const UpdateStatement& update);
TranslatedStatement TranslateDelete(TranslationContext& context, const DeleteStatement& remove);

} // namespace corvane::store::sql
