#pragma once

#include "ui/Control.h"
#include "ui/EditMask.h"
#include "ui/FieldDataLink.h"

#include <functional>
#include <memory>
#include <string>

namespace corvane::ui {

// A box of text the user types into: the base of edits, memos, date and spin edits and combos.
// Bound to a field (DBEdit, DBMemo, a bound DateEdit), it shows the field's Text, puts the cursor
// in Edit at the first key the user types, and writes the text with Field::SetText when the user
// leaves the control or presses Enter; a value the field refuses raises the field's message, the
// record keeps its value and the text stays for the user to correct.
class CustomEdit : public Control {
public:
    CustomEdit(Form& form, std::string name) : Control(form, std::move(name)) {}

    std::string Text() const override { return text_; }
    // Sets the text as code does: OnChange runs; a bound control writes it like typed text.
    void SetText(std::string text);
    // Zero for no limit; a bound string field limits it to the field's size.
    int MaxLength = 0;
    bool ReadOnly = false;
    void SetEditMask(std::string_view mask) { mask_ = EditMask(mask); }
    std::function<void()> OnChange;

    // The next character typed replaces the whole text, as after tabbing into the control.
    void SelectAll() { allSelected_ = !text_.empty(); }
    bool AllSelected() const { return allSelected_; }

    void Bind(store::DataSet& dataSet, std::string fieldName);
    FieldDataLink* DataLink() const { return link_.get(); }
    // True when the user cannot change the text: ReadOnly, or a field that cannot be changed.
    bool IsReadOnly() const;

    void CommitEdit() override;

protected:
    // Memos keep Enter for a line break.
    virtual bool Multiline() const { return false; }
    // A character the control takes: all printable ones unless a subclass narrows it.
    virtual bool AcceptsChar(char) const { return true; }
    bool WantsKey(const KeyStroke& stroke) const override;
    void KeyDown(Key& key, Modifiers mods) override;
    void KeyPress(char& ch) override;
    void Entered() override;
    void Exiting() override;
    // Shows the bound field's text.
    virtual void DataChanged();
    // Replaces the text and runs OnChange; byUser marks a bound field as awaiting the text.
    void ChangeText(std::string text, bool byUser);

private:
    void TypeChar(char ch);
    std::size_t EffectiveMaxLength() const;

    std::string text_;
    bool allSelected_ = false;
    bool hasFocus_ = false;
    bool typedSinceEnter_ = false;
    EditMask mask_;
    std::unique_ptr<FieldDataLink> link_;
};

} // namespace corvane::ui
