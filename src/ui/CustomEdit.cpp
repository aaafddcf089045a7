#include "ui/CustomEdit.h"

#include "core/Exception.h"
#include "store/FieldType.h"
#include "ui/Application.h"
#include "ui/Form.h"

namespace corvane::ui {

void CustomEdit::Bind(store::DataSet& dataSet, std::string fieldName) {
    link_ =
        std::make_unique<FieldDataLink>(dataSet, std::move(fieldName), [this] { DataChanged(); });
    DataChanged();
}

bool CustomEdit::IsReadOnly() const {
    return ReadOnly || (link_ && !link_->CanModify());
}

void CustomEdit::SetText(std::string text) {
    bool write = link_ && text != text_ && link_->Edit();
    ChangeText(std::move(text), write);
}

void CustomEdit::ChangeText(std::string text, bool byUser) {
    if (byUser) {
        typedSinceEnter_ = true;
        if (link_) link_->SetModified();
    }
    if (text == text_) return;
    text_ = std::move(text);
    allSelected_ = false;
    if (OnChange) OnChange();
}

void CustomEdit::DataChanged() {
    store::Field* field = link_ ? link_->Field() : nullptr;
    // While the user works in the control it shows the text to edit; else the formatted text.
    std::string shown = !field ? std::string() : hasFocus_ ? field->Text() : field->DisplayText();
    ChangeText(std::move(shown), false);
}

std::size_t CustomEdit::EffectiveMaxLength() const {
    if (MaxLength > 0) return static_cast<std::size_t>(MaxLength);
    if (store::Field* field = link_ ? link_->Field() : nullptr;
        field && field->DataType() == store::FieldType::String && field->Size() > 0)
        return static_cast<std::size_t>(field->Size());
    return 0;
}

void CustomEdit::TypeChar(char ch) {
    auto refuse = [this] { OwnerForm().App().Desktop().Beep(); };
    if (IsReadOnly() || !AcceptsChar(ch)) return refuse();
    std::string base = allSelected_ ? std::string() : text_;
    std::string next = base + ch;
    if (!mask_.Empty()) {
        auto masked = mask_.Type(base, ch);
        if (!masked) return refuse();
        next = *masked;
    }
    if (std::size_t max = EffectiveMaxLength(); max > 0 && next.size() > max) return refuse();
    if (link_ && !link_->Edit()) return refuse();
    ChangeText(std::move(next), true);
}

bool CustomEdit::WantsKey(const KeyStroke& stroke) const {
    return Multiline() && stroke.Code == Key::Enter;
}

void CustomEdit::KeyDown(Key& key, Modifiers) {
    if (key == Key::Delete) {
        key = Key::None;
        if (!allSelected_ || IsReadOnly()) return;
        if (link_ && !link_->Edit()) return;
        ChangeText({}, true);
    } else if (key == Key::Enter && !Multiline()) {
        // Enter writes the value at once; the form then moves on or presses its default button.
        CommitEdit();
    }
}

void CustomEdit::KeyPress(char& ch) {
    char typed = ch;
    ch = 0;
    if (typed == 8) {
        if (IsReadOnly() || (link_ && !link_->Edit())) return;
        ChangeText(allSelected_ || text_.empty() ? std::string()
                                                 : text_.substr(0, text_.size() - 1),
                   true);
    } else if (typed == '\r') {
        if (Multiline() && !IsReadOnly() && (!link_ || link_->Edit()))
            ChangeText(text_ + "\n", true);
    } else if (typed == 27) {
        // Without a Cancel button on the form, Escape drops what was typed into a bound control.
        if (link_ && link_->Modified()) {
            link_->Reset();
            SelectAll();
        }
    } else if (static_cast<unsigned char>(typed) >= 32) {
        TypeChar(typed);
    }
}

void CustomEdit::Entered() {
    hasFocus_ = true;
    typedSinceEnter_ = false;
    if (link_ && !link_->Modified()) DataChanged();
    if (!Multiline()) SelectAll();
}

void CustomEdit::Exiting() {
    if (typedSinceEnter_ && !mask_.Complete(text_))
        throw Exception("Invalid input value. Use escape key to abandon changes");
    CommitEdit();
    hasFocus_ = false;
    allSelected_ = false;
    if (link_ && !link_->Modified()) DataChanged();
}

void CustomEdit::CommitEdit() {
    if (link_) link_->UpdateRecord([this](store::Field& field) { field.SetText(text_); });
}

} // namespace corvane::ui
