#include "ui/ComboBox.h"

#include "ui/Form.h"
#include "ui/ScriptError.h"

#include <algorithm>
#include <cctype>

namespace corvane::ui {

int ComboBox::ItemIndex() const {
    auto it = std::find(Items.begin(), Items.end(), Text());
    return it == Items.end() ? -1 : static_cast<int>(it - Items.begin());
}

void ComboBox::SetItemIndex(int index) {
    SetText(index >= 0 && index < static_cast<int>(Items.size())
                ? Items[static_cast<std::size_t>(index)]
                : std::string());
}

void ComboBox::UserPick(int index) {
    if (IsReadOnly() || (DataLink() && !DataLink()->Edit())) return;
    ChangeText(Items[static_cast<std::size_t>(index)], true);
}

void ComboBox::Choose(std::string_view item) {
    auto it = std::find(Items.begin(), Items.end(), item);
    if (it == Items.end())
        throw ScriptError("Combo box '" + Name() + "' on form '" + OwnerForm().Name() +
                          "' has no item '" + std::string(item) + "'");
    if (Enabled && Showing()) UserPick(static_cast<int>(it - Items.begin()));
    dropped_ = false;
}

void ComboBox::KeyDown(Key& key, Modifiers mods) {
    if ((key == Key::Down && mods.Alt) || key == Key::F4) {
        dropped_ = !dropped_;
        key = Key::None;
    } else if (key == Key::Up || key == Key::Down) {
        int next = ItemIndex() + (key == Key::Up ? -1 : 1);
        if (next >= 0 && next < static_cast<int>(Items.size())) UserPick(next);
        key = Key::None;
    } else if (dropped_ && (key == Key::Enter || key == Key::Escape)) {
        dropped_ = false;
        key = Key::None;
    } else {
        CustomEdit::KeyDown(key, mods);
    }
}

void ComboBox::KeyPress(char& ch) {
    if (Style == ComboStyle::DropDown || static_cast<unsigned char>(ch) < 32) {
        CustomEdit::KeyPress(ch);
        return;
    }
    // A list without typing: the letter picks the next item that starts with it, round the list.
    int count = static_cast<int>(Items.size());
    int from = ItemIndex();
    auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
    for (int step = 1; step <= count; ++step) {
        int i = (from + step + count) % count;
        const std::string& item = Items[static_cast<std::size_t>(i)];
        if (!item.empty() && lower(item[0]) == lower(ch)) {
            UserPick(i);
            break;
        }
    }
    ch = 0;
}

} // namespace corvane::ui
