#include "store/Query.h"

#include "core/Rounding.h"
#include "store/Database.h"
#include "store/FilterExpression.h"
#include "store/LockManager.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlTranslator.h"

#include <cctype>

namespace corvane::store {

namespace {

// The schema the translator sees: the tables of the open database.
class DatabaseSchema : public sql::SchemaLookup {
public:
    explicit DatabaseSchema(Database& db) : db_(db) {}
    const TableDef* FindTable(std::string_view schemaName, std::string_view name) const override {
        return db_.FindTableDefinition(schemaName, name);
    }

private:
    Database& db_;
};

bool IsNameChar(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

// The ":Name" parameters of a text, outside quoted strings and names, in order of first use.
std::vector<std::string> ParameterNames(std::string_view text) {
    std::vector<std::string> names;
    char quote = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (quote) {
            if (c == quote) quote = 0;
            continue;
        }
        if (c == '\'' || c == '"') {
            quote = c;
            continue;
        }
        if (c != ':' || i + 1 >= text.size() || !IsNameChar(text[i + 1])) continue;
        std::size_t end = i + 1;
        while (end < text.size() && IsNameChar(text[end]))
            ++end;
        std::string name(text.substr(i + 1, end - i - 1));
        bool known = false;
        for (const auto& n : names)
            known = known || SameName(n, name);
        if (!known) names.push_back(name);
        i = end - 1;
    }
    return names;
}

} // namespace

struct Query::Compiled {
    sql::TranslatedStatement Translated;
    std::unique_ptr<Statement> Main;
    std::unique_ptr<Statement> Filtered;
};

Query::Query(Database& db, std::string sql) : db_(db) {
    ReadOnly = true;
    if (!sql.empty()) SetSQL(sql);
}

Query::~Query() {
    try {
        UnPrepare();
    } catch (...) {
    }
}

void Query::DatabaseClosing() {
    UnPrepare();
}

void Query::SetSQL(const std::string& text) {
    if (Active()) FailState("The text of an open query cannot be changed");
    UnPrepare();
    sql_ = text;
    fieldsStale_ = true;
    std::vector<Param> params;
    for (const auto& name : ParameterNames(text)) {
        Param p(name);
        if (Param* old = FindParam(name)) p.SetValue(old->AsValue());
        params.push_back(std::move(p));
    }
    params_ = std::move(params);
}

Param* Query::FindParam(std::string_view name) {
    for (auto& p : params_)
        if (SameName(p.Name(), name)) return &p;
    return nullptr;
}

Param& Query::ParamByName(std::string_view name) {
    if (Param* p = FindParam(name)) return *p;
    ThrowEngineError(errFieldNotFound, "Parameter '" + std::string(name) + "' not found");
}

void Query::Prepare() {
    if (prepared_) return;
    if (!db_.Connected()) FailState("Database '" + db_.DatabaseName() + "' is not open");
    DatabaseSchema lookup(db_);
    auto p = std::make_unique<Compiled>();
    p->Translated = sql::TranslateSql(sql_, lookup);
    using Kind = sql::TranslatedStatement::Kind;
    Kind k = p->Translated.StatementKind;
    if (k == Kind::Select || k == Kind::Insert || k == Kind::Update || k == Kind::Delete)
        p->Main = std::make_unique<Statement>(db_.Conn(), p->Translated.Sql);
    prepared_ = std::move(p);
    db_.RegisterCursor(this);
}

void Query::UnPrepare() {
    if (Active()) Close();
    if (prepared_) db_.UnregisterCursor(this);
    prepared_.reset();
    filterSql_.clear();
    filterParams_.clear();
}

void Query::BindParams(Statement& statement) {
    const auto& slots = prepared_->Translated.Params;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        Param* p = FindParam(slots[i].Name);
        Value v = p ? p->AsValue() : Value();
        if (slots[i].MoneyScaled) {
            // The parameter meets a money column, kept in ten-thousandths.
            switch (v.kind()) {
            case Value::Kind::Integer:
                v = Value(v.Int() * Money::Scale);
                break;
            case Value::Kind::Float:
                v = Value(static_cast<std::int64_t>(RoundHalfAway(v.Float() * Money::Scale)));
                break;
            default:
                break;
            }
        } else if (v.kind() == Value::Kind::Money) {
            v = Value(v.Money().ToDouble());
        }
        statement.Bind(static_cast<int>(i) + 1, v);
    }
}

// ----- a SELECT as a cursor

