#include "store/Table.h"

#include "store/Database.h"
#include "store/FilterExpression.h"
#include "store/LockManager.h"
#include "store/NumberDraw.h"
#include "store/Schema.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyTables.h"

#include <algorithm>

namespace corvane::store {

namespace {
// Rows read ahead of a move; a list page is about this size.
constexpr std::size_t ReadAhead = 32;
// Rows kept around the current one before the far end of the window is dropped.
constexpr std::size_t MaxWindow = 1024;

std::string StripExtension(const std::string& name) {
    if (name.size() > 4 && SameName(std::string_view(name).substr(name.size() - 4), ".DAT"))
        return name.substr(0, name.size() - 4);
    return name;
}
} // namespace

// Follows the master cursor: each move of the master gives the detail its new rows.
class Table::MasterLink : public DataSetObserver {
public:
    explicit MasterLink(Table& detail) : detail_(detail) {}
    void DataSetNotify(DataSet&, DataEvent event, Field* field) override {
        switch (event) {
        case DataEvent::RecordChanged:
        case DataEvent::DataSetChanged:
        case DataEvent::StateChanged:
            detail_.FollowMaster();
            break;
        case DataEvent::FieldChanged:
            if (field &&
                std::any_of(detail_.masterFields_.begin(), detail_.masterFields_.end(),
                            [&](const std::string& n) { return SameName(n, field->FieldName()); }))
                detail_.FollowMaster();
            break;
        case DataEvent::DataSetClosed:
            break;
        }
    }

private:
    Table& detail_;
};

Table::Table(Database& db, std::string tableName) : db_(db), databaseName_(db.DatabaseName()) {
    SetTableName(tableName);
}

Table::~Table() {
    if (master_) master_->RemoveObserver(masterLink_.get());
    // The handlers belong to the form that owns this cursor, and by now the parts of that form
    // they reach may be gone: closing here, with a row still in edit, must not call them.
    DropHandlers();
    try {
        Close();
    } catch (...) {
        // A destructor cannot report; the locks die with the file description anyway.
    }
}

void Table::SetTableName(const std::string& name) {
    if (Active()) FailState("Cannot change the table name of an open table");
    tableName_ = StripExtension(name);
}

void Table::SetDatabaseName(const std::string& name) {
    if (Active()) FailState("Cannot change the database of an open table");
    databaseName_ = name;
}

void Table::SetExclusive(bool exclusive) {
    if (Active()) FailState("Cannot change exclusive use of an open table");
    exclusive_ = exclusive;
}

bool Table::Exists() {
    return db_.TableExists(Database::SchemaFor(databaseName_), tableName_);
}

const TableDef& Table::Definition() const {
    if (!def_) FailState("Table '" + tableName_ + "' is not open");
    return *def_;
}

std::string Table::QualifiedName() const {
    return schema::QuoteIdent(schemaName_) + "." + schema::QuoteIdent(def_->Name);
}

// ----- opening

void Table::DoOpen() {
    if (!db_.Connected()) FailState("Database '" + db_.DatabaseName() + "' is not open");
    if (tableName_.empty()) FailState("No table name given");
    schemaName_ = std::string(Database::SchemaFor(databaseName_));
    def_ = std::make_unique<TableDef>(db_.TableDefinition(schemaName_, tableName_));
    slot_ = db_.LockSlot(schemaName_, def_->Name);
    if (slot_ >= 0) {
        db_.Locks().AcquireOpen(slot_, def_->Name, this, exclusive_);
        openHeld_ = true;
    }
    try {
        if (StoredFieldCount() == 0) {
            // The database keeps no display formats: a company table shows as declared.
            const TableDef* declared = schemaName_ == Database::MemorySchema
                                           ? nullptr
                                           : tables::FindCompanyTable(def_->Name);
            for (const auto& f : def_->Fields) {
                Field& field = AddStoredField(f.Name, f.Type, f.Size, f.Required);
                if (const FieldDef* shown = declared ? declared->FindField(f.Name) : nullptr)
                    field.DisplayFormat = shown->DisplayFormat;
            }
        } else if (StoredFieldCount() != static_cast<int>(def_->Fields.size())) {
            FailState("The fields of table '" + def_->Name +
                      "' have changed since it was last open");
        }
        selectList_ = "rowid";
        for (const auto& f : def_->Fields)
            selectList_ += ", " + schema::QuoteIdent(f.Name);
        SelectIndex(indexName_);
        SetFilterCondition(Filter(), Filtered());
        RebuildBaseCondition();
    } catch (...) {
        DoClose();
        throw;
    }
    db_.RegisterCursor(this);
}

void Table::DoClose() {
    if (slot_ >= 0 && db_.Connected()) {
        auto& locks = db_.Locks();
        locks.UnlockAllRecords(this);
        if (tableLocked_) locks.UnlockTable(slot_, this);
        if (openHeld_) locks.ReleaseOpen(slot_, this);
    }
    tableLocked_ = false;
    openHeld_ = false;
    db_.UnregisterCursor(this);
    window_.clear();
    pos_ = 0;
}

void Table::SelectIndex(const std::string& name) {
    const IndexDef* ix = def_->FindIndex(name);
    if (!ix && !name.empty())
        ThrowEngineError(errIndexNotFound,
                         "Index '" + name + "' not found for table '" + def_->Name + "'");
    index_ = ix;
    order_ = KeyOrder(*def_, ix);
    keyList_ = "rowid";
    for (const auto& t : order_.Terms())
        if (t.Field >= 0)
            keyList_ +=
                ", " + schema::QuoteIdent(def_->Fields[static_cast<std::size_t>(t.Field)].Name);
}

void Table::RebuildBaseCondition() {
    SqlCondition base;
    // A range set on a detail holds until the master moves again (FollowMaster drops it).
    if (range_) {
        base = order_.Range(range_->first, range_->second);
    } else if (master_ && master_->Active()) {
        std::vector<Value> keys;
        for (const auto& name : masterFields_)
            keys.push_back(master_->FieldByName(name).AsValue());
        if (static_cast<int>(keys.size()) > order_.KeyFieldCount())
            FailState("The index of '" + def_->Name + "' has fewer fields than the master link");
        base = order_.Range(keys, keys);
    }
    baseCondition_ = base.And(filterCondition_);
    countCondition_ = base.And(countFilter_);
}

// A filter that many rows pass is read along the order index, each row tested, so that a page
// of a long list comes at once; a filter that few rows pass is read through its own indexes and
// its rows sorted, which is then cheap. Counting always goes through the filter's indexes.
void Table::SetFilterCondition(const std::string& expression, bool filtered) {
    filterCondition_ = {};
    countFilter_ = {};
    if (expression.empty()) return;
    SqlFragment indexed = CompileFilter(expression, *def_);
    if (!filtered) return;
    countFilter_ = {indexed.Sql, indexed.Params};
    filterCondition_ = countFilter_;
    if (ManyRowsPass(countFilter_)) {
        SqlFragment tested = CompileFilter(expression, *def_, FilterTerms::Tested);
        filterCondition_ = {tested.Sql, tested.Params};
    }
}

bool Table::ManyRowsPass(const SqlCondition& filter) {
    // Past this many rows a sort costs more than walking the order index past the rows that fail.
    constexpr int Many = 1000;
    Statement& s =
        db_.Conn().Cached("SELECT count(*) FROM (SELECT 1 FROM " + QualifiedName() + " WHERE " +
                          filter.Sql + " LIMIT " + std::to_string(Many + 1) + ")");
    StatementRun run(s);
    s.BindAll(filter.Params);
    s.Step();
    return s.ColumnInt(0) > Many;
}

// ----- reading

KeyOrder::Position Table::PositionOf(const Row& row) const {
    KeyOrder::Position p;
    for (const auto& t : order_.Terms())
        if (t.Field >= 0) p.Keys.push_back(row.Values[static_cast<std::size_t>(t.Field)]);
    p.RowId = row.RowId;
    return p;
}

std::vector<Table::Row> Table::RunRows(const SqlCondition& where, bool reverse, std::size_t limit,
                                       bool keysOnly) {
    std::string sql = "SELECT " + (keysOnly ? keyList_ : selectList_) + " FROM " + QualifiedName();
    if (!where.Empty()) sql += " WHERE " + where.Sql;
    sql += " ORDER BY " + order_.OrderBy(reverse) + " LIMIT ?";
    Statement& s = db_.Conn().Cached(sql);
    StatementRun run(s);
    s.BindAll(where.Params);
    s.Bind(static_cast<int>(where.Params.size()) + 1, Value(static_cast<std::int64_t>(limit)));
    std::vector<Row> rows;
    const auto& fields = def_->Fields;
    while (s.Step()) {
        Row r;
        r.RowId = s.ColumnInt(0);
        if (keysOnly) {
            r.Values.resize(fields.size());
            int column = 1;
            for (const auto& t : order_.Terms())
                if (t.Field >= 0)
                    r.Values[static_cast<std::size_t>(t.Field)] =
                        s.ColumnValue(column++, fields[static_cast<std::size_t>(t.Field)].Type);
        } else {
            r.Values.reserve(fields.size());
            for (std::size_t i = 0; i < fields.size(); ++i)
                r.Values.push_back(s.ColumnValue(static_cast<int>(i) + 1, fields[i].Type));
        }
        rows.push_back(std::move(r));
    }
    return rows;
}

std::vector<Table::Row> Table::Read(const std::optional<Row>& from, bool forward, std::size_t count,
                                    bool& exhausted, const SqlCondition& extra, bool keysOnly) {
    std::vector<Row> out;
    exhausted = false;
    std::optional<Row> after = from;
    SqlCondition where = baseCondition_.And(extra);
    while (out.size() < count) {
        std::size_t want = count - out.size();
        std::vector<Row> raw;
        // Every read is a seek on the index: from the start, in the groups of the first key;
        // after a row, in the groups that follow its key.
        auto groups =
            after ? (forward ? order_.After(PositionOf(*after)) : order_.Before(PositionOf(*after)))
                  : order_.Everything(forward);
        for (const auto& group : groups) {
            auto part = RunRows(where.And(group), !forward, want - raw.size(), keysOnly);
            for (auto& r : part)
                raw.push_back(std::move(r));
            if (raw.size() == want) break;
        }
        bool reachedEnd = raw.size() < want;
        if (!raw.empty()) after = raw.back();
        for (auto& r : raw)
            if (keysOnly || AcceptRow(r)) out.push_back(std::move(r));
        if (reachedEnd) {
            exhausted = true;
            break;
        }
    }
    return out;
}

std::optional<Table::Row> Table::ReadRowId(std::int64_t rowId, bool withinView) {
    SqlCondition where{"rowid = ?", {Value(rowId)}};
    if (withinView) where = baseCondition_.And(where);
    auto rows = RunRows(where, false, 1);
    if (rows.empty()) return std::nullopt;
    if (withinView && !AcceptRow(rows.front())) return std::nullopt;
    return std::move(rows.front());
}

void Table::ResetWindow(std::optional<Row> row) {
    window_.clear();
    pos_ = 0;
    windowAtStart_ = windowAtEnd_ = !row.has_value();
    if (row) window_.push_back(std::move(*row));
}

std::optional<Table::Row> Table::DoFirst() {
    bool exhausted = false;
    window_ = Read(std::nullopt, true, ReadAhead, exhausted);
    pos_ = 0;
    windowAtStart_ = true;
    windowAtEnd_ = exhausted;
    SetEdges(true, window_.empty());
    if (window_.empty()) return std::nullopt;
    return window_.front();
}

std::optional<Table::Row> Table::DoLast() {
    bool exhausted = false;
    window_ = Read(std::nullopt, false, ReadAhead, exhausted);
    std::reverse(window_.begin(), window_.end());
    pos_ = window_.empty() ? 0 : window_.size() - 1;
    windowAtEnd_ = true;
    windowAtStart_ = exhausted;
    SetEdges(window_.empty(), true);
    if (window_.empty()) return std::nullopt;
    return window_.back();
}

int Table::DoMoveBy(int distance, std::optional<Row>& row) {
    if (window_.empty()) {
        SetEdges(true, true);
        return 0;
    }
    bool forward = distance > 0;
    std::size_t wanted = static_cast<std::size_t>(forward ? distance : -distance);
    std::size_t moved = 0;
    while (moved < wanted) {
        std::size_t room = forward ? window_.size() - 1 - pos_ : pos_;
        if (room > 0) {
            std::size_t step = std::min(room, wanted - moved);
            pos_ = forward ? pos_ + step : pos_ - step;
            moved += step;
            continue;
        }
        if (forward ? windowAtEnd_ : windowAtStart_) break;
        if (wanted - moved > ReadAhead && !FiltersRows()) {
            moved += static_cast<std::size_t>(SkipByKeys(forward, wanted - moved));
            break;
        }
        bool exhausted = false;
        std::size_t chunk = std::clamp(wanted - moved, ReadAhead, MaxWindow);
        auto more = Read(forward ? window_.back() : window_.front(), forward, chunk, exhausted);
        if (forward) {
            windowAtEnd_ = exhausted;
            for (auto& r : more)
                window_.push_back(std::move(r));
            if (window_.size() > MaxWindow) {
                std::size_t drop = std::min(window_.size() - MaxWindow, pos_);
                window_.erase(window_.begin(), window_.begin() + static_cast<long>(drop));
                pos_ -= drop;
                if (drop) windowAtStart_ = false;
            }
        } else {
            windowAtStart_ = exhausted;
            std::reverse(more.begin(), more.end());
            pos_ += more.size();
            window_.insert(window_.begin(), std::make_move_iterator(more.begin()),
                           std::make_move_iterator(more.end()));
            if (window_.size() > MaxWindow) {
                std::size_t drop = std::min(window_.size() - MaxWindow, window_.size() - 1 - pos_);
                window_.erase(window_.end() - static_cast<long>(drop), window_.end());
                if (drop) windowAtEnd_ = false;
            }
        }
        if (more.empty()) break;
    }
    bool reachedEdge = moved < wanted;
    if (forward)
        SetEdges(moved > 0 ? false : Bof(), reachedEdge);
    else
        SetEdges(reachedEdge, moved > 0 ? false : Eof());
    row = window_[pos_];
    return forward ? static_cast<int>(moved) : -static_cast<int>(moved);
}

int Table::SkipByKeys(bool forward, std::size_t distance) {
    bool exhausted = false;
    Row from = forward ? window_.back() : window_.front();
    auto keys = Read(from, forward, distance, exhausted, {}, true);
    if (keys.empty()) {
        (forward ? windowAtEnd_ : windowAtStart_) = true;
        return 0;
    }
    auto row = ReadRowId(keys.back().RowId, false);
    if (!row) return 0; // gone between the two reads: stay, the next move reads again
    window_.assign(1, std::move(*row));
    pos_ = 0;
    windowAtStart_ = !forward && keys.size() < distance;
    windowAtEnd_ = forward && keys.size() < distance;
    return static_cast<int>(keys.size());
}

std::int64_t Table::DoRecordCount() {
    if (FiltersRows()) {
        // A filter handler decides row by row: there is nothing to do but read them.
        std::int64_t n = 0;
        std::optional<Row> after;
        for (;;) {
            bool exhausted = false;
            auto rows = Read(after, true, MaxWindow, exhausted);
            n += static_cast<std::int64_t>(rows.size());
            if (exhausted || rows.empty()) break;
            after = rows.back();
        }
        return n;
    }
    std::string sql = "SELECT count(*) FROM " + QualifiedName();
    if (!countCondition_.Empty()) sql += " WHERE " + countCondition_.Sql;
    Statement& s = db_.Conn().Cached(sql);
    StatementRun run(s);
    s.BindAll(countCondition_.Params);
    s.Step();
    return s.ColumnInt(0);
}

std::optional<std::int64_t> Table::RowNumber() {
    // In edit or insert the position is that of the row the cursor stands on (a new row goes
    // below it).
    if (!Active() || State() == DataSetState::CalcFields || FiltersRows() || window_.empty())
        return std::nullopt;
    // The rows before a position are a few disjoint seeks on the index; each is counted there.
    std::int64_t n = 0;
    for (const auto& group : order_.Before(PositionOf(window_[pos_]))) {
        SqlCondition where = countCondition_.And(group);
        std::string sql = "SELECT count(*) FROM " + QualifiedName() + " WHERE " + where.Sql;
        Statement& s = db_.Conn().Cached(sql);
        StatementRun run(s);
        s.BindAll(where.Params);
        s.Step();
        n += s.ColumnInt(0);
    }
    return n;
}

std::optional<Table::Row> Table::DoLocate(const std::vector<int>& fields,
                                          const std::vector<Value>& values, bool caseInsensitive) {
    SqlCondition match;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto& f = def_->Fields[static_cast<std::size_t>(fields[i])];
        std::string column = schema::QuoteIdent(f.Name);
        if (caseInsensitive && IsTextType(f.Type)) column += " COLLATE NOCASE";
        if (values[i].IsNull())
            match = match.And({column + " IS NULL", {}});
        else
            match = match.And({column + " = ?", {values[i]}});
    }
    bool exhausted = false;
    auto rows = Read(std::nullopt, true, 1, exhausted, match);
    if (rows.empty()) return std::nullopt;
    return std::move(rows.front());
}

