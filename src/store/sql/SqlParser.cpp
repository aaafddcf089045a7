#include "store/sql/SqlParser.h"

#include "store/TableDef.h"
#include "store/sql/ExpressionParser.h"

namespace corvane::store::sql {

namespace {

class StatementParser final : public ExpressionParser {
public:
    using ExpressionParser::ExpressionParser;

    ParsedStatement ParseStatement() {
        const Token& first = Peek();
        ParsedStatement result;
        if (first.IsWord("SELECT"))
            result = ParseSelectStatement();
        else if (first.IsWord("INSERT"))
            result = ParseInsert();
        else if (first.IsWord("UPDATE"))
            result = ParseUpdate();
        else if (first.IsWord("DELETE"))
            result = ParseDelete();
        else if (first.IsWord("CREATE"))
            result = ParseCreate();
        else if (first.IsWord("DROP"))
            result = ParseDrop();
        else if (first.Kind == TokenKind::End)
            ThrowSqlSyntax("empty statement", first.Pos);
        else
            Fail("expected a statement (SELECT, INSERT, UPDATE, DELETE, CREATE or DROP)");
        AcceptSymbol(";");
        if (Peek().Kind != TokenKind::End) Fail("unexpected " + DescribeToken(Peek()));
        return result;
    }

private:
    // ----- table names

    TableName ParseTableName() {
        TableName name;
        name.Pos = Peek().Pos;
        if (Peek().Kind == TokenKind::QuotedName) {
            std::string text = Next().Text;
            static constexpr std::string_view memoryPrefix = "\\memory\\";
            if (text.size() > memoryPrefix.size() &&
                SameName(std::string_view(text).substr(0, memoryPrefix.size()), memoryPrefix)) {
                name.Schema = "memory";
                name.Name = text.substr(memoryPrefix.size());
            } else if (!text.empty() && text[0] == '\\') {
                ThrowSqlSyntax("only the \\Memory\\ database can be named in a table name",
                               name.Pos);
            } else {
                name.Schema = "main";
                name.Name = text;
            }
            return name;
        }
        NamePos first = ExpectName("a table name");
        if ((SameName(first.Name, "memory") || SameName(first.Name, "main")) &&
            Peek().IsSymbol(".")) {
            Next();
            name.Schema = SameName(first.Name, "memory") ? "memory" : "main";
            name.Name = ExpectName("a table name").Name;
            return name;
        }
        name.Schema = "main";
        name.Name = first.Name;
        return name;
    }

    // An alias after a table or a select item: AS name, or a bare name that is no keyword.
    std::string ParseOptionalAlias() {
        if (AcceptWord("AS")) {
            if (Peek().Kind == TokenKind::String) return Next().Text;
            return ExpectName("an alias").Name;
        }
        if (AtName()) return Next().Text;
        return {};
    }

    // ----- SELECT

    SelectStatement ParseSelectStatement() override {
        SelectStatement s;
        s.Pos = Peek().Pos;
        s.Cores.push_back(ParseSelectCore());
        while (AcceptWord("UNION")) {
            s.UnionAll.push_back(AcceptWord("ALL"));
            if (!Peek().IsWord("SELECT"))
                Fail("expected SELECT after UNION but found " + DescribeToken(Peek()));
            s.Cores.push_back(ParseSelectCore());
        }
        if (AcceptWord("ORDER")) {
            ExpectWord("BY");
            do {
                OrderItem item;
                item.Value = ParseExpr();
                // DESC and NOCASE may come in either order; NOCASE applies to this column only.
                for (;;) {
                    if (AcceptWord("DESC"))
                        item.Descending = true;
                    else if (AcceptWord("ASC"))
                        item.Descending = false;
                    else if (AcceptWord("NOCASE"))
                        item.NoCase = true;
                    else
                        break;
                }
                s.OrderBy.push_back(std::move(item));
            } while (AcceptSymbol(","));
        }
        if (AcceptWord("TOP")) s.Top = ExpectCount("a row count after TOP");
        return s;
    }

    void ParseTrailingTop(SelectCore& core) {
        if (!Peek().IsWord("TOP")) return;
        if (core.Top) Fail("TOP is given twice");
        Next();
        core.Top = ExpectCount("a row count after TOP");
        core.TopAfterFrom = true;
    }

