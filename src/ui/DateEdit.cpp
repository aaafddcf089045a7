#include "ui/DateEdit.h"

namespace corvane::ui {

void DateEdit::ClickButton() {
    if (!Enabled || !Showing() || IsReadOnly()) return;
    SetFocus();
    if (OnButtonClick) OnButtonClick();
}

void DateEdit::KeyDown(Key& key, Modifiers mods) {
    if (key == Key::Down && mods.Alt) {
        key = Key::None;
        ClickButton();
        return;
    }
    CustomEdit::KeyDown(key, mods);
}

} // namespace corvane::ui