void Table::DoGoto(const Row& row) {
    ResetWindow(row);
}

std::vector<Table::Row> Table::DoRowsNear(bool forward, int count) {
    const auto& cur = CurrentRow();
    if (!cur || count <= 0) return {};
    // Served from the window where it holds them, so a grid's redraw costs no read.
    std::vector<Row> out;
    std::size_t wanted = static_cast<std::size_t>(count);
    if (!window_.empty() && window_[pos_].RowId == cur->RowId) {
        if (forward)
            for (std::size_t i = pos_ + 1; i < window_.size() && out.size() < wanted; ++i)
                out.push_back(window_[i]);
        else
            for (std::size_t i = pos_; i-- > 0 && out.size() < wanted;)
                out.push_back(window_[i]);
        if (out.size() == wanted || (forward ? windowAtEnd_ : windowAtStart_)) return out;
    }
    bool exhausted = false;
    auto more = Read(out.empty() ? *cur : out.back(), forward, wanted - out.size(), exhausted);
    for (auto& r : more)
        out.push_back(std::move(r));
    return out;
}

std::optional<Table::Row> Table::DoRefresh() {
    const auto& cur = CurrentRow();
    if (!cur) return DoFirst();
    if (auto row = ReadRowId(cur->RowId, true)) {
        ResetWindow(row);
        SetEdges(false, false);
        return row;
    }
    // The row is gone or left the view: stand on the one that took its place.
    bool exhausted = false;
    auto next = Read(cur, true, 1, exhausted);
    if (!next.empty()) {
        ResetWindow(next.front());
        SetEdges(false, false);
        return next.front();
    }
    return DoLast();
}

