#include "store/NumberDraw.h"

#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Schema.h"
#include "store/Table.h"
#include "store/sql/Connection.h"

#include <chrono>
#include <thread>

namespace corvane::store {

CounterRepair RestartOutside(std::int64_t low, std::int64_t high, std::int64_t start) {
    return [=](std::optional<std::int64_t> stored) {
        return !stored || *stored < low || *stored > high ? start : *stored;
    };
}

CounterRepair StartWhenZero(std::int64_t start) {
    return [=](std::optional<std::int64_t> stored) {
        return !stored || *stored == 0 ? start : *stored;
    };
}

std::int64_t ControlRow::Take(const std::string& field, const CounterRepair& repair,
                              std::int64_t count) {
    std::optional<std::int64_t> stored = Peek(field);
    std::int64_t value = repair ? repair(stored) : stored.value_or(0);
    Put(field, value + count);
    return value;
}

std::optional<std::int64_t> ControlRow::Peek(const std::string& field) const {
    const Field& f = table_.FieldByName(field);
    if (f.IsNull()) return std::nullopt;
    return f.AsInteger();
}

void ControlRow::Put(const std::string& field, std::int64_t value) {
    table_.FieldByName(field).SetAsInteger(value);
}

Database& ControlRow::Db() const {
    return table_.OwnerDatabase();
}

std::string ControlTableBusyMessage(const std::string& label) {
    return "Unable to open " + label + " Control table exclusively...\nPlease try again later.";
}

void BeginDrawTransaction(Database& db) {
    constexpr int kBusyWaits = 6;
    for (int wait = 1;; ++wait) {
        try {
            db.Conn().Exec("BEGIN IMMEDIATE");
            return;
        } catch (const EngineError& e) {
            if (e.ErrorCode() != errTableLocked || wait == kBusyWaits) throw;
        }
    }
}

namespace {

// The write transaction a draw runs in: its own, unless the caller's run is under way (which
// holds the write lock already and commits the counters with the rest of its work).
class DrawTransaction {
public:
    explicit DrawTransaction(Database& db) : conn_(db.Conn()), own_(!conn_.InTransaction()) {
        if (own_) BeginDrawTransaction(db);
    }
    ~DrawTransaction() {
        if (!own_ || !conn_.InTransaction()) return;
        try {
            conn_.Exec("ROLLBACK");
        } catch (...) {
        }
    }
    DrawTransaction(const DrawTransaction&) = delete;
    DrawTransaction& operator=(const DrawTransaction&) = delete;
    void Commit() {
        if (own_) conn_.Exec("COMMIT");
        own_ = false;
    }

private:
    Connection& conn_;
    bool own_;
};

// Thrown out of an attempt for a failure of take itself, which a new attempt would not mend.
struct TakeFailed {
    std::exception_ptr error;
};

bool AttemptDraw(Database& db, const std::string& controlTable, const ControlTake& take) {
    try {
        DrawTransaction transaction(db);
        Table ctl(db, controlTable);
        ctl.SetExclusive(true);
        ctl.Open();
        if (ctl.IsEmpty())
            ctl.Append();
        else
            ctl.Edit();
        ControlRow row(ctl);
        try {
            take(row);
        } catch (...) {
            ctl.Cancel();
            throw TakeFailed{std::current_exception()};
        }
        ctl.Post();
        ctl.Close();
        transaction.Commit();
        return true;
    } catch (const TakeFailed&) {
        throw;
    } catch (const EngineError&) {
        return false;
    }
}

} // namespace

bool TryDrawFromControl(Database& db, const std::string& controlTable, const ControlRetry& retry,
                        const ControlTake& take) {
    const int attempts = retry.Attempts < 1 ? 1 : retry.Attempts;
    for (int attempt = 1; attempt <= attempts; ++attempt) {
        try {
            if (AttemptDraw(db, controlTable, take)) return true;
        } catch (const TakeFailed& failed) {
            std::rethrow_exception(failed.error);
        }
        if (attempt < attempts && retry.PauseMs > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(retry.PauseMs));
    }
    return false;
}

bool DrawFromControl(Database& db, const std::string& controlTable, const ControlRetry& retry,
                     const ControlTake& take, const RetryQuestion& askRetry) {
    while (!TryDrawFromControl(db, controlTable, retry, take))
        if (!askRetry || !askRetry(ControlTableBusyMessage(retry.Label))) return false;
    return true;
}

std::int64_t DrawMaxPlusOne(Database& db, const std::string& table, const std::string& field) {
    Connection& conn = db.Conn();
    if (!conn.InTransaction())
        ThrowEngineError(errTransaction, "The highest " + field + " of " + table +
                                             " is drawn only inside the transaction that saves "
                                             "the row");
    const TableDef& def = db.TableDefinition(Database::MainSchema, table);
    const FieldDef* key = def.FindField(field);
    if (!key) ThrowEngineError(errFieldNotFound, "Field '" + field + "' not found in " + def.Name);
    Statement& s =
        conn.Cached("SELECT max(" + schema::QuoteIdent(key->Name) + ") FROM " +
                    schema::QuoteIdent(Database::MainSchema) + "." + schema::QuoteIdent(def.Name));
    StatementRun run(s);
    s.Step();
    return s.ColumnIsNull(0) ? 1 : s.ColumnInt(0) + 1;
}

} // namespace corvane::store
