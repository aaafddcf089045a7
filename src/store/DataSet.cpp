#include "store/DataSet.h"

#include "store/DataSetGroup.h"

#include "core/Exception.h"
#include "store/TableDef.h"

#include <algorithm>

namespace corvane::store {

DataSet::DataSet() {
    if (DataSetGroup* group = DataSetGroup::Current()) group->Add(*this);
}

DataSet::~DataSet() {
    if (group_) group_->Remove(*this);
}

void DataSet::DropHandlers() {
    for (Handler* handler :
         {&OnNewRecord, &BeforeInsert, &AfterInsert, &BeforeEdit, &AfterEdit, &BeforePost,
          &AfterPost, &BeforeCancel, &AfterCancel, &BeforeDelete, &AfterDelete, &BeforeScroll,
          &AfterScroll, &AfterOpen, &BeforeClose, &AfterClose, &OnCalcFields})
        *handler = nullptr;
    OnFilterRecord = nullptr;
    OnPostError = OnEditError = OnDeleteError = nullptr;
    for (auto& field : fields_) {
        field->OnValidate = field->OnChange = nullptr;
        field->OnGetText = nullptr;
        field->OnSetText = nullptr;
    }
}

// ----- opening

Field& DataSet::AddStoredField(const std::string& name, FieldType type, int size, bool required) {
    // Stored fields come first, so that a row's values line up with the field indexes.
    auto field = std::make_unique<Field>(*this, storedCount_, name, type, size, FieldKind::Data);
    field->Required = required;
    Field& ref = *field;
    fields_.insert(fields_.begin() + storedCount_, std::move(field));
    ++storedCount_;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        fields_[i]->SetIndex(static_cast<int>(i));
    return ref;
}

void DataSet::ClearStoredFields() {
    if (Active()) FailState("Fields cannot be removed from an open dataset");
    fields_.erase(fields_.begin(), fields_.begin() + storedCount_);
    storedCount_ = 0;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        fields_[i]->SetIndex(static_cast<int>(i));
}

Field& DataSet::AddCalculatedField(std::string name, FieldType type, int size) {
    if (Active()) FailState("Fields cannot be added to an open dataset");
    fields_.push_back(std::make_unique<Field>(*this, static_cast<int>(fields_.size()),
                                              std::move(name), type, size, FieldKind::Calculated));
    return *fields_.back();
}

Field& DataSet::AddLookupField(std::string name, FieldType type, int size, std::string keyFields,
                               DataSet& lookupDataSet, std::string lookupKeyFields,
                               std::string resultField) {
    if (Active()) FailState("Fields cannot be added to an open dataset");
    fields_.push_back(std::make_unique<Field>(*this, static_cast<int>(fields_.size()),
                                              std::move(name), type, size, FieldKind::Lookup));
    Field& f = *fields_.back();
    f.KeyFields = std::move(keyFields);
    f.LookupDataSet = &lookupDataSet;
    f.LookupKeyFields = std::move(lookupKeyFields);
    f.LookupResultField = std::move(resultField);
    return f;
}

void DataSet::Open() {
    if (Active()) return;
    DoOpen();
    state_ = DataSetState::Browse;
    ResetBuffer();
    try {
        SetCurrent(DoFirst());
    } catch (...) {
        state_ = DataSetState::Inactive;
        DoClose();
        throw;
    }
    if (AfterOpen) AfterOpen(*this);
    Notify(DataEvent::DataSetChanged);
    Scrolled();
}

void DataSet::Close() {
    if (!Active()) return;
    if (BeforeClose) BeforeClose(*this);
    if (state_ == DataSetState::Edit || state_ == DataSetState::Insert) Cancel();
    DoClose();
    state_ = DataSetState::Inactive;
    current_.reset();
    buffer_.clear();
    bof_ = eof_ = true;
    Notify(DataEvent::DataSetClosed);
    if (AfterClose) AfterClose(*this);
}

void DataSet::CheckActive() const {
    if (!Active()) FailState("Cannot perform this operation on a closed dataset");
}

void DataSet::FailState(const std::string& what) const {
    std::string who = Name.empty() ? std::string() : Name + ": ";
    ThrowEngineError(errDataSetState, who + what);
}

// ----- the current record

void DataSet::ResetBuffer() {
    buffer_.assign(fields_.size(), Value());
}

std::vector<Value> DataSet::StoredBuffer() const {
    return std::vector<Value>(buffer_.begin(), buffer_.begin() + storedCount_);
}

void DataSet::SetCurrent(std::optional<Row> row) {
    current_ = std::move(row);
    ResetBuffer();
    if (current_) std::copy(current_->Values.begin(), current_->Values.end(), buffer_.begin());
    CalculateFields();
}

const Value& DataSet::BufferValue(int index) const {
    static const Value null;
    if (index < 0 || static_cast<std::size_t>(index) >= buffer_.size()) return null;
    return buffer_[static_cast<std::size_t>(index)];
}

bool DataSet::CanWriteField(const Field& field) const {
    if (field.IsCalculated()) return state_ == DataSetState::CalcFields;
    return state_ == DataSetState::Edit || state_ == DataSetState::Insert;
}

void DataSet::SetBufferValue(int index, Value value) {
    buffer_[static_cast<std::size_t>(index)] = std::move(value);
}

void DataSet::FieldWritten(Field& field) {
    if (field.IsCalculated()) return;
    modified_ = true;
    if (field.OnChange) field.OnChange(field);
    if (!calculating_) CalculateFields();
    Notify(DataEvent::FieldChanged, &field);
}

void DataSet::CalculateFields() {
    bool any = std::any_of(fields_.begin(), fields_.end(),
                           [](const auto& f) { return f->IsCalculated(); });
    if (!any || calculating_) return;
    calculating_ = true;
    DataSetState saved = state_;
    state_ = DataSetState::CalcFields;
    try {
        for (std::size_t i = static_cast<std::size_t>(storedCount_); i < buffer_.size(); ++i)
            buffer_[i] = Value();
        for (auto& f : fields_) {
            if (f->Kind() != FieldKind::Lookup || !f->LookupDataSet || !f->LookupDataSet->Active())
                continue;
            std::vector<Value> keys;
            bool anyNull = false;
            for (int ix : FieldIndexes(f->KeyFields)) {
                keys.push_back(buffer_[static_cast<std::size_t>(ix)]);
                anyNull = anyNull || keys.back().IsNull();
            }
            if (!anyNull) {
                Value v = f->LookupDataSet->Lookup(f->LookupKeyFields, keys, f->LookupResultField);
                buffer_[static_cast<std::size_t>(f->Index())] = v.IsNull() ? v : f->Coerce(v);
            }
        }
        if (OnCalcFields) OnCalcFields(*this);
    } catch (...) {
        state_ = saved;
        calculating_ = false;
        throw;
    }
    state_ = saved;
    calculating_ = false;
}

bool DataSet::AcceptRow(const Row& row) {
    if (!FiltersRows()) return true;
    // The handler reads the candidate through the fields, as if it were current.
    if (buffer_.size() < fields_.size()) ResetBuffer();
    std::vector<Value> saved = buffer_;
    std::copy(row.Values.begin(), row.Values.end(), buffer_.begin());
    bool accepted = false;
    try {
        accepted = OnFilterRecord(*this);
    } catch (...) {
        buffer_ = std::move(saved);
        throw;
    }
    buffer_ = std::move(saved);
    return accepted;
}

void DataSet::VisitRowsAround(int before, int after, const std::function<void(int offset)>& visit) {
    CheckActive();
    if (!current_) {
        // A first record being typed into an empty cursor.
        if (state_ != DataSetState::Browse) visit(0);
        return;
    }
    // A record in edit shows its typed values among the stored rows around it; a new one shows
    // just below the row the cursor stood on, where the user started it.
    const bool inserting = state_ == DataSetState::Insert;
    auto ahead =
        before > 0 ? DoRowsNear(false, inserting ? before - 1 : before) : std::vector<Row>{};
    if (inserting && before > 0) ahead.insert(ahead.begin(), *current_);
    auto behind = after > 0 ? DoRowsNear(true, after) : std::vector<Row>{};
    std::vector<Value> saved = buffer_;
    auto show = [&](const Row& row, int offset) {
        std::copy(row.Values.begin(), row.Values.end(), buffer_.begin());
        CalculateFields();
        visit(offset);
    };
    try {
        for (std::size_t i = ahead.size(); i-- > 0;)
            show(ahead[i], -static_cast<int>(i) - 1);
        buffer_ = saved;
        visit(0);
        for (std::size_t i = 0; i < behind.size(); ++i)
            show(behind[i], static_cast<int>(i) + 1);
    } catch (...) {
        buffer_ = std::move(saved);
        throw;
    }
    buffer_ = std::move(saved);
}

// ----- moving

void DataSet::Scrolled() {
    Notify(DataEvent::RecordChanged);
    if (AfterScroll) AfterScroll(*this);
}

void DataSet::First() {
    CheckActive();
    CheckBrowseMode();
    if (BeforeScroll) BeforeScroll(*this);
    SetCurrent(DoFirst());
    Scrolled();
}

void DataSet::Last() {
    CheckActive();
    CheckBrowseMode();
    if (BeforeScroll) BeforeScroll(*this);
    SetCurrent(DoLast());
    Scrolled();
}

void DataSet::Next() {
    MoveBy(1);
}

void DataSet::Prior() {
    MoveBy(-1);
}

int DataSet::MoveBy(int distance) {
    CheckActive();
    CheckBrowseMode();
    if (distance == 0 || !current_) {
        if (distance > 0) eof_ = true;
        if (distance < 0) bof_ = true;
        return 0;
    }
    if ((distance > 0 && eof_) || (distance < 0 && bof_)) return 0;
    if (BeforeScroll) BeforeScroll(*this);
    std::optional<Row> row;
    int moved = DoMoveBy(distance, row);
    if (moved != 0) SetCurrent(std::move(row));
    Scrolled();
    return moved;
}

bool DataSet::IsEmpty() {
    CheckActive();
    return !current_.has_value();
}

std::int64_t DataSet::RecordCount() {
    CheckActive();
    return DoRecordCount();
}

std::vector<int> DataSet::FieldIndexes(std::string_view fieldList) {
    std::vector<int> out;
    for (const auto& name : SplitFieldList(fieldList))
        out.push_back(FieldByName(name).Index());
    return out;
}

static std::vector<Value> CoerceKeys(DataSet& ds, const std::vector<int>& fields,
                                     const std::vector<Value>& values) {
    if (fields.size() != values.size())
        ThrowEngineError(errInvalidValue, "The number of values (" + std::to_string(values.size()) +
                                              ") does not match the number of fields (" +
                                              std::to_string(fields.size()) + ")");
    std::vector<Value> out;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        Field& f = *ds.Fields()[static_cast<std::size_t>(fields[i])];
        if (f.IsCalculated())
            ThrowEngineError(errFieldNotFound,
                             "Field '" + f.FieldName() + "' is not a stored field");
        out.push_back(values[i].IsNull() ? values[i] : f.Coerce(values[i]));
    }
    return out;
}