    SelectCore ParseSelectCore() {
        SelectCore core;
        core.Pos = Peek().Pos;
        ExpectWord("SELECT");
        for (;;) {
            if (AcceptWord("TOP")) {
                if (core.Top) Fail("TOP is given twice");
                core.Top = ExpectCount("a row count after TOP");
            } else if (AcceptWord("DISTINCT")) {
                core.Distinct = true;
            } else if (!AcceptWord("ALL")) {
                break;
            }
        }
        do
            core.Items.push_back(ParseSelectItem());
        while (AcceptSymbol(","));
        if (Peek().IsWord("INTO")) {
            Next();
            core.Into = ParseTableName();
        }
        if (AcceptWord("FROM")) ParseFrom(core);
        ParseTrailingTop(core);
        if (AcceptWord("WHERE")) core.Where = ParseExpr();
        ParseTrailingTop(core);
        if (AcceptWord("GROUP")) {
            ExpectWord("BY");
            do
                core.GroupBy.push_back(ParseExpr());
            while (AcceptSymbol(","));
        }
        if (AcceptWord("HAVING")) core.Having = ParseExpr();
        ParseTrailingTop(core);
        return core;
    }

    SelectItem ParseSelectItem() {
        SelectItem item;
        item.Pos = Peek().Pos;
        if (AcceptSymbol("*")) {
            item.Star = true;
            return item;
        }
        if ((Peek().Kind == TokenKind::Word || Peek().Kind == TokenKind::QuotedName) &&
            Peek(1).IsSymbol(".") && Peek(2).IsSymbol("*")) {
            item.Star = true;
            item.StarQualifier = Next().Text;
            Next();
            Next();
            return item;
        }
        std::size_t start = Peek().Offset;
        item.Value = ParseExpr();
        const Token& last = Previous();
        item.Text = std::string(text_.substr(start, last.Offset + last.Length - start));
        item.Alias = ParseOptionalAlias();
        return item;
    }

    void ParseFrom(SelectCore& core) {
        core.From.push_back(ParseFromItem(JoinKind::First));
        for (;;) {
            JoinKind kind;
            if (AcceptSymbol(",")) {
                kind = JoinKind::Comma;
            } else if (AcceptWord("JOIN")) {
                kind = JoinKind::Inner;
            } else if (AcceptWord("INNER")) {
                ExpectWord("JOIN");
                kind = JoinKind::Inner;
            } else if (AcceptWord("CROSS")) {
                ExpectWord("JOIN");
                kind = JoinKind::Cross;
            } else if (Peek().IsWord("LEFT") || Peek().IsWord("RIGHT") || Peek().IsWord("FULL")) {
                const Token& side = Next();
                kind = side.IsWord("LEFT")    ? JoinKind::Left
                       : side.IsWord("RIGHT") ? JoinKind::Right
                                              : JoinKind::Full;
                AcceptWord("OUTER");
                ExpectWord("JOIN");
            } else {
                return;
            }
            FromItem item = ParseFromItem(kind);
            if (kind != JoinKind::Comma && kind != JoinKind::Cross) {
                ExpectWord("ON");
                item.On = ParseExpr();
            }
            core.From.push_back(std::move(item));
        }
    }

    FromItem ParseFromItem(JoinKind kind) {
        FromItem item;
        item.Join = kind;
        item.Pos = Peek().Pos;
        if (AcceptSymbol("(")) {
            if (!Peek().IsWord("SELECT"))
                Fail("expected SELECT but found " + DescribeToken(Peek()));
            ExpressionDepth::Scope levels(depth_);
            Deeper(levels);
            item.Derived = std::make_unique<SelectStatement>(ParseSelectStatement());
            ExpectSymbol(")");
            item.Alias = ParseOptionalAlias();
            if (item.Alias.empty()) Fail("a SELECT in the FROM clause needs an alias");
            return item;
        }
        item.Table = ParseTableName();
        item.Alias = ParseOptionalAlias();
        return item;
    }

    // ----- other statements

    InsertStatement ParseInsert() {
        InsertStatement s;
        ExpectWord("INSERT");
        ExpectWord("INTO");
        s.Table = ParseTableName();
        if (AcceptSymbol("(")) {
            do
                s.Columns.push_back(ExpectName("a column name"));
            while (AcceptSymbol(","));
            ExpectSymbol(")");
        }
        if (Peek().IsWord("SELECT")) {
            s.Select = std::make_unique<SelectStatement>(ParseSelectStatement());
            return s;
        }
        ExpectWord("VALUES");
        do {
            ExpectSymbol("(");
            std::vector<ExprPtr> row;
            do
                row.push_back(ParseExpr());
            while (AcceptSymbol(","));
            ExpectSymbol(")");
            s.Rows.push_back(std::move(row));
        } while (AcceptSymbol(","));
        return s;
    }

