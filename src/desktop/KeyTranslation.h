#pragma once

#include "ui/Keys.h"

class QKeyEvent;

namespace corvane::desktop {

// A key press as the form model knows it: the key with its modifiers, and the character it
// types (0 for none).
struct TranslatedKey {
    ui::KeyStroke Stroke;
    char Char = 0;
};

TranslatedKey TranslateKey(const QKeyEvent& event);

// Keys a text box leaves to the form: Tab, Escape, the function keys and Ctrl combinations
// other than the editing ones (copy, paste, undo, select all); Enter too unless the box takes
// line breaks.
bool IsFormKey(const QKeyEvent& event, bool enterIsText);

} // namespace corvane::desktop
