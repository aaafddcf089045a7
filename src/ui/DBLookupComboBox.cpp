#include "ui/DBLookupComboBox.h"

#include "core/DateEntry.h"
#include "store/Field.h"
#include "ui/Form.h"
#include "ui/ScriptError.h"

namespace corvane::ui {

using store::Value;

DBLookupComboBox::DBLookupComboBox(Form& form, std::string name, ListSourceFn listSource,
                                   std::string keyField, std::string listField)
    : Control(form, std::move(name)), KeyField(std::move(keyField)),
      ListField(std::move(listField)), listSource_(std::move(listSource)) {}

store::DataSet* DBLookupComboBox::OpenList() const {
    store::DataSet* list = ListSource();
    return list && list->Active() ? list : nullptr;
}

void DBLookupComboBox::Bind(store::DataSet& dataSet, std::string fieldName) {
    // The combo reads the field whenever asked, so a change needs no copying here.
    link_ = std::make_unique<FieldDataLink>(dataSet, std::move(fieldName), [] {});
}

std::string DBLookupComboBox::FirstListField() const {
    auto fields = store::SplitFieldList(ListField);
    return fields.empty() ? std::string() : fields.front();
}

Value DBLookupComboBox::KeyValue() const {
    if (!link_) return key_;
    store::Field* field = link_->Field();
    return field ? field->AsValue() : Value();
}

void DBLookupComboBox::SetKeyValue(const Value& key) {
    if (key == KeyValue()) return;
    if (link_) {
        store::Field* field = link_->Field();
        if (!field || !link_->Edit()) return;
        field->SetValue(key);
    } else {
        key_ = key;
    }
    if (OnChange) OnChange();
}

std::string DBLookupComboBox::Text() const {
    Value key = KeyValue();
    store::DataSet* list = OpenList();
    if (key.IsNull() || !list) return {};
    Value shown = list->Lookup(KeyField, {key}, FirstListField());
    switch (shown.kind()) {
    case Value::Kind::Null:
        return {};
    case Value::Kind::String:
        return shown.Str();
    case Value::Kind::Integer:
        return std::to_string(shown.Int());
    case Value::Kind::Money:
        return shown.Money().ToString();
    case Value::Kind::Date:
        return DateToStr(shown.Date());
    default:
        return shown.DebugString();
    }
}

void DBLookupComboBox::UserSelect(const Value& key) {
    if (!Enabled || !Showing()) return;
    if (link_) {
        if (!link_->Edit()) return;
        link_->SetModified();
        try {
            link_->UpdateRecord([&](store::Field& field) { field.SetValue(key); });
        } catch (...) {
            link_->Reset();
            throw;
        }
    } else {
        key_ = key;
    }
    if (OnChange) OnChange();
}

void DBLookupComboBox::DropDown() {
    store::DataSet* list = OpenList();
    if (dropped_ || !Enabled || !Showing() || !list) return;
    dropped_ = true;
    Value key = KeyValue();
    if (!key.IsNull()) list->Locate(KeyField, {key});
}

void DBLookupComboBox::CloseUp(bool accept) {
    if (!dropped_) return;
    dropped_ = false;
    store::DataSet* list = OpenList();
    if (accept && list && !list->IsEmpty()) {
        Value key = list->FieldByName(KeyField).AsValue();
        if (!(key == KeyValue())) UserSelect(key);
    }
    if (OnCloseUp) OnCloseUp();
}

RowWindow DBLookupComboBox::ListRows(int before, int after) {
    store::DataSet* list = OpenList();
    if (!list) return {};
    return ReadRowWindow(*list, store::SplitFieldList(ListField), before, after);
}

void DBLookupComboBox::Choose(std::string_view text) {
    store::DataSet* list = OpenList();
    if (!list ||
        !list->Locate(FirstListField(), {Value(std::string(text))}, {.CaseInsensitive = true}))
        throw ScriptError("Look-up combo '" + Name() + "' on form '" + OwnerForm().Name() +
                          "' has no item '" + std::string(text) + "'");
    dropped_ = false;
    Value key = list->FieldByName(KeyField).AsValue();
    if (!(key == KeyValue())) UserSelect(key);
}

void DBLookupComboBox::ClearChoice() {
    if (!KeyValue().IsNull()) UserSelect(Value());
}

void DBLookupComboBox::KeyDown(Key& key, Modifiers mods) {
    if ((key == Key::Down && mods.Alt) || key == Key::F4) {
        dropped_ ? CloseUp(true) : DropDown();
    } else if (dropped_ && (key == Key::Up || key == Key::Down)) {
        if (store::DataSet* list = OpenList()) list->MoveBy(key == Key::Up ? -1 : 1);
    } else if (dropped_ && (key == Key::PageUp || key == Key::PageDown)) {
        if (store::DataSet* list = OpenList()) list->MoveBy(key == Key::PageUp ? -7 : 7);
    } else if (dropped_ && (key == Key::Enter || key == Key::Escape)) {
        CloseUp(key == Key::Enter);
    } else if (!dropped_ && key == Key::Delete) {
        ClearChoice();
    } else {
        return;
    }
    key = Key::None;
}

} // namespace corvane::ui
