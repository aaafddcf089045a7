#pragma once

#include "ui/CustomEdit.h"

namespace corvane::ui {

// A whole number with up and down buttons; Up and Down step it by Increment within MinValue and
// MaxValue (both zero: no limits).
class SpinEdit : public CustomEdit {
public:
    SpinEdit(Form& form, std::string name) : CustomEdit(form, std::move(name)) {}

    int MinValue = 0;
    int MaxValue = 0;
    int Increment = 1;
    // The number shown; MinValue when the text is not a number.
    int Value() const;
    void SetValue(int value);
    // False while the box shows a word in place of a number ("<All>").
    bool ShowsNumber() const;
    // A click on the up or down button.
    void Step(bool up);

    const char* TypeName() const override { return "SpinEdit"; }

protected:
    bool AcceptsChar(char ch) const override { return (ch >= '0' && ch <= '9') || ch == '-'; }
    void KeyDown(Key& key, Modifiers mods) override;

private:
    int Clamp(long long value) const;
};

} // namespace corvane::ui
