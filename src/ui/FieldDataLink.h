#pragma once

#include "store/DataSet.h"

#include <functional>
#include <string>

namespace corvane::ui {

// Ties a control to one field of a cursor. The control shows the field and is told (OnDataChange)
// whenever the record, the state or the field changes; when the user starts typing the link puts
// the cursor in Edit; when the control is left the link writes the control's value to the field.
// A field that refuses a value raises its message and keeps its old value.
class FieldDataLink : private store::DataSetObserver {
public:
    FieldDataLink(store::DataSet& dataSet, std::string fieldName,
                  std::function<void()> onDataChange);
    ~FieldDataLink() override;
    FieldDataLink(const FieldDataLink&) = delete;
    FieldDataLink& operator=(const FieldDataLink&) = delete;

    store::DataSet& DataSet() const { return dataSet_; }
    const std::string& FieldName() const { return fieldName_; }
    // Null while the cursor is closed (its fields exist only while it is open).
    store::Field* Field() const;

    // The user may change the field: the cursor is open and neither it nor the field is read-only.
    bool CanModify() const;
    // Puts the cursor in Edit (or Insert, when it has no record) before the user's first change;
    // false when the field cannot be changed.
    bool Edit();
    // The control holds a value the field has not yet taken.
    bool Modified() const { return modified_; }
    void SetModified() { modified_ = true; }
    // Gives the control's value to the field through write when it was modified.
    void UpdateRecord(const std::function<void(store::Field&)>& write);
    // Drops the control's change and shows the field again.
    void Reset();

private:
    void DataSetNotify(store::DataSet& dataSet, store::DataEvent event,
                       store::Field* field) override;

    store::DataSet& dataSet_;
    std::string fieldName_;
    std::function<void()> onDataChange_;
    bool modified_ = false;
    bool writing_ = false;
};

} // namespace corvane::ui
