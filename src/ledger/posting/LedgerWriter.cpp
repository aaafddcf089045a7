#include "ledger/posting/LedgerWriter.h"

#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Schema.h"
#include "store/TableDef.h"
#include "store/Value.h"
#include "store/sql/Connection.h"

namespace corvane::ledger {

using store::Statement;
using store::StatementRun;
using store::Value;

namespace {

// The history fields posting fills, in the order WriteHistory gives their values.
constexpr std::array<std::string_view, 16> HistoryFields{
    "GLHistID",         "GLAccountID", "SubAccount1ID", "SubAccount2ID", "SubAccount3ID", "GLYear",
    "GLPeriod",         "Source",      "TransType",     "JVNumber",      "TransDate",     "Amount",
    "TransDescription", "JVID",        "Reconciled",    "Reconciling"};

// The key of a year's totals, then ActualBudget, then the twelve amounts.
constexpr std::array<std::string_view, 6> TotalsKeyFields{
    "GLAccountID", "SubAccount1ID", "SubAccount2ID", "SubAccount3ID", "GLYear", "ActualBudget"};

std::string AmountField(int period) {
    return "Amount" + std::to_string(period);
}

Value Optional(const std::optional<std::int64_t>& v) {
    return v ? Value(*v) : Value();
}

// An insert of every field of the table, in its own order; the fields not given stay null.
std::string InsertAllSql(const store::TableDef& def) {
    std::string sql = "INSERT INTO main." + store::schema::QuoteIdent(def.Name) + " VALUES (";
    for (std::size_t i = 0; i < def.Fields.size(); ++i)
        sql += i ? ", ?" : "?";
    return sql + ")";
}

} // namespace

LedgerWriter::LedgerWriter(store::Database& db)
    : db_(db), histDef_(db.TableDefinition(store::Database::MainSchema, "GLHist")),
      actualDef_(db.TableDefinition(store::Database::MainSchema, "GLActual")) {
    insertHistorySql_ = InsertAllSql(histDef_);
    insertActualSql_ = InsertAllSql(actualDef_);
    for (auto name : HistoryFields)
        histFields_.push_back(FieldIndex(histDef_, name));
    for (auto name : TotalsKeyFields)
        actualFields_.push_back(FieldIndex(actualDef_, name));
    updateActualSql_ = "UPDATE main." + store::schema::QuoteIdent(actualDef_.Name) + " SET ";
    for (int p = 1; p <= 12; ++p) {
        actualFields_.push_back(FieldIndex(actualDef_, AmountField(p)));
        updateActualSql_ += (p > 1 ? ", " : "") + AmountField(p) + " = ?";
    }
    updateActualSql_ += " WHERE rowid = ?";
}

int LedgerWriter::FieldIndex(const store::TableDef& def, std::string_view name) const {
    for (std::size_t i = 0; i < def.Fields.size(); ++i)
        if (def.Fields[i].Name == name) return static_cast<int>(i);
    store::ThrowEngineError(store::errFieldNotFound, "Field '" + std::string(name) +
                                                         "' not found in table '" + def.Name + "'");
}

void LedgerWriter::WriteHistory(const Voucher& v, const HistoryRow& row) {
    const bool linked = row.CarriesVoucherId;
    lastHistoryId_ = lastHistoryId_
                         ? *lastHistoryId_ + 1
                         : db_.NextAutoInc(store::Database::MainSchema, histDef_.Name, "GLHistID");
    historyIdsPending_ = true;
    const Value given[] = {
        Value(*lastHistoryId_),
        Optional(row.Account.GLAccountID),
        Optional(row.Account.SubAccount1ID),
        Optional(row.Account.SubAccount2ID),
        Optional(row.Account.SubAccount3ID),
        Value(row.GLYear),
        Value(row.GLPeriod),
        Value(v.Source),
        row.TransType.empty() ? Value() : Value(row.TransType),
        Value(v.JVNumber),
        Value(v.TransDate),
        Value(row.Amount),
        Value(v.TransDescription),
        linked ? Value(v.JVID) : Value(),
        linked ? Value(false) : Value(),
        linked ? Value(false) : Value(),
    };
    static_assert(std::size(given) == HistoryFields.size());
    std::vector<Value> values(histDef_.Fields.size());
    for (std::size_t i = 0; i < HistoryFields.size(); ++i)
        values[static_cast<std::size_t>(histFields_[i])] = given[i];
    for (std::size_t i = 0; i < Voucher::DocumentFields.size(); ++i)
        values[static_cast<std::size_t>(FieldIndex(histDef_, Voucher::DocumentFields[i]))] =
            Optional(v.DocumentIds[i]);
    Statement& s = db_.Conn().Cached(insertHistorySql_);
    StatementRun run(s);
    s.BindAll(values);
    s.Step();
}

LedgerWriter::YearTotals& LedgerWriter::Totals(const AccountKey& account, int year) {
    TotalsKey key{account, year};
    auto it = totals_.find(key);
    if (it != totals_.end()) return it->second;
    YearTotals totals;
    std::string sql = "SELECT rowid";
    for (int p = 1; p <= 12; ++p)
        sql += ", " + AmountField(p);
    sql += " FROM main." + store::schema::QuoteIdent(actualDef_.Name) +
           " WHERE GLAccountID IS ? AND SubAccount1ID IS ? AND SubAccount2ID IS ? AND "
           "SubAccount3ID IS ? AND GLYear = ?";
    Statement& s = db_.Conn().Cached(sql);
    StatementRun run(s);
    s.BindAll({Optional(account.GLAccountID), Optional(account.SubAccount1ID),
               Optional(account.SubAccount2ID), Optional(account.SubAccount3ID), Value(year)});
    if (s.Step()) {
        totals.RowId = s.ColumnInt(0);
        for (int p = 0; p < 12; ++p) {
            Value amount = s.ColumnValue(p + 1, store::FieldType::Currency);
            if (!amount.IsNull()) totals.Amounts[static_cast<std::size_t>(p)] = amount.Money();
        }
    } else {
        totals.Changed = true; // a new row is written even when no amount changes
    }
    return totals_.emplace(key, totals).first->second;
}

void LedgerWriter::AddToTotals(const BalanceDelta& delta) {
    YearTotals& totals = Totals(delta.Account, delta.GLYear);
    if (delta.GLPeriod < 1 || delta.GLPeriod > 12) return;
    auto& amount = totals.Amounts[static_cast<std::size_t>(delta.GLPeriod - 1)];
    amount = amount.value_or(Money()) + delta.Amount;
    totals.Changed = true;
}

void LedgerWriter::Flush() {
    if (historyIdsPending_) {
        db_.NoteAutoIncValue(store::Database::MainSchema, histDef_.Name, "GLHistID",
                             *lastHistoryId_);
        historyIdsPending_ = false;
    }
    for (auto& [key, totals] : totals_) {
        if (!totals.Changed) continue;
        std::vector<Value> amounts;
        for (const auto& a : totals.Amounts)
            amounts.push_back(a ? Value(*a) : Value());
        if (totals.RowId) {
            Statement& s = db_.Conn().Cached(updateActualSql_);
            StatementRun run(s);
            amounts.push_back(Value(*totals.RowId));
            s.BindAll(amounts);
            s.Step();
        } else {
            const AccountKey& a = key.first;
            const Value keyValues[] = {Optional(a.GLAccountID),   Optional(a.SubAccount1ID),
                                       Optional(a.SubAccount2ID), Optional(a.SubAccount3ID),
                                       Value(key.second),         Value("A")};
            std::vector<Value> values(actualDef_.Fields.size());
            for (std::size_t i = 0; i < std::size(keyValues); ++i)
                values[static_cast<std::size_t>(actualFields_[i])] = keyValues[i];
            for (std::size_t p = 0; p < 12; ++p)
                values[static_cast<std::size_t>(actualFields_[std::size(keyValues) + p])] =
                    amounts[p];
            Statement& s = db_.Conn().Cached(insertActualSql_);
            StatementRun run(s);
            s.BindAll(values);
            s.Step();
            totals.RowId = db_.Conn().LastInsertRowId();
        }
        totals.Changed = false;
    }
}

std::int64_t LedgerWriter::CountHistory(std::int64_t jvid) {
    Statement& s = db_.Conn().Cached("SELECT count(*) FROM main.GLHist WHERE JVID = ?");
    StatementRun run(s);
    s.Bind(1, Value(jvid));
    s.Step();
    return s.ColumnInt(0);
}

void LedgerWriter::DeleteHistory(std::int64_t jvid) {
    Statement& s = db_.Conn().Cached("DELETE FROM main.GLHist WHERE JVID = ?");
    StatementRun run(s);
    s.Bind(1, Value(jvid));
    s.Step();
}

} // namespace corvane::ledger
