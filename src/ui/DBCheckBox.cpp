#include "ui/DBCheckBox.h"

namespace corvane::ui {

DBCheckBox::DBCheckBox(Form& form, std::string name, std::string caption, store::DataSet& dataSet,
                       std::string fieldName)
    : CheckBox(form, std::move(name), std::move(caption)),
      link_(dataSet, std::move(fieldName), [this] { DataChanged(); }) {
    DataChanged();
}

void DBCheckBox::DataChanged() {
    store::Field* field = link_.Field();
    ShowState(field && field->AsBoolean());
}

void DBCheckBox::Toggle() {
    if (!Enabled || !Showing() || !link_.Edit()) return;
    bool next = !Checked();
    link_.SetModified();
    try {
        link_.UpdateRecord([next](store::Field& field) { field.SetAsBoolean(next); });
    } catch (...) {
        link_.Reset(); // the box goes back to what the field holds
        throw;
    }
    if (OnClick) OnClick();
}

} // namespace corvane::ui