bool DataSet::Locate(std::string_view fields, const std::vector<Value>& values,
                     LocateOptions options) {
    CheckActive();
    CheckBrowseMode();
    auto indexes = FieldIndexes(fields);
    auto keys = CoerceKeys(*this, indexes, values);
    auto row = DoLocate(indexes, keys, options.CaseInsensitive);
    if (!row) return false;
    if (BeforeScroll) BeforeScroll(*this);
    DoGoto(*row);
    SetCurrent(std::move(row));
    SetEdges(false, false);
    Scrolled();
    return true;
}

std::vector<Value> DataSet::LookupValues(std::string_view keyFields,
                                         const std::vector<Value>& values,
                                         std::string_view resultFields) {
    CheckActive();
    auto indexes = FieldIndexes(keyFields);
    auto keys = CoerceKeys(*this, indexes, values);
    auto results = FieldIndexes(resultFields);
    auto row = DoLocate(indexes, keys, false);
    std::vector<Value> out;
    if (!row) return std::vector<Value>(results.size());
    bool calculated = false;
    for (int r : results)
        calculated = calculated || r >= storedCount_;
    if (!calculated) {
        for (int r : results)
            out.push_back(row->Values[static_cast<std::size_t>(r)]);
        return out;
    }
    // A calculated result needs the found row in the record buffer for its handler; the current
    // record is put back afterwards, whatever happens.
    std::vector<Value> saved = buffer_;
    try {
        std::copy(row->Values.begin(), row->Values.end(), buffer_.begin());
        CalculateFields();
        for (int r : results)
            out.push_back(buffer_[static_cast<std::size_t>(r)]);
    } catch (...) {
        buffer_ = std::move(saved);
        throw;
    }
    buffer_ = std::move(saved);
    return out;
}