void Table::DoFilterChanged(const std::string& expression, bool filtered) {
    SetFilterCondition(expression, filtered);
    RebuildBaseCondition();
}

// ----- moving the view

void Table::SetIndexName(const std::string& name) {
    if (!Active()) {
        indexName_ = name;
        return;
    }
    CheckBrowseMode();
    SelectIndex(name);
    indexName_ = name;
    range_.reset();
    RebuildBaseCondition();
    // The same record, now in the order of the new index.
    std::optional<Row> row;
    if (CurrentRow()) row = ReadRowId(CurrentRow()->RowId, true);
    if (row) {
        ResetWindow(row);
        SetEdges(false, false);
        SetCurrent(std::move(row));
    } else {
        SetCurrent(DoFirst());
    }
    Notify(DataEvent::DataSetChanged);
}

void Table::SetRange(const std::vector<Value>& start, const std::vector<Value>& end) {
    CheckActive();
    CheckBrowseMode();
    auto coerce = [&](const std::vector<Value>& in) {
        if (static_cast<int>(in.size()) > order_.KeyFieldCount())
            ThrowEngineError(errInvalidValue, "The range has more values than the index '" +
                                                  indexName_ + "' of table '" + def_->Name +
                                                  "' has fields");
        std::vector<Value> out;
        for (std::size_t i = 0; i < in.size(); ++i) {
            int field = order_.Terms()[i].Field;
            out.push_back(
                in[i].IsNull() ? in[i] : Fields()[static_cast<std::size_t>(field)]->Coerce(in[i]));
        }
        return out;
    };
    range_ = std::make_pair(coerce(start), coerce(end));
    RebuildBaseCondition();
    if (BeforeScroll) BeforeScroll(*this);
    SetCurrent(DoFirst());
    Notify(DataEvent::DataSetChanged);
    Scrolled();
}

