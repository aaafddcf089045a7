#include "ui/DBRadioGroup.h"

#include "ui/Caption.h"

namespace corvane::ui {

DBRadioGroup::DBRadioGroup(Form& form, std::string name, std::string caption,
                           std::vector<std::string> items, store::DataSet& dataSet,
                           std::string fieldName, std::vector<std::string> values)
    : RadioGroup(form, std::move(name), std::move(caption), std::move(items)),
      Values(std::move(values)), link_(dataSet, std::move(fieldName), [this] { DataChanged(); }) {
    DataChanged();
}

std::string DBRadioGroup::ValueOf(std::size_t index) const {
    return index < Values.size() ? Values[index] : PlainCaption(Items[index]);
}

void DBRadioGroup::DataChanged() {
    store::Field* field = link_.Field();
    int shown = -1;
    if (field && !field->IsNull()) {
        std::string text = field->Text();
        for (std::size_t i = 0; i < Items.size(); ++i)
            if (ValueOf(i) == text) shown = static_cast<int>(i);
    }
    ShowIndex(shown);
}

void DBRadioGroup::UserChoose(int index) {
    if (index == ItemIndex() || !link_.Edit()) return;
    std::string value = ValueOf(static_cast<std::size_t>(index));
    link_.SetModified();
    try {
        link_.UpdateRecord([&](store::Field& field) { field.SetText(value); });
    } catch (...) {
        link_.Reset();
        throw;
    }
    if (OnClick) OnClick();
}

} // namespace corvane::ui