Value DataSet::Lookup(std::string_view keyFields, const std::vector<Value>& values,
                      std::string_view resultField) {
    auto v = LookupValues(keyFields, values, resultField);
    return v.empty() ? Value() : v.front();
}

// ----- fields

Field* DataSet::FindField(std::string_view name) {
    for (auto& f : fields_)
        if (SameName(f->FieldName(), name)) return f.get();
    return nullptr;
}

Field& DataSet::FieldByName(std::string_view name) {
    if (Field* f = FindField(name)) return *f;
    std::string where = Name.empty() ? std::string() : " in '" + Name + "'";
    ThrowEngineError(errFieldNotFound, "Field '" + std::string(name) + "' not found" + where);
}

// ----- editing

void DataSet::SetState(DataSetState state) {
    if (state_ == state) return;
    state_ = state;
    Notify(DataEvent::StateChanged);
}

void DataSet::CheckBrowseMode() {
    CheckActive();
    if (state_ == DataSetState::Edit || state_ == DataSetState::Insert) {
        if (modified_)
            Post();
        else
            Cancel();
    }
}

void DataSet::WithErrorHandler(const ErrorHandler& handler, const std::function<void()>& action) {
    for (;;) {
        try {
            action();
            return;
        } catch (EngineError& e) {
            if (!handler) throw;
            DataAction choice = DataAction::Fail;
            handler(*this, e, choice);
            if (choice == DataAction::Retry) continue;
            if (choice == DataAction::Abort) throw EAbort();
            throw;
        }
    }
}