void Table::CancelRange() {
    CheckActive();
    CheckBrowseMode();
    range_.reset();
    RebuildBaseCondition();
    SetCurrent(DoRefresh());
    Notify(DataEvent::DataSetChanged);
}

void Table::SetMasterSource(DataSet* master, const std::string& masterFields) {
    if (master_) master_->RemoveObserver(masterLink_.get());
    master_ = master;
    masterFields_ = SplitFieldList(masterFields);
    if (!master_) {
        masterLink_.reset();
        if (Active()) {
            RebuildBaseCondition();
            SetCurrent(DoFirst());
            Notify(DataEvent::DataSetChanged);
        }
        return;
    }
    masterLink_ = std::make_unique<MasterLink>(*this);
    master_->AddObserver(masterLink_.get());
    if (Active()) FollowMaster();
}

void Table::FollowMaster() {
    if (!Active() || !master_) return;
    CheckBrowseMode();
    // The master's row decides the view; a range set on the detail gives way to it.
    range_.reset();
    RebuildBaseCondition();
    SetCurrent(DoFirst());
    Notify(DataEvent::DataSetChanged);
    Scrolled();
}

void Table::DoInitNewRecord() {
    if (!master_ || !master_->Active() || !index_) return;
    for (std::size_t i = 0; i < masterFields_.size() && i < index_->Fields.size(); ++i) {
        Field& detailField = FieldByName(index_->Fields[i]);
        SetBufferValue(detailField.Index(), master_->FieldByName(masterFields_[i]).AsValue());
    }
}

