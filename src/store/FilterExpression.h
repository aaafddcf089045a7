#pragma once

#include "store/ValueConversion.h"

#include "store/FieldType.h"
#include "store/TableDef.h"
#include "store/Value.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane::store {

struct SqlFragment {
    std::string Sql;           // uses anonymous '?' placeholders, in order
    std::vector<Value> Params; // one per '?', in order
};

// Turns a cursor's filter into a WHERE condition over the table's columns, with every literal
// bound as a parameter. The language:
//   comparisons = <> < <= > >=, and / or / not (any case), parentheses;
//   numbers, 'text' ('' inside for a quote; "text" too when it names no field), 'yyyy-mm-dd'
//   against a date, true, false, null;
//   UPPER(x), LOWER(x), TRIM(x); x [NOT] LIKE 'pattern'; x [NOT] IN (a, b, ...);
//   x IS [NOT] NULL; + - * / on numbers and amounts, + on text; a bare boolean field
//   ("NOT Completed") means "Completed = true".
// Field names ignore case and may be written "in double quotes" or [in brackets].
//
// Results are two-valued: null is the smallest value, as in index order, so "Field = null" picks
// exactly the null rows and "Suspended <> true" picks false and null rows alike. Negations are
// resolved while compiling (not (a < b) becomes a >= b), so the SQL carries no NOT over a
// comparison; a field compared with a literal stays a plain indexable term such as "Amount" > ?,
// which gives SQL NULL rather than 0 on a null field. The fragment is therefore meant for a WHERE
// clause, alone or joined with AND/OR to other conditions, never negated as a whole.
//
// An empty or all-blank expression gives an empty Sql: no filter.
// Throws EngineError(errFilterSyntax) with a message that names the position, e.g.
//   "Filter error: expected ')' at position 14 in: (Posted = true";
// EngineError(errFieldNotFound, "Field 'Foo' not found in table 'Vendor'") for an unknown field;
// EngineError(errInvalidValue) for a literal that does not fit its field ('abc' against a number).
//
// With FilterTerms::Tested every field stands as +"Field": the engine can then serve no term by the
// field's own index and walks the cursor's order index, testing each row. That is the better plan
// when many rows pass the filter: the first page is read at once instead of every passing row
// being sorted first.
enum class FilterTerms { Indexed, Tested };
SqlFragment CompileFilter(std::string_view expression, const TableDef& table,
                          FilterTerms terms = FilterTerms::Indexed);

} // namespace corvane::store
