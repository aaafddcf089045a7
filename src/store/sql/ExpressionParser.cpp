#include "store/sql/ExpressionParser.h"

#include <algorithm>
#include <cctype>

namespace corvane::store::sql {

namespace {

ExprPtr MakeExpr(ExprKind kind, SourcePos pos) {
    auto e = std::make_unique<Expr>();
    e->Kind = kind;
    e->Pos = pos;
    return e;
}

} // namespace

TypeSpec ExpressionParser::ParseTypeSpec() {
    TypeSpec spec;
    spec.Pos = Peek().Pos;
    if (Peek().Kind != TokenKind::Word) Fail("expected a type name but found " + Describe(Peek()));
    const Token& name = Next();
    static const struct {
        std::string_view Word;
        FieldType Type;
    } names[] = {
        {"VARCHAR", FieldType::String},   {"CHAR", FieldType::String},
        {"CHARACTER", FieldType::String}, {"SMALLINT", FieldType::SmallInt},
        {"INTEGER", FieldType::Integer},  {"INT", FieldType::Integer},
        {"AUTOINC", FieldType::AutoInc},  {"BOOLEAN", FieldType::Boolean},
        {"BOOL", FieldType::Boolean},     {"FLOAT", FieldType::Float},
        {"DOUBLE", FieldType::Float},     {"REAL", FieldType::Float},
        {"MONEY", FieldType::Currency},   {"CURRENCY", FieldType::Currency},
        {"DECIMAL", FieldType::Currency}, {"NUMERIC", FieldType::Currency},
        {"DATE", FieldType::Date},        {"MEMO", FieldType::Memo},
        {"CLOB", FieldType::Memo},        {"TEXT", FieldType::Memo},
        {"BLOB", FieldType::Graphic},     {"GRAPHIC", FieldType::Graphic},
    };
    auto found = std::find_if(std::begin(names), std::end(names),
                              [&](const auto& n) { return name.IsWord(n.Word); });
    if (found == std::end(names)) FailAt("unknown type '" + name.Text + "'", name.Pos);
    spec.Type = found->Type;
    if (name.IsWord("DOUBLE")) AcceptWord("PRECISION");
    if (AcceptSymbol("(")) {
        long long size = ExpectCount("a size");
        // DECIMAL(p, s): the store keeps every amount in ten-thousandths whatever is written.
        if (AcceptSymbol(",")) ExpectCount("a scale");
        ExpectSymbol(")");
        if (spec.Type == FieldType::String) {
            if (size < 1 || size > 32767) FailAt("a string size must be from 1 to 32767", spec.Pos);
            spec.Size = static_cast<int>(size);
        }
    }
    if (spec.Type == FieldType::String && spec.Size == 0) {
        if (name.IsWord("VARCHAR")) FailAt("VARCHAR needs a size", spec.Pos);
        spec.Size = 1;
    }
    return spec;
}

ExprPtr ExpressionParser::MakeBinary(BinaryOp op, SourcePos pos, ExprPtr left, ExprPtr right) {
    auto e = MakeExpr(ExprKind::Binary, pos);
    e->Op = op;
    e->Args.push_back(std::move(left));
    e->Args.push_back(std::move(right));
    return e;
}

void ExpressionParser::Deeper(ExpressionDepth::Scope& levels) {
    if (!levels.Enter()) Fail(ExpressionTooDeep);
}

ExprPtr ExpressionParser::ParseOr() {
    ExpressionDepth::Scope levels(depth_);
    Deeper(levels);
    ExprPtr left = ParseAnd();
    while (Peek().IsWord("OR")) {
        Deeper(levels);
        SourcePos pos = Next().Pos;
        left = MakeBinary(BinaryOp::Or, pos, std::move(left), ParseAnd());
    }
    return left;
}

ExprPtr ExpressionParser::ParseAnd() {
    ExpressionDepth::Scope levels(depth_);
    ExprPtr left = ParseNot();
    while (Peek().IsWord("AND")) {
        Deeper(levels);
        SourcePos pos = Next().Pos;
        left = MakeBinary(BinaryOp::And, pos, std::move(left), ParseNot());
    }
    return left;
}

ExprPtr ExpressionParser::ParseNot() {
    if (Peek().IsWord("NOT")) {
        ExpressionDepth::Scope levels(depth_);
        Deeper(levels);
        auto e = MakeExpr(ExprKind::Not, Next().Pos);
        e->Args.push_back(ParseNot());
        return e;
    }
    return ParsePredicate();
}

ExprPtr ExpressionParser::ParsePredicate() {
    ExprPtr left = ParseAdditive();
    static const struct {
        std::string_view Symbol;
        BinaryOp Op;
    } comparisons[] = {{"=", BinaryOp::Equal},   {"<>", BinaryOp::NotEqual},
                       {"<", BinaryOp::Less},    {"<=", BinaryOp::LessEqual},
                       {">", BinaryOp::Greater}, {">=", BinaryOp::GreaterEqual}};
    for (const auto& c : comparisons) {
        if (Peek().IsSymbol(c.Symbol)) {
            SourcePos pos = Next().Pos;
            return MakeBinary(c.Op, pos, std::move(left), ParseAdditive());
        }
    }
    SourcePos pos = Peek().Pos;
    if (Peek().IsWord("IS")) {
        Next();
        auto e = MakeExpr(ExprKind::IsNull, pos);
        e->Negated = AcceptWord("NOT");
        ExpectWord("NULL");
        e->Args.push_back(std::move(left));
        return e;
    }
    bool negated = false;
    if (Peek().IsWord("NOT") &&
        (Peek(1).IsWord("LIKE") || Peek(1).IsWord("IN") || Peek(1).IsWord("BETWEEN"))) {
        Next();
        negated = true;
    }
    if (AcceptWord("LIKE")) {
        auto e = MakeBinary(BinaryOp::Like, pos, std::move(left), ParseAdditive());
        e->Negated = negated;
        return e;
    }
    if (AcceptWord("BETWEEN")) {
        auto e = MakeExpr(ExprKind::Between, pos);
        e->Negated = negated;
        e->Args.push_back(std::move(left));
        e->Args.push_back(ParseAdditive());
        ExpectWord("AND");
        e->Args.push_back(ParseAdditive());
        return e;
    }
    if (AcceptWord("IN")) {
        ExpectSymbol("(");
        ExprPtr e;
        if (Peek().IsWord("SELECT")) {
            e = MakeExpr(ExprKind::InSelect, pos);
            e->Args.push_back(std::move(left));
            e->Select = std::make_unique<SelectStatement>(ParseSelectStatement());
        } else {
            e = MakeExpr(ExprKind::InList, pos);
            e->Args.push_back(std::move(left));
            do
                e->Args.push_back(ParseExpr());
            while (AcceptSymbol(","));
        }
        e->Negated = negated;
        ExpectSymbol(")");
        return e;
    }
    return left;
}

ExprPtr ExpressionParser::ParseAdditive() {
    ExpressionDepth::Scope levels(depth_);
    ExprPtr left = ParseMultiplicative();
    for (;;) {
        BinaryOp op;
        if (Peek().IsSymbol("+"))
            op = BinaryOp::Add;
        else if (Peek().IsSymbol("-"))
            op = BinaryOp::Subtract;
        else if (Peek().IsSymbol("||"))
            op = BinaryOp::Concat;
        else
            return left;
        Deeper(levels);
        SourcePos pos = Next().Pos;
        left = MakeBinary(op, pos, std::move(left), ParseMultiplicative());
    }
}

ExprPtr ExpressionParser::ParseMultiplicative() {
    ExpressionDepth::Scope levels(depth_);
    ExprPtr left = ParseUnary();
    for (;;) {
        BinaryOp op;
        if (Peek().IsSymbol("*"))
            op = BinaryOp::Multiply;
        else if (Peek().IsSymbol("/"))
            op = BinaryOp::Divide;
        else if (Peek().IsSymbol("%"))
            op = BinaryOp::Modulo;
        else
            return left;
        Deeper(levels);
        SourcePos pos = Next().Pos;
        left = MakeBinary(op, pos, std::move(left), ParseUnary());
    }
}

ExprPtr ExpressionParser::ParseUnary() {
    ExpressionDepth::Scope levels(depth_);
    Deeper(levels);
    if (Peek().IsSymbol("+")) {
        Next();
        ExprPtr operand = ParseUnary();
        if (operand->Kind == ExprKind::Column) operand->NoIndex = true;
        return operand;
    }
    if (Peek().IsSymbol("-")) {
        SourcePos pos = Next().Pos;
        ExprPtr operand = ParseUnary();
        if (operand->Kind == ExprKind::Number) {
            // A negative number stays a literal, so that it can be rescaled as one.
            operand->Text = operand->Text[0] == '-' ? operand->Text.substr(1) : "-" + operand->Text;
            operand->Pos = pos;
            return operand;
        }
        auto e = MakeExpr(ExprKind::Negate, pos);
        e->Args.push_back(std::move(operand));
        return e;
    }
    return ParsePrimary();
}

ExprPtr ExpressionParser::ParsePrimary() {
    const Token& t = Peek();
    SourcePos pos = t.Pos;
    switch (t.Kind) {
    case TokenKind::Number: {
        auto e = MakeExpr(ExprKind::Number, pos);
        e->Text = Next().Text;
        return e;
    }
    case TokenKind::String: {
        auto e = MakeExpr(ExprKind::String, pos);
        e->Text = Next().Text;
        return e;
    }
    case TokenKind::Parameter: {
        auto e = MakeExpr(ExprKind::Parameter, pos);
        e->Text = Next().Text;
        return e;
    }
    case TokenKind::QuotedName:
        return ParseColumnRef();
    case TokenKind::Symbol:
        if (AcceptSymbol("(")) {
            if (Peek().IsWord("SELECT")) {
                auto e = MakeExpr(ExprKind::Subquery, pos);
                e->Select = std::make_unique<SelectStatement>(ParseSelectStatement());
                ExpectSymbol(")");
                return e;
            }
            ExprPtr inner = ParseExpr();
            ExpectSymbol(")");
            return inner;
        }
        Fail("expected an expression but found " + Describe(t));
    case TokenKind::End:
        Fail("expected an expression but found " + Describe(t));
    case TokenKind::Word:
        break;
    }
    if (t.IsWord("TRUE") || t.IsWord("FALSE")) {
        auto e = MakeExpr(ExprKind::Boolean, pos);
        e->BoolValue = Next().IsWord("TRUE");
        return e;
    }
    if (AcceptWord("NULL")) return MakeExpr(ExprKind::Null, pos);
    if (AcceptWord("CASE")) return ParseCase(pos);
    if (AcceptWord("EXISTS")) {
        auto e = MakeExpr(ExprKind::Exists, pos);
        ExpectSymbol("(");
        if (!Peek().IsWord("SELECT")) Fail("expected SELECT but found " + Describe(Peek()));
        e->Select = std::make_unique<SelectStatement>(ParseSelectStatement());
        ExpectSymbol(")");
        return e;
    }
    if (Peek(1).IsSymbol("(")) {
        if (t.IsWord("CAST")) return ParseCast();
        if (t.IsWord("EXTRACT")) return ParseExtract();
        if (t.IsWord("IF")) return ParseIf();
        if (t.IsWord("SUBSTRING")) return ParseSubstring();
        if (!IsReservedWord(t)) return ParseFunction();
    }
    if (IsReservedWord(t)) Fail("expected an expression but found " + Describe(t));
    return ParseColumnRef();
}

ExprPtr ExpressionParser::ParseColumnRef() {
    auto e = MakeExpr(ExprKind::Column, Peek().Pos);
    e->Quote = Peek().Quote;
    NamePos first = ExpectName("a column name");
    if (AcceptSymbol(".")) {
        e->Qualifier = first.Name;
        e->Text = ExpectName("a column name").Name;
    } else {
        e->Text = first.Name;
    }
    return e;
}

ExprPtr ExpressionParser::ParseCase(SourcePos pos) {
    auto e = MakeExpr(ExprKind::Case, pos);
    e->Args.push_back(Peek().IsWord("WHEN") ? nullptr : ParseExpr());
    if (!Peek().IsWord("WHEN")) Fail("expected WHEN but found " + Describe(Peek()));
    while (AcceptWord("WHEN")) {
        e->Args.push_back(ParseExpr());
        ExpectWord("THEN");
        e->Args.push_back(ParseExpr());
    }
    e->Args.push_back(AcceptWord("ELSE") ? ParseExpr() : nullptr);
    ExpectWord("END");
    return e;
}

// IF (condition THEN a ELSE b), also written IF (condition, a, b): a CASE with one branch.
ExprPtr ExpressionParser::ParseIf() {
    auto e = MakeExpr(ExprKind::Case, Next().Pos);
    ExpectSymbol("(");
    e->Args.push_back(nullptr);
    e->Args.push_back(ParseExpr());
    if (AcceptSymbol(",")) {
        e->Args.push_back(ParseExpr());
        ExpectSymbol(",");
    } else {
        ExpectWord("THEN");
        e->Args.push_back(ParseExpr());
        ExpectWord("ELSE");
    }
    e->Args.push_back(ParseExpr());
    ExpectSymbol(")");
    return e;
}

ExprPtr ExpressionParser::ParseCast() {
    auto e = MakeExpr(ExprKind::Cast, Next().Pos);
    ExpectSymbol("(");
    e->Args.push_back(ParseExpr());
    ExpectWord("AS");
    e->CastType = ParseTypeSpec();
    ExpectSymbol(")");
    return e;
}

// EXTRACT(Year FROM d) reads as YEAR(d), and so on for the other parts of a date.
ExprPtr ExpressionParser::ParseExtract() {
    auto e = MakeExpr(ExprKind::Function, Next().Pos);
    ExpectSymbol("(");
    const Token& part = Peek();
    if (!(part.IsWord("YEAR") || part.IsWord("MONTH") || part.IsWord("DAY")))
        Fail("expected YEAR, MONTH or DAY but found " + Describe(part));
    e->Text = part.IsWord("YEAR") ? "YEAR" : part.IsWord("MONTH") ? "MONTH" : "DAY";
    Next();
    ExpectWord("FROM");
    e->Args.push_back(ParseExpr());
    ExpectSymbol(")");
    return e;
}

// SUBSTRING(x FROM start [FOR length]) or SUBSTRING(x, start [, length]).
ExprPtr ExpressionParser::ParseSubstring() {
    auto e = MakeExpr(ExprKind::Function, Next().Pos);
    e->Text = "SUBSTRING";
    ExpectSymbol("(");
    e->Args.push_back(ParseExpr());
    if (AcceptWord("FROM")) {
        e->Args.push_back(ParseExpr());
        if (AcceptWord("FOR")) e->Args.push_back(ParseExpr());
    } else {
        ExpectSymbol(",");
        e->Args.push_back(ParseExpr());
        if (AcceptSymbol(",")) e->Args.push_back(ParseExpr());
    }
    ExpectSymbol(")");
    return e;
}

ExprPtr ExpressionParser::ParseFunction() {
    auto e = MakeExpr(ExprKind::Function, Peek().Pos);
    e->Text = Next().Text;
    for (char& c : e->Text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    ExpectSymbol("(");
    if (AcceptSymbol("*")) {
        e->Star = true;
    } else if (!Peek().IsSymbol(")")) {
        if (AcceptWord("DISTINCT"))
            e->Distinct = true;
        else
            AcceptWord("ALL");
        do
            e->Args.push_back(ParseExpr());
        while (AcceptSymbol(","));
    }
    ExpectSymbol(")");
    return e;
}

} // namespace corvane::store::sql