void Table::DatabaseRolledBack() {
    if (!Active() || State() != DataSetState::Browse) return;
    SetCurrent(DoRefresh());
    Notify(DataEvent::DataSetChanged);
}

// ----- locks

void Table::LockTable() {
    CheckActive();
    if (slot_ < 0 || tableLocked_) return;
    db_.Locks().LockTable(slot_, def_->Name, this);
    tableLocked_ = true;
}

void Table::UnlockTable() {
    if (!tableLocked_) return;
    db_.Locks().UnlockTable(slot_, this);
    tableLocked_ = false;
}

// ----- writing

void Table::FailWrite(const EngineError& e, const char* what) {
    if (e.ErrorCode() == errKeyViolation) {
        std::string detail = e.what();
        auto colon = detail.rfind(": ");
        std::string columns = colon == std::string::npos ? std::string() : detail.substr(colon + 2);
        std::string prefix = def_->Name + ".";
        for (std::size_t p; (p = columns.find(prefix)) != std::string::npos;)
            columns.erase(p, prefix.size());
        ThrowEngineError(errKeyViolation,
                         "A record with the same key already exists in table '" + def_->Name + "'" +
                             (columns.empty() ? std::string() : " (" + columns + ")"));
    }
    ThrowEngineError(e.ErrorCode(), std::string(what) + " '" + def_->Name + "': " + e.what());
}

