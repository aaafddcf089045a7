#pragma once

#include "ui/Control.h"
#include "ui/FieldDataLink.h"
#include "ui/RowWindow.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace corvane::ui {

// A choice of a row of another cursor (ListSource), shown by its ListField and kept by its
// KeyField: the currency of a vendor, the account of a line. Bound to a field, a choice writes the
// key to the field at once (a refused key raises the field's message and changes nothing);
// unbound, as in filter forms, the combo just holds the key.
//
// Dropped down it shows the rows of ListSource around the chosen one (ListRows); Up and Down move
// in the list, Enter takes the row, Escape leaves the choice as it was. While dropped down it keeps
// Enter, so an entry form does not move on.
class DBLookupComboBox : public Control {
public:
    // Where the list is read from at each use: a cursor that may be closed, or null. A shared
    // look-up cursor is made anew for each company, so a combo that outlives one asks again.
    using ListSourceFn = std::function<store::DataSet*()>;

    DBLookupComboBox(Form& form, std::string name, store::DataSet& listSource, std::string keyField,
                     std::string listField)
        : DBLookupComboBox(form, std::move(name), FixedSource(listSource), std::move(keyField),
                           std::move(listField)) {}
    DBLookupComboBox(Form& form, std::string name, ListSourceFn listSource, std::string keyField,
                     std::string listField);
    // Bound to fieldName of dataSet from the start.
    DBLookupComboBox(Form& form, std::string name, store::DataSet& dataSet, std::string fieldName,
                     store::DataSet& listSource, std::string keyField, std::string listField)
        : DBLookupComboBox(form, std::move(name), dataSet, std::move(fieldName),
                           FixedSource(listSource), std::move(keyField), std::move(listField)) {}
    DBLookupComboBox(Form& form, std::string name, store::DataSet& dataSet, std::string fieldName,
                     ListSourceFn listSource, std::string keyField, std::string listField)
        : DBLookupComboBox(form, std::move(name), std::move(listSource), std::move(keyField),
                           std::move(listField)) {
        Bind(dataSet, std::move(fieldName));
    }

    void Bind(store::DataSet& dataSet, std::string fieldName);
    FieldDataLink* DataLink() const { return link_.get(); }

    // The list's cursor now; null when there is none.
    store::DataSet* ListSource() const { return listSource_ ? listSource_() : nullptr; }
    const std::string KeyField;
    // Several fields separated by ';' show as columns of the list; the box shows the first.
    const std::string ListField;

    // The chosen key: the bound field's value, or the combo's own. Null for no choice.
    store::Value KeyValue() const;
    // Chooses as code does; OnChange runs when the key changes.
    void SetKeyValue(const store::Value& key);
    // The first list field of the chosen row; empty for no choice or a key not in the list.
    std::string Text() const override;

    bool DroppedDown() const { return dropped_; }
    void DropDown();
    // Closes the list; with accept, the list's current row becomes the choice.
    void CloseUp(bool accept);
    RowWindow ListRows(int before, int after);

    // The user picks the row whose first list field reads text (case does not matter); a
    // ScriptError when the list has none.
    void Choose(std::string_view text);
    // The user clears the choice (Delete).
    void ClearChoice();

    std::function<void()> OnChange, OnCloseUp;

    const char* TypeName() const override { return "DBLookupComboBox"; }

protected:
    void KeyDown(Key& key, Modifiers mods) override;

private:
    static ListSourceFn FixedSource(store::DataSet& dataSet) {
        return [&dataSet] { return &dataSet; };
    }
    // The list's cursor when it is open; null otherwise.
    store::DataSet* OpenList() const;
    std::string FirstListField() const;
    void UserSelect(const store::Value& key);

    ListSourceFn listSource_;
    std::unique_ptr<FieldDataLink> link_;
    store::Value key_;
    bool dropped_ = false;
};

} // namespace corvane::ui
