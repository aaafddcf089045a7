#pragma once

#include "store/FieldType.h"
#include "store/sql/SqlTranslator.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane::store::sql {

// Where a fragment came from. Literals and parameters can be brought to the money scale
// without arithmetic in the SQL; everything else is multiplied.
enum class Origin { Computed, Column, Number, Text, Null, Parameter };

// A piece of translated SQL with the type the dialect gives it.
struct TypedSql {
    std::string Sql;
    FieldType Type = FieldType::Memo;
    int Size = 0;
    // False for a bare parameter or null, whose type only the bound value tells, and for
    // results that take their type from one.
    bool Known = true;
    Origin From = Origin::Computed;
    int ParamSlot = -1; // Params index of a parameter
    std::string Name;   // a column's own name
    std::string Source; // the alias of the table a column comes from
};

std::string QuoteName(std::string_view name);
std::string QuoteString(std::string_view text);

bool IsMoney(const TypedSql& v);
bool IsTextValue(const TypedSql& v);
bool IsDateValue(const TypedSql& v);
// A plain number, or what may be one (a parameter, an expression of unknown type).
bool IsScalableToMoney(const TypedSql& v);

// The text of a number literal in ten-thousandths: "5" gives "50000", "2.5" "25000", "-0.00005"
// "-0.5". Empty when the literal has an exponent.
std::string MoneyLiteralText(std::string_view literal);

// Brings a plain number to ten-thousandths: a literal by rewriting it, a parameter by marking its
// slot MoneyScaled, anything else by multiplying by 10000. Null stays null.
void ScaleToMoney(TypedSql& v, std::vector<ParamSlot>& params);

// Operands that are compared with one another (=, BETWEEN, IN, the arms of + and -): when one is
// money, every plain number among them is brought to ten-thousandths.
void HarmonizeMoney(const std::vector<TypedSql*>& operands, std::vector<ParamSlot>& params);

// The type of a value chosen among alternatives (CASE and IF arms, COALESCE, the columns of a
// UNION): that of the first one that is neither null, a parameter nor a literal, else of the
// first literal. Money among them wins and scales the plain numbers; a float among integers
// makes the result a float; text takes the largest size. Returns the type only (Sql is empty).
TypedSql UnifyAlternatives(const std::vector<TypedSql*>& values, std::vector<ParamSlot>& params);

// Makes a value fit for storing into a column of the given type: numbers meeting a money
// column are scaled and rounded to whole ten-thousandths, money meeting a number or text
// column is brought back to its plain value or text.
void ConvertForColumn(TypedSql& v, FieldType target, std::vector<ParamSlot>& params);

// Money as plain decimal text ("12.50", "-3.1416"), for concatenation and casts to text.
std::string MoneyAsText(const TypedSql& v);

} // namespace corvane::store::sql