void DataSet::StartInsert() {
    CheckActive();
    CheckBrowseMode();
    if (ReadOnly) FailState("Cannot modify a read-only dataset");
    if (BeforeInsert) BeforeInsert(*this);
    beforeInsert_ = current_;
    ResetBuffer();
    state_ = DataSetState::Insert;
    try {
        DoInitNewRecord();
        if (OnNewRecord) OnNewRecord(*this);
    } catch (...) {
        state_ = DataSetState::Browse;
        SetCurrent(beforeInsert_);
        throw;
    }
    // Defaults of a new record are not the user's changes: an untouched insert is dropped.
    modified_ = false;
    CalculateFields();
    Notify(DataEvent::StateChanged);
    if (AfterInsert) AfterInsert(*this);
}

void DataSet::Insert() {
    StartInsert();
}

void DataSet::Append() {
    StartInsert();
}

void DataSet::Edit() {
    CheckActive();
    if (state_ == DataSetState::Edit || state_ == DataSetState::Insert) return;
    if (!current_) {
        Insert();
        return;
    }
    if (ReadOnly) FailState("Cannot modify a read-only dataset");
    if (BeforeEdit) BeforeEdit(*this);
    WithErrorHandler(OnEditError, [&] {
        std::optional<Row> stored = DoLockForEdit(*current_);
        if (!stored || stored->Values != current_->Values) {
            DoUnlock(*current_);
            if (stored) {
                SetCurrent(std::move(stored));
                Notify(DataEvent::RecordChanged);
            }
            ThrowEngineError(errRecordChanged, stored ? "Record has been changed by another user"
                                                      : "Record has been deleted by another user");
        }
    });
    modified_ = false;
    SetState(DataSetState::Edit);
    if (AfterEdit) AfterEdit(*this);
}

void DataSet::Post() {
    CheckActive();
    if (state_ != DataSetState::Edit && state_ != DataSetState::Insert)
        FailState("Dataset not in edit or insert mode");
    if (BeforePost) BeforePost(*this);
    for (int i = 0; i < storedCount_; ++i) {
        const Field& f = *fields_[static_cast<std::size_t>(i)];
        if (f.Required && buffer_[static_cast<std::size_t>(i)].IsNull() &&
            f.DataType() != FieldType::AutoInc)
            ThrowEngineError(errRequiredField, "Field '" + f.Label() + "' must have a value");
    }
    WithErrorHandler(OnPostError, [&] { DoPostWork(); });
    modified_ = false;
    beforeInsert_.reset();
    SetState(DataSetState::Browse);
    Notify(DataEvent::RecordChanged);
    if (AfterPost) AfterPost(*this);
}

