#include "ui/Button.h"

#include "ui/Form.h"

namespace corvane::ui {

void Button::Click() {
    if (!Enabled || !Showing()) return;
    if (OnClick) OnClick();
    if (ModalResult != mrNone) OwnerForm().SetModalResult(ModalResult);
}

// A focused button takes Enter and Space for itself.
void Button::KeyDown(Key& key, Modifiers) {
    if (key != Key::Enter && key != Key::Space) return;
    key = Key::None;
    Click();
}

} // namespace corvane::ui