    UpdateStatement ParseUpdate() {
        UpdateStatement s;
        ExpectWord("UPDATE");
        s.Table = ParseTableName();
        s.Alias = ParseOptionalAlias();
        ExpectWord("SET");
        do {
            Assignment a;
            a.Column = ExpectName("a column name");
            // A qualified target ("T.Amount = ...") names the one table being updated.
            if (AcceptSymbol(".")) a.Column = ExpectName("a column name");
            ExpectSymbol("=");
            a.Value = ParseExpr();
            s.Sets.push_back(std::move(a));
        } while (AcceptSymbol(","));
        if (AcceptWord("WHERE")) s.Where = ParseExpr();
        return s;
    }

    DeleteStatement ParseDelete() {
        DeleteStatement s;
        ExpectWord("DELETE");
        ExpectWord("FROM");
        s.Table = ParseTableName();
        s.Alias = ParseOptionalAlias();
        if (AcceptWord("WHERE")) s.Where = ParseExpr();
        return s;
    }

    ParsedStatement ParseCreate() {
        ExpectWord("CREATE");
        if (AcceptWord("TABLE")) return ParseCreateTable();
        CreateIndexStatement s;
        for (;;) {
            if (AcceptWord("UNIQUE"))
                s.Unique = true;
            else if (AcceptWord("NOCASE"))
                s.NoCase = true;
            else
                break;
        }
        if (!AcceptWord("INDEX"))
            Fail("expected TABLE or INDEX after CREATE but found " + DescribeToken(Peek()));
        s.Name = ExpectName("an index name").Name;
        ExpectWord("ON");
        s.Table = ParseTableName();
        ExpectSymbol("(");
        do {
            IndexColumn c;
            c.Column = ExpectName("a column name");
            if (AcceptWord("DESC"))
                c.Descending = true;
            else
                AcceptWord("ASC");
            s.Columns.push_back(std::move(c));
        } while (AcceptSymbol(","));
        ExpectSymbol(")");
        return s;
    }

    CreateTableStatement ParseCreateTable() {
        CreateTableStatement s;
        s.Table = ParseTableName();
        ExpectSymbol("(");
        do {
            if (Peek().IsWord("PRIMARY") || Peek().IsWord("CONSTRAINT")) {
                if (AcceptWord("CONSTRAINT")) ExpectName("a constraint name");
                s.PrimaryKeyPos = Peek().Pos;
                ExpectWord("PRIMARY");
                ExpectWord("KEY");
                if (!s.PrimaryKey.empty())
                    ThrowSqlSyntax("the primary key is given twice", s.PrimaryKeyPos);
                ExpectSymbol("(");
                do
                    s.PrimaryKey.push_back(ExpectName("a column name"));
                while (AcceptSymbol(","));
                ExpectSymbol(")");
                continue;
            }
            ColumnDefinition c;
            c.Column = ExpectName("a column name");
            c.Type = ParseTypeSpec();
            for (;;) {
                if (AcceptWord("NOT")) {
                    ExpectWord("NULL");
                    c.NotNull = true;
                } else if (AcceptWord("NULL")) {
                    c.NotNull = false;
                } else if (Peek().IsWord("PRIMARY")) {
                    SourcePos pos = Next().Pos;
                    ExpectWord("KEY");
                    if (!s.PrimaryKey.empty())
                        ThrowSqlSyntax("the primary key is given twice", pos);
                    s.PrimaryKey.push_back(c.Column);
                    s.PrimaryKeyPos = pos;
                } else {
                    break;
                }
            }
            s.Columns.push_back(std::move(c));
        } while (AcceptSymbol(","));
        ExpectSymbol(")");
        return s;
    }

    DropTableStatement ParseDrop() {
        DropTableStatement s;
        ExpectWord("DROP");
        ExpectWord("TABLE");
        if (AcceptWord("IF")) {
            ExpectWord("EXISTS");
            s.IfExists = true;
        }
        s.Table = ParseTableName();
        return s;
    }
};

} // namespace

ParsedStatement ParseSql(std::string_view text) {
    return StatementParser(text).ParseStatement();
}

} // namespace corvane::store::sql