void DataSet::DoPostWork() {
    std::vector<Value> values = StoredBuffer();
    if (state_ == DataSetState::Insert) {
        Row row = DoInsertRow(values);
        SetCurrent(std::move(row));
    } else {
        if (modified_) DoUpdateRow(*current_, values);
        DoUnlock(*current_);
        Row row{current_->RowId, std::move(values)};
        SetCurrent(std::move(row));
    }
    // The cursor stands on the row as written; its neighbours are read afresh from there.
    DoGoto(*current_);
    SetEdges(false, false);
}

void DataSet::Cancel() {
    CheckActive();
    if (state_ != DataSetState::Edit && state_ != DataSetState::Insert) return;
    if (BeforeCancel) BeforeCancel(*this);
    // An edit returns to the row as it was read; an insert to the row it started from.
    std::optional<Row> back = current_;
    if (state_ == DataSetState::Edit) {
        DoUnlock(*current_);
    } else {
        DoCancelInsert();
        back = std::move(beforeInsert_);
        beforeInsert_.reset();
    }
    state_ = DataSetState::Browse;
    modified_ = false;
    SetCurrent(std::move(back));
    Notify(DataEvent::StateChanged);
    Notify(DataEvent::RecordChanged);
    if (AfterCancel) AfterCancel(*this);
}

void DataSet::Delete() {
    CheckActive();
    if (state_ == DataSetState::Insert) {
        Cancel();
        return;
    }
    if (state_ == DataSetState::Edit) Cancel();
    if (!current_) FailState("Cannot perform this operation on an empty dataset");
    if (ReadOnly) FailState("Cannot modify a read-only dataset");
    if (BeforeDelete) BeforeDelete(*this);
    Row deleted = *current_;
    WithErrorHandler(OnDeleteError, [&] { DoDeleteRow(deleted); });
    SetCurrent(DoAfterDelete(deleted));
    if (AfterDelete) AfterDelete(*this);
    Scrolled();
}

void DataSet::Refresh() {
    CheckActive();
    CheckBrowseMode();
    SetCurrent(DoRefresh());
    Notify(DataEvent::DataSetChanged);
}

// ----- filter

void DataSet::SetFilter(const std::string& expression) {
    if (expression == filterText_) return;
    if (Active()) {
        CheckBrowseMode();
        DoFilterChanged(expression, filtered_);
    }
    filterText_ = expression;
    if (Active() && filtered_) {
        SetCurrent(DoFirst());
        Notify(DataEvent::DataSetChanged);
        Scrolled();
    }
}

void DataSet::SetFiltered(bool filtered) {
    if (filtered == filtered_) return;
    if (Active()) {
        CheckBrowseMode();
        DoFilterChanged(filterText_, filtered);
    }
    filtered_ = filtered;
    if (Active()) {
        SetCurrent(DoFirst());
        Notify(DataEvent::DataSetChanged);
        Scrolled();
    }
}

// ----- notifications

void DataSet::Notify(DataEvent event, Field* field) {
    if (disableCount_ > 0) {
        pendingChange_ = true;
        return;
    }
    // Observers may remove themselves while being told.
    auto observers = observers_;
    for (auto* o : observers)
        if (std::find(observers_.begin(), observers_.end(), o) != observers_.end())
            o->DataSetNotify(*this, event, field);
}

void DataSet::DisableControls() {
    ++disableCount_;
}

void DataSet::EnableControls() {
    if (disableCount_ == 0) return;
    if (--disableCount_ == 0 && pendingChange_) {
        pendingChange_ = false;
        Notify(DataEvent::DataSetChanged);
    }
}

void DataSet::AddObserver(DataSetObserver* observer) {
    if (std::find(observers_.begin(), observers_.end(), observer) == observers_.end())
        observers_.push_back(observer);
}

void DataSet::RemoveObserver(DataSetObserver* observer) {
    observers_.erase(std::remove(observers_.begin(), observers_.end(), observer), observers_.end());
}

} // namespace corvane::store
