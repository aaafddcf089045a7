#pragma once

#include "store/DataSet.h"
#include "store/KeyOrder.h"
#include "store/TableDef.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {

class Database;

// A cursor on one table: rows in the order of the active index, within the active range,
// master link and filter. It reads a few rows at a time by keyset queries on the index, so
// that moving, locating and refreshing cost the same on ten rows as on a million.
class Table : public DataSet {
public:
    explicit Table(Database& db, std::string tableName = {});
    ~Table() override;

    // "Vendor" or "Vendor.DAT"; only while closed.
    void SetTableName(const std::string& name);
    const std::string& TableName() const { return tableName_; }
    // "memory" for the process's scratch tables; else the company.
    void SetDatabaseName(const std::string& name);
    const std::string& DatabaseName() const { return databaseName_; }
    Database& OwnerDatabase() const { return db_; }

    // Open as the only cursor on the table, in any process; only while closed.
    void SetExclusive(bool exclusive);
    bool Exclusive() const { return exclusive_; }

    bool Exists();
    const TableDef& Definition() const;

    // The integer key field that a new row left empty takes as the highest key + 1, drawn inside
    // the write transaction of the insert itself, so that two workstations never draw one id.
    void SetDrawnKey(const std::string& field) { drawnKey_ = field; }
    const std::string& DrawnKey() const { return drawnKey_; }

    // Empty selects the primary index. Keeps the current record.
    void SetIndexName(const std::string& name);
    const std::string& IndexName() const { return indexName_; }
    const IndexDef* ActiveIndex() const { return index_; }

    // Limits the cursor to the rows whose leading index keys lie from start to end, both
    // inclusive; goes to the first of them. Stays until CancelRange or a new range.
    void SetRange(const std::vector<Value>& start, const std::vector<Value>& end);
    void CancelRange();
    bool HasRange() const { return range_.has_value(); }

    // The cursor shows the rows whose leading index fields equal the master's fields (names
    // separated by ';') and follows each move of the master.
    void SetMasterSource(DataSet* master, const std::string& masterFields);
    DataSet* MasterSource() const { return master_; }

    // How many rows come before the current one in the cursor's order (within range, master link
    // and filter): counted on the active index, as a grid needs to place its current row after a
    // Locate. Nothing when the cursor has no current row, or a filter handler decides row by row.
    std::optional<std::int64_t> RowNumber();

    // A lock on the whole table against writes by other processes.
    void LockTable();
    void UnlockTable();
    bool TableLocked() const { return tableLocked_; }

    // Written data is on disk when each write returns; kept for the callers that flush after
    // a batch.
    void FlushBuffers() {}
    // Removes every row; the cursor must have the table exclusively.
    void EmptyTable();

    void DatabaseRolledBack() override;

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
    void DoInitNewRecord() override;

private:
    class MasterLink;

    std::string QualifiedName() const;
    void SelectIndex(const std::string& name);
    void SetFilterCondition(const std::string& expression, bool filtered);
    bool ManyRowsPass(const SqlCondition& filter);
    void RebuildBaseCondition();
    KeyOrder::Position PositionOf(const Row& row) const;
    // Reads up to |count| rows in index order from the start, or after a row (backwards: from
    // the end, or before a row, nearest first); rows the filter handler rejects are skipped.
    // exhausted tells whether the end was reached.
    std::vector<Row> Read(const std::optional<Row>& from, bool forward, std::size_t count,
                          bool& exhausted, const SqlCondition& extra = {}, bool keysOnly = false);
    // keysOnly reads just the row id and the index keys (the rest stays null): enough to know a
    // position, and served from the index alone.
    std::vector<Row> RunRows(const SqlCondition& where, bool reverse, std::size_t limit,
                             bool keysOnly = false);
    // Skips |distance| rows ahead of (or behind) the window by their keys and stands on the last.
    int SkipByKeys(bool forward, std::size_t distance);
    std::optional<Row> ReadRowId(std::int64_t rowId, bool withinView);
    void ResetWindow(std::optional<Row> row);
    void FollowMaster();
    int LockSlot() const { return slot_; }
    [[noreturn]] void FailWrite(const EngineError& e, const char* what);

    Database& db_;
    std::string tableName_;
    std::string databaseName_;
    std::string schemaName_;
    bool exclusive_ = false;
    std::string drawnKey_;
    std::unique_ptr<TableDef> def_;
    int slot_ = -1;
    std::string indexName_;
    const IndexDef* index_ = nullptr;
    KeyOrder order_;
    std::string selectList_;
    std::string keyList_;
    std::optional<std::pair<std::vector<Value>, std::vector<Value>>> range_;
    SqlCondition filterCondition_; // as rows are read (see SetFilterCondition)
    SqlCondition countFilter_;     // the same rows, served by the filter's own indexes
    SqlCondition baseCondition_;   // range, master link and filter
    SqlCondition countCondition_;  // the same rows, for counting them
    DataSet* master_ = nullptr;
    std::vector<std::string> masterFields_;
    std::unique_ptr<MasterLink> masterLink_;
    bool tableLocked_ = false;
    bool openHeld_ = false;

    // The rows around the current one, in index order; pos_ is the current row.
    std::vector<Row> window_;
    std::size_t pos_ = 0;
    bool windowAtStart_ = false; // nothing comes before window_.front()
    bool windowAtEnd_ = false;   // nothing comes after window_.back()
};

} // namespace corvane::store
