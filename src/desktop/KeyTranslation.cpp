#include "desktop/KeyTranslation.h"

#include <QKeyEvent>

namespace corvane::desktop {

namespace {

ui::Key NamedKey(int qtKey) {
    using ui::Key;
    switch (qtKey) {
    case Qt::Key_Backspace:
        return Key::Backspace;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return Key::Tab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Key::Enter;
    case Qt::Key_Escape:
        return Key::Escape;
    case Qt::Key_Space:
        return Key::Space;
    case Qt::Key_PageUp:
        return Key::PageUp;
    case Qt::Key_PageDown:
        return Key::PageDown;
    case Qt::Key_End:
        return Key::End;
    case Qt::Key_Home:
        return Key::Home;
    case Qt::Key_Left:
        return Key::Left;
    case Qt::Key_Up:
        return Key::Up;
    case Qt::Key_Right:
        return Key::Right;
    case Qt::Key_Down:
        return Key::Down;
    case Qt::Key_Insert:
        return Key::Insert;
    case Qt::Key_Delete:
        return Key::Delete;
    case Qt::Key_Alt:
        return Key::Alt;
    default:
        break;
    }
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12)
        return static_cast<Key>(static_cast<int>(Key::F1) + (qtKey - Qt::Key_F1));
    if ((qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) || (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9))
        return static_cast<Key>(qtKey); // Qt's codes for these are their upper-case characters
    if (qtKey > 32 && qtKey < 127) return ui::KeyOfChar(static_cast<char>(qtKey));
    return Key::None;
}

} // namespace

TranslatedKey TranslateKey(const QKeyEvent& event) {
    TranslatedKey key;
    Qt::KeyboardModifiers mods = event.modifiers();
    key.Stroke.Code = NamedKey(event.key());
    key.Stroke.Mods.Shift = mods.testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab;
    key.Stroke.Mods.Ctrl = mods.testFlag(Qt::ControlModifier);
    key.Stroke.Mods.Alt = mods.testFlag(Qt::AltModifier);
    if (key.Stroke.Code == ui::Key::Alt) key.Stroke.Mods.Alt = false;
    // The character comes from the keyboard layout, so that Shift+1 types what the keyboard says.
    QByteArray text = event.text().toUtf8();
    if (text.size() == 1 && !key.Stroke.Mods.Ctrl && !key.Stroke.Mods.Alt)
        key.Char = text[0];
    else
        key.Char = ui::CharOfStroke(key.Stroke);
    return key;
}

bool IsFormKey(const QKeyEvent& event, bool enterIsText) {
    int k = event.key();
    Qt::KeyboardModifiers mods = event.modifiers();
    if (k == Qt::Key_Tab || k == Qt::Key_Backtab || k == Qt::Key_Escape) return true;
    if (k >= Qt::Key_F1 && k <= Qt::Key_F12) return true;
    if (k == Qt::Key_Return || k == Qt::Key_Enter) return !enterIsText || mods != Qt::NoModifier;
    if (mods.testFlag(Qt::AltModifier)) return false; // menu accelerators stay with the menu bar
    if (mods.testFlag(Qt::ControlModifier)) {
        switch (k) {
        case Qt::Key_C:
        case Qt::Key_V:
        case Qt::Key_X:
        case Qt::Key_A:
        case Qt::Key_Z:
        case Qt::Key_Y:
        case Qt::Key_Insert:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Control:
            return false;
        default:
            return true;
        }
    }
    return false;
}

} // namespace corvane::desktop
