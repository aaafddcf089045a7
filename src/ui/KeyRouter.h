#pragma once

#include "ui/Keys.h"

namespace corvane::ui {

class Control;
class Form;
class MenuItem;

// The path of one key press through a form, in the order a person expects:
//  1. a menu short cut of the form runs its item;
//  2. OnKeyDown of the form (with KeyPreview), then of the focused control, then the control's own
//     handling (a grid moves, a memo breaks the line);
//  3. Tab, Enter and Escape, unless the control wants them: Tab and Shift+Tab move the focus,
//     Enter moves it too on forms with EnterMovesFocus or else presses the Default button, Escape
//     presses the Cancel button, a lone Alt goes to the menu bar;
//  4. the typed character through OnKeyPress of the form (with KeyPreview) and of the control,
//     then into the control.
// A handler that sets the key or the character to none ends the path there.
class KeyRouter {
public:
    static void Route(Form& form, KeyStroke stroke, char ch);

private:
    static MenuItem* FindShortCut(const Form& form, const KeyStroke& stroke);
    static bool DialogKey(Form& form, Control* control, const KeyStroke& stroke);
};

} // namespace corvane::ui