Table::Row Table::DoInsertRow(std::vector<Value>& values) {
    std::optional<LockManager::WriteGuard> guard;
    if (slot_ >= 0) guard.emplace(db_.Locks().GuardWrite(slot_, def_->Name));
    auto& conn = db_.Conn();
    bool autoInc = std::any_of(def_->Fields.begin(), def_->Fields.end(),
                               [](const FieldDef& f) { return f.Type == FieldType::AutoInc; });
    const int drawn = drawnKey_.empty() ? -1 : def_->FieldIndex(drawnKey_);
    const bool drawKey = drawn >= 0 && values[static_cast<std::size_t>(drawn)].IsNull();
    // A key drawn as the highest + 1 is read and used under one write lock: its own transaction,
    // unless a run's transaction holds the lock already.
    const bool ownTransaction = drawKey && !conn.InTransaction();
    // A counter drawn for a row that is then refused must not be lost: both go or neither.
    // Inside a run's transaction a refused row only leaves a gap, which costs nothing, so the
    // savepoint is spared there.
    bool savepoint = autoInc && !ownTransaction && !db_.InTransaction();
    auto step = [&](const char* sql) {
        Statement& s = conn.Cached(sql);
        StatementRun run(s);
        s.Step();
    };
    if (ownTransaction) BeginDrawTransaction(db_);
    if (savepoint) step("SAVEPOINT corvane_insert");
    try {
        if (drawKey)
            values[static_cast<std::size_t>(drawn)] =
                Value(DrawMaxPlusOne(db_, def_->Name, def_->Fields[drawn].Name));
        for (std::size_t i = 0; i < def_->Fields.size(); ++i) {
            const auto& f = def_->Fields[i];
            if (f.Type != FieldType::AutoInc) continue;
            if (values[i].IsNull())
                values[i] = Value(db_.NextAutoInc(schemaName_, def_->Name, f.Name));
            else
                db_.NoteAutoIncValue(schemaName_, def_->Name, f.Name, values[i].Int());
        }
        std::string sql = "INSERT INTO " + QualifiedName() + " VALUES (";
        for (std::size_t i = 0; i < values.size(); ++i)
            sql += i ? ", ?" : "?";
        sql += ")";
        Statement& s = conn.Cached(sql);
        StatementRun run(s);
        s.BindAll(values);
        s.Step();
        if (savepoint) step("RELEASE corvane_insert");
        if (ownTransaction) conn.Exec("COMMIT");
    } catch (const EngineError& e) {
        if (savepoint) {
            step("ROLLBACK TO corvane_insert");
            step("RELEASE corvane_insert");
        }
        if (ownTransaction && conn.InTransaction()) conn.Exec("ROLLBACK");
        for (std::size_t i = 0; i < def_->Fields.size(); ++i)
            if ((def_->Fields[i].Type == FieldType::AutoInc || static_cast<int>(i) == drawn) &&
                Buffer()[i].IsNull())
                values[i] = Value();
        FailWrite(e, "Unable to add a record to");
    }
    return Row{conn.LastInsertRowId(), values};
}

