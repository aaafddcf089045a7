#pragma once

#include "ui/Control.h"
#include "ui/EditMask.h"
#include "ui/FieldDataLink.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
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
    // Shown in place of each character, for passwords; 0 shows the text.
    char PasswordChar = 0;
    bool ReadOnly = false;
    // An unbound box of amounts: its text stands at the right, as in a grid.
    bool AlignRight = false;
    // At least this many characters of text show without scrolling; 0 leaves the width to the
    // layout.
    int ShownChars = 0;
    void SetEditMask(std::string_view mask) { mask_ = EditMask(mask); }
    std::function<void()> OnChange;

    // ----- caret and selection, in bytes of the text. The caret stands at one end of the
    // selection (the end a Shift+arrow moves); with nothing selected SelLength is 0 and SelStart
    // is the caret.
    int SelStart() const { return static_cast<int>(std::min(anchor_, caret_)); }
    int SelLength() const {
        return static_cast<int>(anchor_ > caret_ ? anchor_ - caret_ : caret_ - anchor_);
    }
    std::string SelText() const {
        return text_.substr(static_cast<std::size_t>(SelStart()),
                            static_cast<std::size_t>(SelLength()));
    }
    int CaretPos() const { return static_cast<int>(caret_); }
    // Puts the caret at start with nothing selected.
    void SetSelStart(int start);
    // Selects length characters from SelStart.
    void SetSelLength(int length);
    // Selects from anchor to caret; the caret may stand before the anchor.
    void Select(int anchor, int caret);
    // Replaces the selection as code does, like SetText.
    void SetSelText(const std::string& text);
    // The user deletes the selection, as with the Delete key.
    void ClearSelection();
    // The next character typed replaces the whole text, as after tabbing into the control.
    void SelectAll() { Select(0, static_cast<int>(text_.size())); }
    bool AllSelected() const {
        return !text_.empty() && SelLength() == static_cast<int>(text_.size());
    }

    void Bind(store::DataSet& dataSet, std::string fieldName);
    FieldDataLink* DataLink() const { return link_.get(); }
    // True when the user cannot change the text: ReadOnly, or a field that cannot be changed.
    bool IsReadOnly() const;
    // Numbers stand at the right: AlignRight, or a bound numeric field shown as a number.
    bool RightAligned() const;

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
    // Replaces the text and runs OnChange; byUser marks a bound field as awaiting the text. The
    // caret goes to the end, or to caret when given.
    void ChangeText(std::string text, bool byUser, std::optional<std::size_t> caret = {});

private:
    void TypeChar(char ch);
    // The user's replacement of the selection by typed (empty for a deletion), within the mask,
    // the length limit and the field's will to be edited; false after a beep.
    bool ReplaceSelection(const std::string& typed);
    void MoveCaret(Key key, Modifiers mods);
    std::size_t EffectiveMaxLength() const;

    std::string text_;
    std::size_t anchor_ = 0, caret_ = 0;
    bool hasFocus_ = false;
    bool typedSinceEnter_ = false;
    EditMask mask_;
    std::unique_ptr<FieldDataLink> link_;
};

} // namespace corvane::ui