void Query::DoOpen() {
    Prepare();
    const auto& tr = prepared_->Translated;
    if (tr.StatementKind != sql::TranslatedStatement::Kind::Select)
        ThrowEngineError(errSqlRefused, "The statement returns no rows: it is run with ExecSQL");
    if (fieldsStale_ || StoredFieldCount() != static_cast<int>(tr.Columns.size())) {
        ClearStoredFields();
        for (const auto& c : tr.Columns) {
            // Two columns of one name (I.*, V.VendorID) stay apart as Name and Name_1.
            std::string name = c.Name;
            for (int n = 1; FindField(name); ++n)
                name = c.Name + "_" + std::to_string(n);
            AddStoredField(name, c.Type, c.Size, false);
        }
        fieldsStale_ = false;
    }
    if (!Filter().empty() && Filtered()) DoFilterChanged(Filter(), true);
    ReadRows();
}

void Query::ReadRows() {
    Statement& s = filterSql_.empty() ? *prepared_->Main : *prepared_->Filtered;
    StatementRun run(s);
    s.ClearBindings();
    BindParams(s);
    if (!filterSql_.empty())
        s.BindAll(filterParams_, static_cast<int>(prepared_->Translated.Params.size()) + 1);
    const auto& columns = prepared_->Translated.Columns;
    rows_.clear();
    while ((MaxRowCount < 0 || static_cast<int>(rows_.size()) < MaxRowCount) && s.Step()) {
        Row r;
        r.RowId = static_cast<std::int64_t>(rows_.size());
        for (std::size_t i = 0; i < columns.size(); ++i)
            r.Values.push_back(columns[i].TypeKnown
                                   ? s.ColumnValue(static_cast<int>(i), columns[i].Type)
                                   : s.ColumnNatural(static_cast<int>(i)));
        if (AcceptRow(r)) {
            r.RowId = static_cast<std::int64_t>(rows_.size());
            rows_.push_back(std::move(r));
        }
    }
    pos_ = 0;
}

void Query::ForEachRow(const std::function<void(const std::vector<Value>& row)>& visit) {
    if (Active()) Close();
    Prepare();
    if (prepared_->Translated.StatementKind != sql::TranslatedStatement::Kind::Select)
        ThrowEngineError(errSqlRefused, "The statement returns no rows: it is run with ExecSQL");
    Statement& s = *prepared_->Main;
    StatementRun run(s);
    s.ClearBindings();
    BindParams(s);
    const auto& columns = prepared_->Translated.Columns;
    std::vector<Value> row(columns.size());
    while (s.Step()) {
        for (std::size_t i = 0; i < columns.size(); ++i)
            row[i] = columns[i].TypeKnown ? s.ColumnValue(static_cast<int>(i), columns[i].Type)
                                          : s.ColumnNatural(static_cast<int>(i));
        visit(row);
    }
}

void Query::DoClose() {
    rows_.clear();
    pos_ = 0;
}

std::optional<Query::Row> Query::RowAt(std::size_t index) {
    if (index >= rows_.size()) return std::nullopt;
    pos_ = index;
    return rows_[index];
}

std::optional<Query::Row> Query::DoFirst() {
    SetEdges(true, rows_.empty());
    return RowAt(0);
}

std::optional<Query::Row> Query::DoLast() {
    SetEdges(rows_.empty(), true);
    return rows_.empty() ? std::nullopt : RowAt(rows_.size() - 1);
}

int Query::DoMoveBy(int distance, std::optional<Row>& row) {
    long target = static_cast<long>(pos_) + distance;
    long last = static_cast<long>(rows_.size()) - 1;
    long clamped = std::clamp(target, 0L, std::max(last, 0L));
    int moved = static_cast<int>(clamped - static_cast<long>(pos_));
    if (distance > 0)
        SetEdges(moved > 0 ? false : Bof(), target > last);
    else
        SetEdges(target < 0, moved < 0 ? false : Eof());
    row = RowAt(static_cast<std::size_t>(clamped));
    return moved;
}

std::int64_t Query::DoRecordCount() {
    return static_cast<std::int64_t>(rows_.size());
}

static bool SameValue(const Value& a, const Value& b, bool caseInsensitive) {
    if (caseInsensitive && a.kind() == Value::Kind::String && b.kind() == Value::Kind::String)
        return SameName(a.Str(), b.Str());
    return a == b;
}

std::optional<Query::Row> Query::DoLocate(const std::vector<int>& fields,
                                          const std::vector<Value>& values, bool caseInsensitive) {
    for (const auto& r : rows_) {
        bool match = true;
        for (std::size_t i = 0; i < fields.size() && match; ++i)
            match = SameValue(r.Values[static_cast<std::size_t>(fields[i])], values[i],
                              caseInsensitive);
        if (match) return r;
    }
    return std::nullopt;
}

void Query::DoGoto(const Row& row) {
    pos_ = static_cast<std::size_t>(row.RowId);
}

