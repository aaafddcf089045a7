#pragma once

#include "store/DataSet.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::store {

class Database;
class Statement;
namespace sql {
struct TranslatedStatement;
}

// A named parameter of a query, ":Name" in its text, typed by the value given to it.
class Param {
public:
    explicit Param(std::string name) : name_(std::move(name)) {}
    const std::string& Name() const { return name_; }
    const Value& AsValue() const { return value_; }
    bool IsNull() const { return value_.IsNull(); }
    void SetValue(Value v) { value_ = std::move(v); }
    void SetAsInteger(std::int64_t v) { value_ = Value(v); }
    void SetAsFloat(double v) { value_ = Value(v); }
    void SetAsMoney(Money v) { value_ = Value(v); }
    void SetAsDate(Date v) { value_ = Value(v); }
    void SetAsString(std::string v) { value_ = Value(std::move(v)); }
    void SetAsBoolean(bool v) { value_ = Value(v); }
    void Clear() { value_ = Value(); }

private:
    std::string name_;
    Value value_;
};

// An SQL statement in the store's dialect. A SELECT opens as a read-only cursor over its
// result, read in full when it opens (so that no read stays open while the user works);
// other statements run with ExecSQL. The text may be changed while the query is closed.
class Query : public DataSet {
public:
    explicit Query(Database& db, std::string sql = {});
    ~Query() override;
    // A prepared statement belongs to the connection it was made on: the database's close drops
    // it, and the next open prepares it again on the new connection.
    void DatabaseClosing() override;

    Database& OwnerDatabase() const { return db_; }
    void SetSQL(const std::string& text);
    const std::string& SQL() const { return sql_; }

    Param& ParamByName(std::string_view name);
    Param* FindParam(std::string_view name);
    std::vector<Param>& Params() { return params_; }

    // Translates and prepares the statement once, for a batch that re-runs it with new
    // parameter values.
    void Prepare();
    void UnPrepare();
    bool Prepared() const { return prepared_ != nullptr; }

    // Runs a statement that returns no rows (or ignores them).
    void ExecSQL();
    // Runs the SELECT and hands its rows over one by one in the order of the result, each value
    // as its column's type, keeping none: for results too long to hold, such as a whole history.
    // The query stays closed.
    void ForEachRow(const std::function<void(const std::vector<Value>& row)>& visit);
    int RowsAffected() const { return rowsAffected_; }

    int MaxRowCount = -1;

protected:
    void DoOpen() override;
    void DoClose() override;
    std::optional<Row> DoFirst() override;
    std::optional<Row> DoLast() override;
    int DoMoveBy(int distance, std::optional<Row>& row) override;
    std::int64_t DoRecordCount() override;
    std::optional<Row> DoLocate(const std::vector<int>& fields, const std::vector<Value>& values,
                                bool caseInsensitive) override;
    void DoGoto(const Row& row) override;
    std::vector<Row> DoRowsNear(bool forward, int count) override;
    std::optional<Row> DoRefresh() override;
    void DoFilterChanged(const std::string& expression, bool filtered) override;
    std::optional<Row> DoLockForEdit(const Row& current) override;
    void DoUnlock(const Row& current) override;
    Row DoInsertRow(std::vector<Value>& values) override;
    void DoUpdateRow(const Row& before, const std::vector<Value>& values) override;
    void DoDeleteRow(const Row& row) override;
    std::optional<Row> DoAfterDelete(const Row& deleted) override;

private:
    struct Compiled;
    void BindParams(Statement& statement);
    void ReadRows();
    std::optional<Row> RowAt(std::size_t index);
    [[noreturn]] void ReadOnlyFailure() const;

    Database& db_;
    std::string sql_;
    std::vector<Param> params_;
    std::unique_ptr<Compiled> prepared_;
    std::string filterSql_;
    std::vector<Value> filterParams_;
    std::vector<Row> rows_; // the result, less the rows the filter handler hides
    std::size_t pos_ = 0;
    bool fieldsStale_ = true;
    int rowsAffected_ = 0;
};

} // namespace corvane::store