void Table::DoUpdateRow(const Row& before, const std::vector<Value>& values) {
    std::string sql;
    std::vector<Value> params;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i] == before.Values[i]) continue;
        sql += sql.empty() ? "" : ", ";
        sql += schema::QuoteIdent(def_->Fields[i].Name) + " = ?";
        params.push_back(values[i]);
    }
    if (sql.empty()) return;
    std::optional<LockManager::WriteGuard> guard;
    if (slot_ >= 0) guard.emplace(db_.Locks().GuardWrite(slot_, def_->Name));
    try {
        for (std::size_t i = 0; i < def_->Fields.size(); ++i)
            if (def_->Fields[i].Type == FieldType::AutoInc && !values[i].IsNull() &&
                values[i] != before.Values[i])
                db_.NoteAutoIncValue(schemaName_, def_->Name, def_->Fields[i].Name,
                                     values[i].Int());
        Statement& s =
            db_.Conn().Cached("UPDATE " + QualifiedName() + " SET " + sql + " WHERE rowid = ?");
        StatementRun run(s);
        params.push_back(Value(before.RowId));
        s.BindAll(params);
        s.Step();
    } catch (const EngineError& e) {
        FailWrite(e, "Unable to change a record of");
    }
}

std::optional<Table::Row> Table::DoLockForEdit(const Row& current) {
    if (slot_ >= 0) db_.Locks().LockRecord(slot_, current.RowId, this);
    try {
        return ReadRowId(current.RowId, false);
    } catch (...) {
        DoUnlock(current);
        throw;
    }
}

void Table::DoUnlock(const Row& current) {
    if (slot_ >= 0) db_.Locks().UnlockRecord(slot_, current.RowId, this);
}

void Table::DoDeleteRow(const Row& row) {
    auto stored = DoLockForEdit(row);
    try {
        if (!stored || stored->Values != row.Values)
            ThrowEngineError(errRecordChanged, stored ? "Record has been changed by another user"
                                                      : "Record has been deleted by another user");
        std::optional<LockManager::WriteGuard> guard;
        if (slot_ >= 0) guard.emplace(db_.Locks().GuardWrite(slot_, def_->Name));
        Statement& s = db_.Conn().Cached("DELETE FROM " + QualifiedName() + " WHERE rowid = ?");
        StatementRun run(s);
        s.Bind(1, Value(row.RowId));
        s.Step();
    } catch (...) {
        DoUnlock(row);
        throw;
    }
    DoUnlock(row);
}

std::optional<Table::Row> Table::DoAfterDelete(const Row& deleted) {
    bool exhausted = false;
    auto next = Read(deleted, true, ReadAhead, exhausted);
    if (!next.empty()) {
        window_ = std::move(next);
        pos_ = 0;
        windowAtStart_ = false;
        windowAtEnd_ = exhausted;
        SetEdges(false, false);
        return window_.front();
    }
    auto prior = Read(deleted, false, 1, exhausted);
    if (!prior.empty()) {
        ResetWindow(prior.front());
        windowAtEnd_ = true;
        SetEdges(false, true);
        return prior.front();
    }
    ResetWindow(std::nullopt);
    SetEdges(true, true);
    return std::nullopt;
}

void Table::EmptyTable() {
    CheckActive();
    CheckBrowseMode();
    if (slot_ >= 0 && !exclusive_)
        ThrowEngineError(errTableInUse,
                         "Table '" + def_->Name + "' must be opened exclusively to be emptied");
    db_.Conn().Exec("DELETE FROM " + QualifiedName());
    SetCurrent(DoFirst());
    Notify(DataEvent::DataSetChanged);
}

} // namespace corvane::store
