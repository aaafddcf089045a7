#include "ui/FieldDataLink.h"

namespace corvane::ui {

using store::DataEvent;
using store::DataSetState;

FieldDataLink::FieldDataLink(store::DataSet& dataSet, std::string fieldName,
                             std::function<void()> onDataChange)
    : dataSet_(dataSet), fieldName_(std::move(fieldName)), onDataChange_(std::move(onDataChange)) {
    dataSet_.AddObserver(this);
}

FieldDataLink::~FieldDataLink() {
    dataSet_.RemoveObserver(this);
}

store::Field* FieldDataLink::Field() const {
    return dataSet_.Active() ? dataSet_.FindField(fieldName_) : nullptr;
}

bool FieldDataLink::CanModify() const {
    store::Field* field = Field();
    return field && !dataSet_.ReadOnly && !field->ReadOnly &&
           field->Kind() == store::FieldKind::Data;
}

bool FieldDataLink::Edit() {
    if (!CanModify()) return false;
    if (dataSet_.State() == DataSetState::Browse) dataSet_.Edit();
    return dataSet_.Editing();
}

void FieldDataLink::UpdateRecord(const std::function<void(store::Field&)>& write) {
    if (!modified_) return;
    store::Field* field = Field();
    if (!field) return;
    writing_ = true;
    try {
        write(*field);
    } catch (...) {
        writing_ = false;
        throw;
    }
    writing_ = false;
    modified_ = false;
    // The field may show the value differently from how it was typed ("5" becomes "5.00").
    if (onDataChange_) onDataChange_();
}

void FieldDataLink::Reset() {
    modified_ = false;
    if (onDataChange_) onDataChange_();
}

void FieldDataLink::DataSetNotify(store::DataSet&, DataEvent event, store::Field* field) {
    if (writing_) return;
    if (event == DataEvent::FieldChanged && field && field != Field()) return;
    Reset();
}

} // namespace corvane::ui
