#pragma once

#include "store/EngineError.h"
#include "store/Field.h"
#include "store/Value.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::store {

class DataSetGroup;

enum class DataSetState { Inactive, Browse, Edit, Insert, CalcFields };

// What an error handler tells the cursor to do after the store refused an edit, post or delete.
enum class DataAction { Fail, Abort, Retry };

enum class DataEvent {
    DataSetChanged, // the whole view: opened, filtered, ranged, refreshed
    RecordChanged,  // another row became current
    StateChanged,   // browse, edit, insert
    FieldChanged,   // a field of the current record took a value
    DataSetClosed,
};

// Controls, detail cursors and anything else that follows a cursor.
class DataSetObserver {
public:
    virtual ~DataSetObserver() = default;
    virtual void DataSetNotify(DataSet& dataSet, DataEvent event, Field* field) = 0;
};

struct LocateOptions {
    bool CaseInsensitive = false;
};

// The base of table cursors and queries: fields by name, the current record and its state, the
// events that carry the business rules, and the notifications that keep controls in step.
class DataSet {
public:
    virtual ~DataSet();
    DataSet(const DataSet&) = delete;
    DataSet& operator=(const DataSet&) = delete;

    std::string Name; // component name, such as "tblVendor"

    // ----- opening
    void Open();
    void Close();
    bool Active() const { return state_ != DataSetState::Inactive; }
    void SetActive(bool active) { active ? Open() : Close(); }
    DataSetState State() const { return state_; }
    // A record is being changed or added and not yet posted.
    bool Editing() const { return state_ == DataSetState::Edit || state_ == DataSetState::Insert; }

    // ----- moving, in the order of the active index, within range and filter
    void First();
    void Last();
    void Next();
    void Prior();
    int MoveBy(int distance); // returns the rows actually moved
    bool Eof() const { return eof_; }
    bool Bof() const { return bof_; }
    bool IsEmpty();
    std::int64_t RecordCount();

    // First match in the order of the active index, within range and filter; the record
    // stays where it was when nothing matches. Fields are separated by ';'.
    bool Locate(std::string_view fields, const std::vector<Value>& values,
                LocateOptions options = {});
    // As Locate, but the cursor does not move; null when nothing matches. Several result
    // fields are separated by ';' and LookupValues returns them all.
    Value Lookup(std::string_view keyFields, const std::vector<Value>& values,
                 std::string_view resultField);
    std::vector<Value> LookupValues(std::string_view keyFields, const std::vector<Value>& values,
                                    std::string_view resultFields);

    // Shows the rows around the current one to visit(offset), each in turn as if it were
    // current (fields and calculated fields read it), without moving the cursor and without
    // telling anyone: offset -before..-1 for the rows ahead of it, 0 for the current one, 1..after
    // for those behind it; fewer at the ends. What a grid or a drop-down list needs to draw.
    void VisitRowsAround(int before, int after, const std::function<void(int offset)>& visit);

    // ----- fields
    Field& FieldByName(std::string_view name);
    Field* FindField(std::string_view name);
    const std::vector<std::unique_ptr<Field>>& Fields() const { return fields_; }
    int FieldCount() const { return static_cast<int>(fields_.size()); }
    // Fields that exist only in the cursor; add them before Open.
    Field& AddCalculatedField(std::string name, FieldType type, int size = 0);
    Field& AddLookupField(std::string name, FieldType type, int size, std::string keyFields,
                          DataSet& lookupDataSet, std::string lookupKeyFields,
                          std::string resultField);

    // ----- editing
    void Insert();
    void Append();
    void Edit();
    void Post();
    void Cancel();
    void Delete();
    // Posts pending changes, or cancels an insert nobody touched.
    void CheckBrowseMode();
    bool Modified() const { return modified_; }
    bool ReadOnly = false;

    void Refresh();
    // The database rolled a transaction back: rows under the cursor may have changed.
    virtual void DatabaseRolledBack() {}
    // The database is closing: nothing of the cursor may outlive its connection.
    virtual void DatabaseClosing() { Close(); }

    // ----- filter; "" or Filtered false shows all rows
    void SetFilter(const std::string& expression);
    const std::string& Filter() const { return filterText_; }
    void SetFiltered(bool filtered);
    bool Filtered() const { return filtered_; }

    // ----- notifications
    void DisableControls();
    void EnableControls();
    bool ControlsDisabled() const { return disableCount_ > 0; }
    void AddObserver(DataSetObserver* observer);
    void RemoveObserver(DataSetObserver* observer);

    // ----- events
    using Handler = std::function<void(DataSet&)>;
    using ErrorHandler = std::function<void(DataSet&, EngineError&, DataAction&)>;
    Handler OnNewRecord, BeforeInsert, AfterInsert, BeforeEdit, AfterEdit, BeforePost, AfterPost,
        BeforeCancel, AfterCancel, BeforeDelete, AfterDelete, BeforeScroll, AfterScroll, AfterOpen,
        BeforeClose, AfterClose, OnCalcFields;
    // Called for each row while Filtered is on; return false to hide the row.
    std::function<bool(DataSet&)> OnFilterRecord;
    ErrorHandler OnPostError, OnEditError, OnDeleteError;
    // Forgets every handler of the data set and its fields: its owner is being taken apart and
    // nothing may call back into it any more.
    void DropHandlers();

protected:
    // Joins the group that is collecting, if any (see DataSetGroup).
    DataSet();