std::vector<Query::Row> Query::DoRowsNear(bool forward, int count) {
    std::vector<Row> out;
    for (int i = 1; i <= count && !rows_.empty(); ++i) {
        long at = static_cast<long>(pos_) + (forward ? i : -i);
        if (at < 0 || at >= static_cast<long>(rows_.size())) break;
        out.push_back(rows_[static_cast<std::size_t>(at)]);
    }
    return out;
}

std::optional<Query::Row> Query::DoRefresh() {
    std::size_t keep = pos_;
    ReadRows();
    if (rows_.empty()) {
        SetEdges(true, true);
        return std::nullopt;
    }
    SetEdges(false, false);
    return RowAt(std::min(keep, rows_.size() - 1));
}

void Query::DoFilterChanged(const std::string& expression, bool filtered) {
    Prepare();
    const auto& tr = prepared_->Translated;
    filterSql_.clear();
    filterParams_.clear();
    prepared_->Filtered.reset();
    if (!expression.empty()) {
        // The filter applies to the result's columns: the result stands as a table of its own.
        TableDef result;
        result.Name = "result";
        for (const auto& f : Fields())
            if (!f->IsCalculated())
                result.Fields.push_back(FieldDef{f->FieldName(), f->DataType(), f->Size(), false});
        if (result.Fields.empty())
            for (const auto& c : tr.Columns)
                result.Fields.push_back(FieldDef{c.Name, c.Type, c.Size, false});
        SqlFragment fragment = CompileFilter(expression, result);
        if (filtered) {
            // Columns are named by position, so that two columns of one name in a join stay
            // apart under the names of the fields.
            std::string names;
            for (std::size_t i = 0; i < result.Fields.size(); ++i)
                names += (i ? ", \"" : "\"") + result.Fields[i].Name + "\"";
            filterSql_ = "WITH result(" + names + ") AS (" + tr.Sql +
                         ") SELECT * FROM result WHERE " + fragment.Sql;
            filterParams_ = fragment.Params;
        }
    }
    if (!filterSql_.empty())
        prepared_->Filtered = std::make_unique<Statement>(db_.Conn(), filterSql_);
    if (Active()) ReadRows();
}

void Query::ReadOnlyFailure() const {
    FailState("The result of a query cannot be modified");
}
std::optional<Query::Row> Query::DoLockForEdit(const Row&) {
    ReadOnlyFailure();
}
void Query::DoUnlock(const Row&) {}
Query::Row Query::DoInsertRow(std::vector<Value>&) {
    ReadOnlyFailure();
}
void Query::DoUpdateRow(const Row&, const std::vector<Value>&) {
    ReadOnlyFailure();
}
void Query::DoDeleteRow(const Row&) {
    ReadOnlyFailure();
}
std::optional<Query::Row> Query::DoAfterDelete(const Row&) {
    ReadOnlyFailure();
}

// ----- statements without rows

void Query::ExecSQL() {
    if (Active()) Close();
    Prepare();
    const auto& tr = prepared_->Translated;
    using Kind = sql::TranslatedStatement::Kind;
    rowsAffected_ = 0;
    switch (tr.StatementKind) {
    case Kind::CreateTable:
        db_.CreateTable(*tr.NewTable, tr.TargetSchema);
        break;
    case Kind::CreateIndex:
        db_.CreateIndex(tr.TargetSchema, tr.TargetTable, *tr.NewIndex);
        break;
    case Kind::DropTable:
        if (db_.TableExists(tr.TargetSchema, tr.TargetTable))
            db_.DropTable(tr.TargetSchema, tr.TargetTable);
        else if (!tr.IfExists)
            ThrowEngineError(errTableNotFound, "Table '" + tr.TargetTable + "' does not exist");
        break;
    case Kind::SelectInto: {
        if (db_.TableExists(tr.TargetSchema, tr.TargetTable))
            db_.DropTable(tr.TargetSchema, tr.TargetTable);
        db_.CreateTable(*tr.NewTable, tr.TargetSchema);
        Statement s(db_.Conn(), tr.Sql);
        BindParams(s);
        while (s.Step()) {
        }
        rowsAffected_ = db_.Conn().Changes();
        break;
    }
    default: {
        // Statements that write a company table respect another process's table lock.
        std::optional<LockManager::WriteGuard> guard;
        int slot = tr.TargetTable.empty() ? -1 : db_.LockSlot(tr.TargetSchema, tr.TargetTable);
        if (slot >= 0) guard.emplace(db_.Locks().GuardWrite(slot, tr.TargetTable));
        Statement& s = *prepared_->Main;
        StatementRun run(s);
        s.ClearBindings();
        BindParams(s);
        while (s.Step()) {
        }
        rowsAffected_ = tr.StatementKind == Kind::Select ? 0 : db_.Conn().Changes();
        break;
    }
    }
}

} // namespace corvane::store
