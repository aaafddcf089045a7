#include "ui/CheckBox.h"

namespace corvane::ui {

void CheckBox::SetChecked(bool checked) {
    if (checked == checked_) return;
    checked_ = checked;
    if (OnClick) OnClick();
}

void CheckBox::Toggle() {
    if (!Enabled || !Showing()) return;
    SetChecked(!checked_);
}

void CheckBox::KeyPress(char& ch) {
    if (ch != ' ') return;
    ch = 0;
    Toggle();
}

} // namespace corvane::ui
