#include "ui/CustomEdit.h"

#include "core/Exception.h"
#include "store/FieldType.h"
#include "ui/Application.h"
#include "ui/Form.h"

namespace corvane::ui {

namespace {

// Bytes that continue a UTF-8 character: the caret never stops on one.
bool Continues(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::size_t PrevChar(const std::string& text, std::size_t at) {
    if (at == 0) return 0;
    --at;
    while (at > 0 && Continues(text[at]))
        --at;
    return at;
}

std::size_t NextChar(const std::string& text, std::size_t at) {
    if (at >= text.size()) return text.size();
    ++at;
    while (at < text.size() && Continues(text[at]))
        ++at;
    return at;
}

} // namespace

void CustomEdit::Bind(store::DataSet& dataSet, std::string fieldName) {
    link_ =
        std::make_unique<FieldDataLink>(dataSet, std::move(fieldName), [this] { DataChanged(); });
    DataChanged();
}

bool CustomEdit::IsReadOnly() const {
    return ReadOnly || (link_ && !link_->CanModify());
}

bool CustomEdit::RightAligned() const {
    if (AlignRight) return true;
    const store::Field* field = link_ ? link_->Field() : nullptr;
    // A key shown by the name it stands for reads as text.
    return field && store::IsNumericType(field->DataType()) && !field->OnGetText;
}

void CustomEdit::SetText(std::string text) {
    bool write = link_ && text != text_ && link_->Edit();
    ChangeText(std::move(text), write);
}

void CustomEdit::ChangeText(std::string text, bool byUser, std::optional<std::size_t> caret) {
    if (byUser) {
        typedSinceEnter_ = true;
        if (link_) link_->SetModified();
    }
    if (text == text_) {
        if (caret) anchor_ = caret_ = std::min(*caret, text_.size());
        return;
    }
    text_ = std::move(text);
    anchor_ = caret_ = std::min(caret.value_or(text_.size()), text_.size());
    if (OnChange) OnChange();
}

// ----- caret and selection

void CustomEdit::Select(int anchor, int caret) {
    auto clamp = [this](int at) {
        std::size_t pos = std::min(static_cast<std::size_t>(std::max(at, 0)), text_.size());
        while (pos > 0 && pos < text_.size() && Continues(text_[pos]))
            --pos;
        return pos;
    };
    anchor_ = clamp(anchor);
    caret_ = clamp(caret);
}

void CustomEdit::SetSelStart(int start) {
    Select(start, start);
}

void CustomEdit::SetSelLength(int length) {
    int start = SelStart();
    Select(start, start + std::max(length, 0));
}

void CustomEdit::SetSelText(const std::string& text) {
    auto start = static_cast<std::size_t>(SelStart());
    std::string next =
        text_.substr(0, start) + text + text_.substr(start + static_cast<std::size_t>(SelLength()));
    bool write = link_ && next != text_ && link_->Edit();
    ChangeText(std::move(next), write, start + text.size());
}

void CustomEdit::ClearSelection() {
    if (SelLength() > 0) ReplaceSelection({});
}

bool CustomEdit::ReplaceSelection(const std::string& typed) {
    auto refuse = [this] {
        OwnerForm().App().Desktop().Beep();
        return false;
    };
    if (IsReadOnly()) return refuse();
    auto start = static_cast<std::size_t>(SelStart());
    auto end = start + static_cast<std::size_t>(SelLength());
    if (mask_.Empty()) {
        // The text is changed where it stands: typing a long word costs each key its own length,
        // not the whole text's.
        const std::size_t size = text_.size() - (end - start) + typed.size();
        if (std::size_t max = EffectiveMaxLength(); max > 0 && size > max && size > text_.size())
            return refuse();
        if (link_ && !link_->Edit()) return refuse();
        typedSinceEnter_ = true;
        if (link_) link_->SetModified();
        if (end - start == typed.size() && text_.compare(start, typed.size(), typed) == 0) {
            anchor_ = caret_ = end;
            return true;
        }
        text_.replace(start, end - start, typed);
        anchor_ = caret_ = start + typed.size();
        if (OnChange) OnChange();
        return true;
    }
    std::string head = text_.substr(0, start);
    std::string tail = text_.substr(end);
    std::string next = head + typed + tail;
    std::size_t caret = start + typed.size();
    if (!mask_.Empty()) {
        // Typing at the end brings the mask's literals with it; anything else must still fit.
        std::optional<std::string> masked;
        if (tail.empty() && typed.size() == 1)
            masked = mask_.Type(head, typed[0]);
        else if (next.empty())
            masked = next;
        else
            masked = mask_.Apply(next);
        if (!masked) return refuse();
        if (tail.empty()) caret = masked->size();
        next = std::move(*masked);
    }
    if (std::size_t max = EffectiveMaxLength();
        max > 0 && next.size() > max && next.size() > text_.size())
        return refuse();
    if (link_ && !link_->Edit()) return refuse();
    ChangeText(std::move(next), true, caret);
    return true;
}

void CustomEdit::MoveCaret(Key key, Modifiers mods) {
    std::size_t to = caret_;
    switch (key) {
    case Key::Left:
        to = !mods.Shift && anchor_ != caret_ ? std::min(anchor_, caret_) : PrevChar(text_, caret_);
        break;
    case Key::Right:
        to = !mods.Shift && anchor_ != caret_ ? std::max(anchor_, caret_) : NextChar(text_, caret_);
        break;
    case Key::Home:
        to = 0;
        // In a memo Home and End keep to the line, unless Ctrl is held.
        if (Multiline() && !mods.Ctrl && caret_ > 0) {
            std::size_t nl = text_.rfind('\n', caret_ - 1);
            to = nl == std::string::npos ? 0 : nl + 1;
        }
        break;
    case Key::End:
        to = text_.size();
        if (Multiline() && !mods.Ctrl) {
            std::size_t nl = text_.find('\n', caret_);
            to = nl == std::string::npos ? text_.size() : nl;
        }
        break;
    default:
        return;
    }
    caret_ = to;
    if (!mods.Shift) anchor_ = to;
}

// ----- typing

std::size_t CustomEdit::EffectiveMaxLength() const {
    if (MaxLength > 0) return static_cast<std::size_t>(MaxLength);
    if (store::Field* field = link_ ? link_->Field() : nullptr;
        field && field->DataType() == store::FieldType::String && field->Size() > 0)
        return static_cast<std::size_t>(field->Size());
    return 0;
}

void CustomEdit::TypeChar(char ch) {
    if (!AcceptsChar(ch)) {
        OwnerForm().App().Desktop().Beep();
        return;
    }
    ReplaceSelection(std::string(1, ch));
}

void CustomEdit::DataChanged() {
    store::Field* field = link_ ? link_->Field() : nullptr;
    // While the user works in the control it shows the text to edit; else the formatted text.
    std::string shown = !field ? std::string() : hasFocus_ ? field->Text() : field->DisplayText();
    ChangeText(std::move(shown), false);
}

bool CustomEdit::WantsKey(const KeyStroke& stroke) const {
    return Multiline() && stroke.Code == Key::Enter;
}

void CustomEdit::KeyDown(Key& key, Modifiers mods) {
    switch (key) {
    case Key::Delete:
        key = Key::None;
        if (IsReadOnly()) return;
        if (SelLength() == 0) {
            if (caret_ >= text_.size()) return;
            Select(static_cast<int>(caret_), static_cast<int>(NextChar(text_, caret_)));
        }
        ReplaceSelection({});
        break;
    case Key::Left:
    case Key::Right:
    case Key::Home:
    case Key::End:
        if (mods.Alt) return;
        MoveCaret(key, mods);
        key = Key::None;
        break;
    case Key::Enter:
        // Enter writes the value at once; the form then moves on or presses its default button.
        if (!Multiline()) CommitEdit();
        break;
    default:
        break;
    }
}

void CustomEdit::KeyPress(char& ch) {
    char typed = ch;
    ch = 0;
    if (typed == 8) {
        if (IsReadOnly()) return;
        if (SelLength() == 0) {
            if (caret_ == 0) return;
            Select(static_cast<int>(caret_), static_cast<int>(PrevChar(text_, caret_)));
        }
        ReplaceSelection({});
    } else if (typed == '\r') {
        if (Multiline() && !IsReadOnly()) ReplaceSelection("\n");
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
    if (Multiline())
        SetSelStart(static_cast<int>(text_.size()));
    else
        SelectAll();
}

void CustomEdit::Exiting() {
    if (typedSinceEnter_ && !mask_.Complete(text_))
        throw Exception("Invalid input value. Use escape key to abandon changes");
    CommitEdit();
    hasFocus_ = false;
    anchor_ = caret_;
    if (link_ && !link_->Modified()) DataChanged();
}

void CustomEdit::CommitEdit() {
    if (link_) link_->UpdateRecord([this](store::Field& field) { field.SetText(text_); });
}

} // namespace corvane::ui
