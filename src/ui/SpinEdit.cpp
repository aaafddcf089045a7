#include "ui/SpinEdit.h"

#include <charconv>
#include <string>

namespace corvane::ui {

int SpinEdit::Clamp(long long value) const {
    if (MinValue != 0 || MaxValue != 0) {
        if (value < MinValue) value = MinValue;
        if (value > MaxValue) value = MaxValue;
    }
    return static_cast<int>(value);
}

int SpinEdit::Value() const {
    std::string text = Text();
    long long value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return MinValue;
    return Clamp(value);
}

bool SpinEdit::ShowsNumber() const {
    std::string text = Text();
    long long value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

void SpinEdit::SetValue(int value) {
    SetText(std::to_string(Clamp(value)));
}

void SpinEdit::Step(bool up) {
    if (!Enabled || IsReadOnly() || (DataLink() && !DataLink()->Edit())) return;
    long long next = static_cast<long long>(Value()) + (up ? Increment : -Increment);
    ChangeText(std::to_string(Clamp(next)), true);
}

void SpinEdit::KeyDown(Key& key, Modifiers mods) {
    if (key == Key::Up || key == Key::Down) {
        Step(key == Key::Up);
        key = Key::None;
        return;
    }
    CustomEdit::KeyDown(key, mods);
}

} // namespace corvane::ui
