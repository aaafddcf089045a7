#include "store/sql/ExpressionTranslator.h"

#include "store/sql/SelectTranslator.h"

#include <algorithm>

namespace corvane::store::sql {

namespace {

TypedSql Computed(std::string sql, FieldType type, bool known = true, int size = 0) {
    TypedSql v;
    v.Sql = std::move(sql);
    v.Type = type;
    v.Known = known;
    v.Size = size;
    return v;
}

TypedSql BooleanResult(std::string sql) {
    return Computed(std::move(sql), FieldType::Boolean);
}

const char* TypeWord(FieldType t) {
    switch (t) {
    case FieldType::String:
    case FieldType::Memo:
        return "text";
    case FieldType::Date:
        return "a date";
    case FieldType::Graphic:
        return "a picture";
    case FieldType::Boolean:
        return "a boolean";
    case FieldType::Currency:
        return "money";
    default:
        return "a number";
    }
}

// Text, dates and pictures take part in no arithmetic but the few the dialect allows.
void RequireArithmetic(const TypedSql& v, const char* operation, SourcePos pos) {
    if (!v.Known) return;
    if (IsTextType(v.Type) || v.Type == FieldType::Date || v.Type == FieldType::Graphic)
        ThrowSqlSyntax(std::string("cannot ") + operation + " " + TypeWord(v.Type), pos);
}

// The type of + - * % on two plain numbers: a float wins over integers; an operand whose type
// only its bound value tells leaves the result's type a guess.
TypedSql NumericResult(const TypedSql& l, const TypedSql& r, std::string sql) {
    auto isFloat = [](const TypedSql& v) { return v.Known && v.Type == FieldType::Float; };
    TypedSql v = Computed(std::move(sql), FieldType::Integer);
    if (isFloat(l) || isFloat(r))
        v.Type = FieldType::Float;
    else if (!l.Known && !r.Known)
        v.Type = FieldType::Float;
    v.Known = l.Known && r.Known;
    return v;
}

std::string Join(const std::vector<TypedSql>& values, std::size_t from = 0) {
    std::string out;
    for (std::size_t i = from; i < values.size(); ++i)
        out += (i > from ? ", " : "") + values[i].Sql;
    return out;
}

std::vector<TypedSql*> Pointers(std::vector<TypedSql>& values) {
    std::vector<TypedSql*> out;
    for (auto& v : values)
        out.push_back(&v);
    return out;
}

} // namespace

TypedSql ExpressionTranslator::Translate(const Expr& e) {
    switch (e.Kind) {
    case ExprKind::Number:
    case ExprKind::String:
    case ExprKind::Boolean:
    case ExprKind::Null:
        return Literal(e);
    case ExprKind::Parameter:
        return Parameter(e);
    case ExprKind::Column: {
        TypedSql column = scope_.Resolve(e.Qualifier, e.Text, e.Pos);
        // The engine's own unary plus keeps the value, its type and its collation, and only
        // takes the column out of the indexes the engine may choose.
        if (e.NoIndex) column.Sql = "+" + column.Sql;
        return column;
    }
    case ExprKind::Negate:
        return Negate(e);
    case ExprKind::Not:
        return BooleanResult("(NOT " + Translate(*e.Args[0]).Sql + ")");
    case ExprKind::Binary:
        return Binary(e);
    case ExprKind::Between:
        return Between(e);
    case ExprKind::InList:
        return InList(e);
    case ExprKind::InSelect:
        return InSelect(e);
    case ExprKind::Exists: {
        SelectParts parts = TranslateSelect(context_, *e.Select, &scope_);
        return BooleanResult("(EXISTS (" + ComposeSelect(parts) + "))");
    }
    case ExprKind::Subquery:
        return Subquery(e);
    case ExprKind::IsNull:
        return BooleanResult("(" + Translate(*e.Args[0]).Sql +
                             (e.Negated ? " IS NOT NULL)" : " IS NULL)"));
    case ExprKind::Case:
        return Case(e);
    case ExprKind::Function:
        return Function(e);
    case ExprKind::Cast:
        return Cast(e);
    }
    ThrowSqlSyntax("unsupported expression", e.Pos);
}

TypedSql ExpressionTranslator::Literal(const Expr& e) {
    TypedSql v;
    switch (e.Kind) {
    case ExprKind::Number:
        v.Sql = e.Text;
        v.From = Origin::Number;
        v.Type = e.Text.find_first_of(".eE") == std::string::npos ? FieldType::Integer
                                                                  : FieldType::Float;
        break;
    case ExprKind::String:
        v.Sql = QuoteString(e.Text);
        v.From = Origin::Text;
        v.Type = FieldType::String;
        v.Size = static_cast<int>(e.Text.size());
        break;
    case ExprKind::Boolean:
        v.Sql = e.BoolValue ? "1" : "0";
        v.Type = FieldType::Boolean;
        break;
    default:
        v.Sql = "NULL";
        v.From = Origin::Null;
        v.Known = false;
        break;
    }
    return v;
}

TypedSql ExpressionTranslator::Parameter(const Expr& e) {
    TypedSql v;
    v.ParamSlot = context_.AddParam(e.Text);
    v.Sql = "?" + std::to_string(v.ParamSlot + 1);
    v.From = Origin::Parameter;
    v.Known = false;
    v.Type = FieldType::Float;
    return v;
}

TypedSql ExpressionTranslator::Negate(const Expr& e) {
    TypedSql v = Translate(*e.Args[0]);
    RequireArithmetic(v, "negate", e.Pos);
    v.Sql = "(-" + v.Sql + ")";
    v.From = Origin::Computed;
    if (IsIntegerType(v.Type)) v.Type = FieldType::Integer;
    return v;
}

TypedSql ExpressionTranslator::Binary(const Expr& e) {
    TypedSql l = Translate(*e.Args[0]);
    TypedSql r = Translate(*e.Args[1]);
    switch (e.Op) {
    case BinaryOp::Add:
        return Add(std::move(l), std::move(r), e.Pos);
    case BinaryOp::Subtract:
        return Subtract(std::move(l), std::move(r), e.Pos);
    case BinaryOp::Multiply:
    case BinaryOp::Divide:
    case BinaryOp::Modulo:
        return MultiplyOrDivide(e.Op, std::move(l), std::move(r), e.Pos);
    case BinaryOp::Concat:
        return Concat(l, r);
    case BinaryOp::And:
        return BooleanResult("(" + l.Sql + " AND " + r.Sql + ")");
    case BinaryOp::Or:
        return BooleanResult("(" + l.Sql + " OR " + r.Sql + ")");
    case BinaryOp::Like:
        return BooleanResult("(" + l.Sql + (e.Negated ? " NOT LIKE " : " LIKE ") + r.Sql + ")");
    default:
        break;
    }
    static const std::pair<BinaryOp, const char*> comparisons[] = {
        {BinaryOp::Equal, " = "},   {BinaryOp::NotEqual, " <> "},
        {BinaryOp::Less, " < "},    {BinaryOp::LessEqual, " <= "},
        {BinaryOp::Greater, " > "}, {BinaryOp::GreaterEqual, " >= "}};
    const char* op = " = ";
    for (const auto& c : comparisons)
        if (c.first == e.Op) op = c.second;
    HarmonizeMoney({&l, &r}, Params());
    return BooleanResult("(" + l.Sql + op + r.Sql + ")");
}

TypedSql ExpressionTranslator::Concat(const TypedSql& l, const TypedSql& r) {
    auto text = [](const TypedSql& v) { return IsMoney(v) ? MoneyAsText(v) : v.Sql; };
    TypedSql v = Computed("(" + text(l) + " || " + text(r) + ")", FieldType::String);
    bool memo = (l.Known && l.Type == FieldType::Memo) || (r.Known && r.Type == FieldType::Memo);
    if (memo)
        v.Type = FieldType::Memo;
    else if (IsTextValue(l) && IsTextValue(r))
        v.Size = l.Size + r.Size;
    return v;
}

TypedSql ExpressionTranslator::Add(TypedSql l, TypedSql r, SourcePos pos) {
    // '+' joins text when either side is text; the other side is written as text.
    if (IsTextValue(l) || IsTextValue(r)) return Concat(l, r);
    if (IsDateValue(l) || IsDateValue(r)) {
        if (IsDateValue(l) && IsDateValue(r)) ThrowSqlSyntax("cannot add two dates", pos);
        TypedSql& days = IsDateValue(l) ? r : l;
        const TypedSql& date = IsDateValue(l) ? l : r;
        RequireArithmetic(days, "add a date to", pos);
        if (IsMoney(days)) ThrowSqlSyntax("cannot add money to a date", pos);
        return Computed("cv_date_add(" + date.Sql + ", " + days.Sql + ")", FieldType::Date);
    }
    RequireArithmetic(l, "add", pos);
    RequireArithmetic(r, "add", pos);
    if (IsMoney(l) || IsMoney(r)) {
        HarmonizeMoney({&l, &r}, Params());
        return Computed("(" + l.Sql + " + " + r.Sql + ")", FieldType::Currency);
    }
    return NumericResult(l, r, "(" + l.Sql + " + " + r.Sql + ")");
}

TypedSql ExpressionTranslator::Subtract(TypedSql l, TypedSql r, SourcePos pos) {
    if (IsDateValue(l)) {
        // A date less a date is a count of days; a date less a number is a date. The helper
        // tells the two apart by the value, so a parameter may be either (it is typed a date).
        if (IsDateValue(r))
            return Computed("cv_date_sub(" + l.Sql + ", " + r.Sql + ")", FieldType::Integer);
        RequireArithmetic(r, "subtract from a date", pos);
        if (IsMoney(r)) ThrowSqlSyntax("cannot subtract money from a date", pos);
        return Computed("cv_date_sub(" + l.Sql + ", " + r.Sql + ")", FieldType::Date);
    }
    RequireArithmetic(l, "subtract from", pos);
    RequireArithmetic(r, "subtract", pos);
    if (IsMoney(l) || IsMoney(r)) {
        HarmonizeMoney({&l, &r}, Params());
        return Computed("(" + l.Sql + " - " + r.Sql + ")", FieldType::Currency);
    }
    return NumericResult(l, r, "(" + l.Sql + " - " + r.Sql + ")");
}

TypedSql ExpressionTranslator::MultiplyOrDivide(BinaryOp op, TypedSql l, TypedSql r,
                                                SourcePos pos) {
    const char* verb = op == BinaryOp::Multiply ? "multiply" : "divide";
    RequireArithmetic(l, verb, pos);
    RequireArithmetic(r, verb, pos);
    bool lm = IsMoney(l), rm = IsMoney(r);
    if (op == BinaryOp::Multiply) {
        if (lm && rm) ThrowSqlSyntax("cannot multiply two money values", pos);
        std::string sql = "(" + l.Sql + " * " + r.Sql + ")";
        // An amount times a number is still in ten-thousandths, perhaps with a fraction of one.
        if (lm || rm) return Computed(sql, FieldType::Currency);
        return NumericResult(l, r, sql);
    }
    if (op == BinaryOp::Modulo) {
        if (lm || rm) ThrowSqlSyntax("cannot take the remainder of money", pos);
        return NumericResult(l, r, "(" + l.Sql + " % " + r.Sql + ")");
    }
    // Division never truncates: (Month + 2) / 3 is a fraction that TRUNC cuts.
    if (lm && rm)
        return Computed("(CAST(" + l.Sql + " AS REAL) / " + r.Sql + ")", FieldType::Float);
    if (lm) return Computed("(CAST(" + l.Sql + " AS REAL) / " + r.Sql + ")", FieldType::Currency);
    if (rm)
        return Computed("(CAST(" + l.Sql + " AS REAL) * 10000 / " + r.Sql + ")", FieldType::Float);
    return Computed("(CAST(" + l.Sql + " AS REAL) / " + r.Sql + ")", FieldType::Float);
}

TypedSql ExpressionTranslator::Between(const Expr& e) {
    TypedSql x = Translate(*e.Args[0]);
    TypedSql low = Translate(*e.Args[1]);
    TypedSql high = Translate(*e.Args[2]);
    HarmonizeMoney({&x, &low, &high}, Params());
    return BooleanResult("(" + x.Sql + (e.Negated ? " NOT BETWEEN " : " BETWEEN ") + low.Sql +
                         " AND " + high.Sql + ")");
}

TypedSql ExpressionTranslator::InList(const Expr& e) {
    std::vector<TypedSql> values;
    for (const auto& a : e.Args)
        values.push_back(Translate(*a));
    HarmonizeMoney(Pointers(values), Params());
    return BooleanResult("(" + values[0].Sql + (e.Negated ? " NOT IN (" : " IN (") +
                         Join(values, 1) + "))");
}

TypedSql ExpressionTranslator::InSelect(const Expr& e) {
    TypedSql x = Translate(*e.Args[0]);
    SelectParts parts = TranslateSelect(context_, *e.Select, &scope_);
    if (parts.Columns.size() != 1)
        ThrowSqlSyntax("the SELECT after IN must give one column", e.Select->Pos);
    if (IsMoney(x)) {
        for (auto& core : parts.Cores)
            if (IsScalableToMoney(core.Items[0])) ScaleToMoney(core.Items[0], Params());
    } else if (parts.Columns[0].TypeKnown && parts.Columns[0].Type == FieldType::Currency &&
               IsScalableToMoney(x)) {
        ScaleToMoney(x, Params());
    }
    return BooleanResult("(" + x.Sql + (e.Negated ? " NOT IN (" : " IN (") + ComposeSelect(parts) +
                         "))");
}

TypedSql ExpressionTranslator::Subquery(const Expr& e) {
    SelectParts parts = TranslateSelect(context_, *e.Select, &scope_);
    if (parts.Columns.size() != 1)
        ThrowSqlSyntax("a SELECT used as a value must give one column", e.Pos);
    const ResultColumn& c = parts.Columns[0];
    return Computed("(" + ComposeSelect(parts) + ")", c.Type, c.TypeKnown, c.Size);
}

TypedSql ExpressionTranslator::Case(const Expr& e) {
    // Args: operand or null, WHEN/THEN pairs, ELSE or null.
    std::size_t pairs = (e.Args.size() - 2) / 2;
    std::vector<TypedSql> whens, values;
    std::optional<TypedSql> operand;
    if (e.Args[0]) operand = Translate(*e.Args[0]);
    for (std::size_t i = 0; i < pairs; ++i) {
        whens.push_back(Translate(*e.Args[1 + 2 * i]));
        values.push_back(Translate(*e.Args[2 + 2 * i]));
    }
    bool hasElse = e.Args.back() != nullptr;
    if (hasElse) values.push_back(Translate(*e.Args.back()));
    if (operand) {
        std::vector<TypedSql*> compared = Pointers(whens);
        compared.push_back(&*operand);
        HarmonizeMoney(compared, Params());
    }
    TypedSql result = UnifyAlternatives(Pointers(values), Params());
    std::string sql = "(CASE";
    if (operand) sql += " " + operand->Sql;
    for (std::size_t i = 0; i < pairs; ++i)
        sql += " WHEN " + whens[i].Sql + " THEN " + values[i].Sql;
    if (hasElse) sql += " ELSE " + values.back().Sql;
    result.Sql = sql + " END)";
    return result;
}

TypedSql ExpressionTranslator::Function(const Expr& e) {
    const std::string& name = e.Text;
    auto requireArgs = [&](std::size_t least, std::size_t most) {
        if (e.Args.size() < least || e.Args.size() > most)
            ThrowSqlSyntax("wrong number of arguments to " + name, e.Pos);
    };
    static const char* aggregates[] = {"COUNT", "SUM", "AVG", "MIN", "MAX"};
    bool aggregate = std::any_of(std::begin(aggregates), std::end(aggregates),
                                 [&](const char* a) { return name == a; });
    if ((e.Star && name != "COUNT") || (e.Distinct && !aggregate))
        ThrowSqlSyntax(std::string(e.Star ? "*" : "DISTINCT") + " is not allowed in " + name,
                       e.Pos);
    std::vector<TypedSql> args;
    for (const auto& a : e.Args)
        args.push_back(Translate(*a));
    if (aggregate) {
        if (args.size() == 1 || e.Star) return Aggregate(e, args);
        if (name != "MIN" && name != "MAX") requireArgs(1, 1);
    }

    if (name == "MIN" || name == "MAX" || name == "COALESCE" || name == "IFNULL") {
        requireArgs(2, 64);
        TypedSql v = UnifyAlternatives(Pointers(args), Params());
        v.Sql = (name == "IFNULL" ? std::string("COALESCE") : name) + "(" + Join(args) + ")";
        return v;
    }
    if (name == "UPPER" || name == "LOWER" || name == "TRIM" || name == "LTRIM" ||
        name == "RTRIM") {
        requireArgs(1, 1);
        TypedSql& x = args[0];
        std::string text = IsMoney(x) ? MoneyAsText(x) : x.Sql;
        bool textArg = IsTextValue(x);
        return Computed(name + "(" + text + ")", textArg ? x.Type : FieldType::String, true,
                        textArg ? x.Size : 0);
    }
    if (name == "LENGTH" || name == "CHAR_LENGTH" || name == "CHARACTER_LENGTH") {
        requireArgs(1, 1);
        return Computed("LENGTH(" + args[0].Sql + ")", FieldType::Integer);
    }
    if (name == "SUBSTRING" || name == "SUBSTR") {
        requireArgs(2, 3);
        int size = IsTextValue(args[0]) ? args[0].Size : 0;
        if (args.size() == 3 && args[2].From == Origin::Number)
            size = std::max(0, std::stoi(args[2].Sql));
        FieldType type = args[0].Known && args[0].Type == FieldType::Memo && args.size() == 2
                             ? FieldType::Memo
                             : FieldType::String;
        return Computed("substr(" + Join(args) + ")", type, true, size);
    }
    if (name == "YEAR" || name == "MONTH" || name == "DAY") {
        requireArgs(1, 1);
        return Computed(name + "(" + args[0].Sql + ")", FieldType::Integer);
    }
    if (name == "TRUNC" || name == "ROUND") {
        requireArgs(1, name == "ROUND" ? 2 : 1);
        TypedSql& x = args[0];
        RequireArithmetic(x, name == "TRUNC" ? "truncate" : "round", e.Pos);
        std::string digits = args.size() == 2 ? ", " + args[1].Sql : ", 0";
        if (IsMoney(x)) {
            std::string whole = name == "TRUNC" ? "cv_trunc(" + x.Sql + " / 10000.0)"
                                                : "ROUND(" + x.Sql + " / 10000.0" + digits + ")";
            return Computed("(" + whole + " * 10000)", FieldType::Currency);
        }
        if (name == "TRUNC") return Computed("cv_trunc(" + x.Sql + ")", FieldType::Integer);
        return Computed("ROUND(" + x.Sql + digits + ")", FieldType::Float);
    }
    if (name == "ABS") {
        requireArgs(1, 1);
        RequireArithmetic(args[0], "take the absolute value of", e.Pos);
        TypedSql v = args[0];
        v.Sql = "ABS(" + v.Sql + ")";
        v.From = Origin::Computed;
        if (IsIntegerType(v.Type)) v.Type = FieldType::Integer;
        return v;
    }
    if (name == "MOD") {
        requireArgs(2, 2);
        if (IsMoney(args[0]) || IsMoney(args[1]))
            ThrowSqlSyntax("cannot take the remainder of money", e.Pos);
        return NumericResult(args[0], args[1], "(" + args[0].Sql + " % " + args[1].Sql + ")");
    }
    ThrowSqlSyntax("unknown function " + name, e.Pos);
}

TypedSql ExpressionTranslator::Aggregate(const Expr& e, std::vector<TypedSql>& args) {
    const std::string& name = e.Text;
    if (name == "COUNT") {
        if (e.Star) return Computed("COUNT(*)", FieldType::Integer);
        return Computed(std::string("COUNT(") + (e.Distinct ? "DISTINCT " : "") + args[0].Sql + ")",
                        FieldType::Integer);
    }
    TypedSql v = args[0];
    v.Sql = name + "(" + (e.Distinct ? "DISTINCT " : "") + v.Sql + ")";
    v.From = Origin::Computed;
    if (name == "MIN" || name == "MAX") {
        if (IsIntegerType(v.Type)) v.Type = FieldType::Integer;
        return v;
    }
    if (v.Known &&
        (IsTextType(v.Type) || v.Type == FieldType::Date || v.Type == FieldType::Graphic))
        ThrowSqlSyntax("cannot take " + name + " of " + TypeWord(v.Type), e.Pos);
    // A sum of amounts adds whole ten-thousandths: exact. An average of them keeps their scale.
    if (name == "SUM") {
        if (v.Type != FieldType::Currency && v.Type != FieldType::Float)
            v.Type = FieldType::Integer;
        if (!v.Known) v.Type = FieldType::Float;
    } else if (v.Type != FieldType::Currency || !v.Known) {
        v.Type = FieldType::Float;
    }
    v.Size = 0;
    return v;
}

TypedSql ExpressionTranslator::Cast(const Expr& e) {
    TypedSql x = Translate(*e.Args[0]);
    const TypeSpec& to = e.CastType;
    bool money = IsMoney(x);
    switch (to.Type) {
    case FieldType::SmallInt:
    case FieldType::Integer:
    case FieldType::AutoInc:
        // An amount cut to its whole units, toward zero.
        return Computed(money ? "CAST(" + x.Sql + " / 10000 AS INTEGER)"
                              : "CAST(" + x.Sql + " AS INTEGER)",
                        to.Type == FieldType::SmallInt ? FieldType::SmallInt : FieldType::Integer);
    case FieldType::Float:
        return Computed(money ? "(" + x.Sql + " / 10000.0)" : "CAST(" + x.Sql + " AS REAL)",
                        FieldType::Float);
    case FieldType::String:
    case FieldType::Memo: {
        std::string text = money ? MoneyAsText(x) : "CAST(" + x.Sql + " AS TEXT)";
        if (to.Size > 0) text = "substr(" + text + ", 1, " + std::to_string(to.Size) + ")";
        return Computed(text, to.Type, true, to.Size);
    }
    case FieldType::Date:
        // Never SQLite's own numeric cast, which would leave only the year of '2017-03-05'.
        return Computed(IsDateValue(x) ? x.Sql : "cv_date(" + x.Sql + ")", FieldType::Date);
    case FieldType::Currency:
        if (!money) ConvertForColumn(x, FieldType::Currency, Params());
        return Computed(x.Sql, FieldType::Currency);
    case FieldType::Boolean:
        return Computed("(CASE WHEN " + x.Sql + " IS NULL THEN NULL WHEN " + x.Sql +
                            " THEN 1 ELSE 0 END)",
                        FieldType::Boolean);
    case FieldType::Graphic:
        return Computed("CAST(" + x.Sql + " AS BLOB)", FieldType::Graphic);
    }
    ThrowSqlSyntax("unsupported CAST", e.Pos);
}

} // namespace corvane::store::sql
