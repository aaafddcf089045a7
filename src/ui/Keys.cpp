#include "ui/Keys.h"

#include "ui/ScriptError.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace corvane::ui {

namespace {

struct NamedKey {
    const char* Name;
    Key Code;
};

// The first name of a key is the one ShortCutText writes.
constexpr std::array<NamedKey, 30> NamedKeys{{
    {"Backspace", Key::Backspace},
    {"Tab", Key::Tab},
    {"Enter", Key::Enter},
    {"Return", Key::Enter},
    {"Esc", Key::Escape},
    {"Escape", Key::Escape},
    {"Space", Key::Space},
    {"PgUp", Key::PageUp},
    {"PgDn", Key::PageDown},
    {"End", Key::End},
    {"Home", Key::Home},
    {"Left", Key::Left},
    {"Up", Key::Up},
    {"Right", Key::Right},
    {"Down", Key::Down},
    {"Ins", Key::Insert},
    {"Del", Key::Delete},
    {"Delete", Key::Delete},
    {"F1", Key::F1},
    {"F2", Key::F2},
    {"F3", Key::F3},
    {"F4", Key::F4},
    {"F5", Key::F5},
    {"F6", Key::F6},
    {"F7", Key::F7},
    {"F8", Key::F8},
    {"F9", Key::F9},
    {"F10", Key::F10},
    {"F11", Key::F11},
    {"F12", Key::F12},
}};

bool SameText(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

Key KeyOfName(std::string_view name, std::string_view whole) {
    if (name.size() == 1) return KeyOfChar(name[0]);
    for (const auto& k : NamedKeys)
        if (SameText(k.Name, name)) return k.Code;
    throw ScriptError("Unknown key '" + std::string(name) + "' in short cut '" +
                      std::string(whole) + "'");
}

} // namespace

KeyStroke ParseShortCut(std::string_view text) {
    KeyStroke stroke;
    std::string_view rest = text;
    // A trailing "+" is the plus key itself ("Ctrl++").
    while (true) {
        auto plus = rest.find('+');
        if (plus == std::string_view::npos || plus + 1 == rest.size()) break;
        std::string_view part = rest.substr(0, plus);
        if (SameText(part, "Ctrl"))
            stroke.Mods.Ctrl = true;
        else if (SameText(part, "Shift"))
            stroke.Mods.Shift = true;
        else if (SameText(part, "Alt"))
            stroke.Mods.Alt = true;
        else
            throw ScriptError("Unknown modifier '" + std::string(part) + "' in short cut '" +
                              std::string(text) + "'");
        rest = rest.substr(plus + 1);
    }
    if (rest.empty()) throw ScriptError("Short cut '" + std::string(text) + "' names no key");
    stroke.Code = KeyOfName(rest, text);
    return stroke;
}

std::string ShortCutText(const KeyStroke& stroke) {
    if (stroke.Code == Key::None) return {};
    std::string text;
    if (stroke.Mods.Ctrl) text += "Ctrl+";
    if (stroke.Mods.Shift) text += "Shift+";
    if (stroke.Mods.Alt) text += "Alt+";
    for (const auto& k : NamedKeys)
        if (k.Code == stroke.Code) return text + k.Name;
    return text + static_cast<char>(static_cast<int>(stroke.Code));
}

char CharOfStroke(const KeyStroke& stroke) {
    if (stroke.Mods.Ctrl || stroke.Mods.Alt) return 0;
    int code = static_cast<int>(stroke.Code);
    switch (stroke.Code) {
    case Key::Enter:
        return '\r';
    case Key::Escape:
        return 27;
    case Key::Backspace:
        return 8;
    case Key::Space:
        return ' ';
    default:
        break;
    }
    if (code > 32 && code < 127) {
        char c = static_cast<char>(code);
        if (c >= 'A' && c <= 'Z' && !stroke.Mods.Shift) c = static_cast<char>(c - 'A' + 'a');
        return c;
    }
    return 0;
}

} // namespace corvane::ui
