#pragma once

#include "ui/CustomEdit.h"

#include <functional>

namespace corvane::ui {

// A date typed as text, with a button beside it that opens the calendar. What the button does is
// the form's choice (OnButtonClick); bind it to a date field with Bind.
class DateEdit : public CustomEdit {
public:
    DateEdit(Form& form, std::string name) : CustomEdit(form, std::move(name)) {}

    std::function<void()> OnButtonClick;
    // A click on the calendar button; the focus moves into the date first, as with the mouse.
    void ClickButton();

    const char* TypeName() const override { return "DateEdit"; }

protected:
    // Alt+Down opens the calendar from the keyboard.
    void KeyDown(Key& key, Modifiers mods) override;
};

} // namespace corvane::ui