    // The row a cursor stands on: its values in field order and, for tables, its row id.
    struct Row {
        std::int64_t RowId = 0;
        std::vector<Value> Values; // stored fields only
    };

    // What a concrete cursor provides.
    virtual void DoOpen() = 0; // creates the stored fields (AddStoredField) and checks access
    virtual void DoClose() = 0;
    // Each returns the new current row or nothing, and sets bof/eof through SetEdges.
    virtual std::optional<Row> DoFirst() = 0;
    virtual std::optional<Row> DoLast() = 0;
    // Moves by |distance| rows from the current one; returns the rows moved.
    virtual int DoMoveBy(int distance, std::optional<Row>& row) = 0;
    virtual std::int64_t DoRecordCount() = 0;
    // The first match, without moving.
    virtual std::optional<Row> DoLocate(const std::vector<int>& fields,
                                        const std::vector<Value>& values, bool caseInsensitive) = 0;
    // Makes row (found by DoLocate) the cursor's position.
    virtual void DoGoto(const Row& row) = 0;
    // Up to |count| rows next to the current one (behind it when forward), nearest first,
    // without moving.
    virtual std::vector<Row> DoRowsNear(bool forward, int count) = 0;
    // Re-reads the current row; when it is gone, the row that now stands in its place.
    virtual std::optional<Row> DoRefresh() = 0;
    // Checks and applies a new filter before the dataset takes it: a bad expression throws and
    // changes nothing. The dataset then goes to its first row.
    virtual void DoFilterChanged(const std::string& expression, bool filtered) = 0;
    // Writes. DoLockForEdit takes the record lock and returns the row as stored now (nothing if
    // it has gone); DoUnlock releases it.
    virtual std::optional<Row> DoLockForEdit(const Row& current) = 0;
    virtual void DoUnlock(const Row& current) = 0;
    virtual Row DoInsertRow(std::vector<Value>& values) = 0;
    virtual void DoUpdateRow(const Row& before, const std::vector<Value>& values) = 0;
    virtual void DoDeleteRow(const Row& row) = 0;
    // After a delete, the row now in its place.
    virtual std::optional<Row> DoAfterDelete(const Row& deleted) = 0;
    // Called for a new record before OnNewRecord (detail cursors copy the master's key).
    virtual void DoInitNewRecord() {}
    virtual void DoCancelInsert() {}

    Field& AddStoredField(const std::string& name, FieldType type, int size, bool required);
    // Drops the stored fields (a query whose text changed); calculated ones stay.
    void ClearStoredFields();
    void SetEdges(bool bof, bool eof) { bof_ = bof, eof_ = eof; }
    // OnFilterRecord on a candidate row; true when no handler filters.
    bool AcceptRow(const Row& row);
    bool FiltersRows() const { return filtered_ && static_cast<bool>(OnFilterRecord); }
    // Makes row the current record (or none) and tells observers; no events.
    void SetCurrent(std::optional<Row> row);
    const std::optional<Row>& CurrentRow() const { return current_; }
    int StoredFieldCount() const { return storedCount_; }
    void Notify(DataEvent event, Field* field = nullptr);
    void CheckActive() const;
    [[noreturn]] void FailState(const std::string& what) const;
    // Runs an operation with the engine-error handler's Retry and Abort choices.
    void WithErrorHandler(const ErrorHandler& handler, const std::function<void()>& action);
    std::vector<int> FieldIndexes(std::string_view fieldList);
    void Scrolled(); // AfterScroll and the notification

    // A stored or calculated field's value in the buffer.
    friend class Field;
    const Value& BufferValue(int index) const;
    void SetBufferValue(int index, Value value);
    bool CanWriteField(const Field& field) const;

private:
    void CalculateFields();
    void ResetBuffer();
    void DoPostWork();
    void StartInsert();
    void FieldWritten(Field& field); // after a field of the record took a new value

    std::vector<std::unique_ptr<Field>> fields_;
    int storedCount_ = 0;
    DataSetState state_ = DataSetState::Inactive;
    std::optional<Row> current_;      // the row as read
    std::vector<Value> buffer_;       // what the fields show: stored then calculated values
    std::optional<Row> beforeInsert_; // where an insert started, to return to on Cancel
    bool bof_ = true, eof_ = true;
    bool modified_ = false;
    bool calculating_ = false;
    std::string filterText_;
    bool filtered_ = false;
    int disableCount_ = 0;
    bool pendingChange_ = false;
    std::vector<DataSetObserver*> observers_;
    friend class DataSetGroup;
    DataSetGroup* group_ = nullptr;

protected:
    void SetState(DataSetState state);
    const std::vector<Value>& Buffer() const { return buffer_; }
    std::vector<Value> StoredBuffer() const;
};

} // namespace corvane::store
