#pragma once

#include "store/FieldType.h"
#include "store/sql/SqlError.h"

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

// The statements of the store's SQL dialect as the parser reads them, before any name is
// looked up or any type is known.
namespace corvane::store::sql {

struct Expr;
struct SelectStatement;
using ExprPtr = std::unique_ptr<Expr>;

// A type written in CAST or CREATE TABLE.
struct TypeSpec {
    FieldType Type = FieldType::Integer;
    int Size = 0; // characters of a string type; 0 when none was written
    SourcePos Pos;
};

enum class ExprKind {
    Number,  // Text as written, a leading '-' when negated
    String,  // Text is the value
    Boolean, // BoolValue
    Null,
    Parameter, // Text is the name without the colon
    Column,    // Qualifier (may be empty) and Text; Quote as the name was written
    Negate,    // Args[0]
    Not,       // Args[0]
    Binary,    // Op, Args[0] and Args[1]
    Between,   // Args: value, low, high; Negated
    InList,    // Args: value, then the list; Negated
    InSelect,  // Args[0] IN Select; Negated
    Exists,    // Select
    Subquery,  // a SELECT that gives one value
    IsNull,    // Args[0]; Negated for IS NOT NULL
    Case,      // Args[0] the operand or null, then WHEN/THEN pairs, then ELSE or null
    Function,  // Text in capitals; Args; Distinct; Star for COUNT(*)
    Cast,      // Args[0] AS CastType
};

enum class BinaryOp {
    Add,
    Subtract,
    Multiply,
    Divide,
    Modulo,
    Concat,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    And,
    Or,
    Like
};

struct Expr {
    ExprKind Kind = ExprKind::Null;
    SourcePos Pos;
    std::string Text;
    std::string Qualifier;
    BinaryOp Op = BinaryOp::Add;
    bool BoolValue = false;
    bool Negated = false;
    bool Distinct = false;
    bool Star = false;
    // A column written "+Column": the engine is told not to search it by an index, the way a
    // statement steers the engine to the index that suits it better.
    bool NoIndex = false;
    char Quote = 0;
    std::vector<ExprPtr> Args;
    std::unique_ptr<SelectStatement> Select;
    TypeSpec CastType;
};

// A table as the statement names it: a bare name is a company table (schema "main"),
// "\Memory\name" a scratch table (schema "memory").
struct TableName {
    std::string Schema;
    std::string Name;
    SourcePos Pos;
};

struct SelectItem {
    ExprPtr Value;             // null for * and alias.*
    std::string StarQualifier; // alias.*: the alias
    bool Star = false;
    std::string Alias;
    std::string Text; // the expression as written, naming a result column that has no alias
    SourcePos Pos;
};

enum class JoinKind { First, Comma, Inner, Left, Right, Full, Cross };

struct FromItem {
    JoinKind Join = JoinKind::First;
    TableName Table;
    std::unique_ptr<SelectStatement> Derived; // (SELECT ...) alias
    std::string Alias;
    ExprPtr On;
    SourcePos Pos;
};

struct OrderItem {
    ExprPtr Value;
    bool Descending = false;
    bool NoCase = false;
};

struct SelectCore {
    bool Distinct = false;
    std::optional<long long> Top;
    bool TopAfterFrom = false; // TOP written after the FROM clause rather than after SELECT
    std::vector<SelectItem> Items;
    std::optional<TableName> Into;
    std::vector<FromItem> From;
    ExprPtr Where;
    std::vector<ExprPtr> GroupBy;
    ExprPtr Having;
    SourcePos Pos;
};

struct SelectStatement {
    std::vector<SelectCore> Cores; // more than one for a UNION
    std::vector<bool> UnionAll;    // between Cores[i] and Cores[i + 1]
    std::vector<OrderItem> OrderBy;
    std::optional<long long> Top; // TOP written after ORDER BY
    SourcePos Pos;
};

struct NamePos {
    std::string Name;
    SourcePos Pos;
};

struct InsertStatement {
    TableName Table;
    std::vector<NamePos> Columns; // empty: all fields in order
    std::vector<std::vector<ExprPtr>> Rows;
    std::unique_ptr<SelectStatement> Select;
};

struct Assignment {
    NamePos Column;
    ExprPtr Value;
};

struct UpdateStatement {
    TableName Table;
    std::string Alias;
    std::vector<Assignment> Sets;
    ExprPtr Where;
};

struct DeleteStatement {
    TableName Table;
    std::string Alias;
    ExprPtr Where;
};

struct ColumnDefinition {
    NamePos Column;
    TypeSpec Type;
    bool NotNull = false;
};

struct CreateTableStatement {
    TableName Table;
    std::vector<ColumnDefinition> Columns;
    std::vector<NamePos> PrimaryKey;
    SourcePos PrimaryKeyPos;
};

struct IndexColumn {
    NamePos Column;
    bool Descending = false;
};

struct CreateIndexStatement {
    std::string Name;
    TableName Table;
    bool Unique = false;
    bool NoCase = false;
    std::vector<IndexColumn> Columns;
};

struct DropTableStatement {
    TableName Table;
    bool IfExists = false;
};

using ParsedStatement =
    std::variant<SelectStatement, InsertStatement, UpdateStatement, DeleteStatement,
                 CreateTableStatement, CreateIndexStatement, DropTableStatement>;

} // namespace corvane::store::sql
