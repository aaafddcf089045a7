#pragma once

#include <string>
#include <string_view>

namespace corvane::ui {

// Key codes as the keyboard reports them: letters and digits are their upper-case character, other
// printable keys their character; the named keys below stay clear of those values.
enum class Key : int {
    None = 0,
    Backspace = 8,
    Tab = 9,
    Enter = 13,
    Escape = 27,
    Space = 32,
    PageUp = 0x100,
    PageDown,
    End,
    Home,
    Left,
    Up,
    Right,
    Down,
    Insert,
    Delete,
    F1,
    F2,
    F3,
    F4,
    F5,
    F6,
    F7,
    F8,
    F9,
    F10,
    F11,
    F12,
    Alt,
};

// The key that types a character: 'a' and 'A' are both Key('A').
constexpr Key KeyOfChar(char c) {
    return static_cast<Key>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : static_cast<unsigned char>(c));
}

struct Modifiers {
    bool Shift = false;
    bool Ctrl = false;
    bool Alt = false;
    bool operator==(const Modifiers&) const = default;
};

// A key with the modifiers held down: what a person presses, and what a menu short cut names.
struct KeyStroke {
    KeyStroke(Key code = Key::None, Modifiers mods = {}) : Code(code), Mods(mods) {}
    Key Code;
    Modifiers Mods;
    bool operator==(const KeyStroke&) const = default;
};

inline KeyStroke Ctrl(Key key) {
    return {key, {.Ctrl = true}};
}
inline KeyStroke Shift(Key key) {
    return {key, {.Shift = true}};
}
inline KeyStroke Alt(Key key) {
    return {key, {.Alt = true}};
}

// "Ctrl+F", "Shift+Del", "F5", "Ctrl+Shift+N", "Enter"; case does not matter. An unknown name
// throws ScriptError, since a short cut is written by the programmer.
KeyStroke ParseShortCut(std::string_view text);
// The text a menu shows for a short cut, such as "Ctrl+F".
std::string ShortCutText(const KeyStroke& stroke);
// The character a stroke types, 0 for none: Enter '\r', Escape 27, Backspace 8, Space ' ', letters
// lower case unless Shift is held; nothing while Ctrl or Alt is held.
char CharOfStroke(const KeyStroke& stroke);

// For the key handler of a modal dialog: a lone Alt would otherwise hand the keyboard to the menu
// bar of the main window behind the dialog.
inline void SwallowAlt(Key& key) {
    if (key == Key::Alt) key = Key::None;
}

} // namespace corvane::ui
