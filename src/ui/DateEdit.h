#pragma once

#include "ui/CustomEdit.h"

#include <functional>
#include <string>

namespace corvane::ui {

// A date typed as text, with a button beside it that opens the calendar. Unless the form gives the
// button a handler of its own (OnButtonClick), the button opens the shared calendar form on the
// field's date and writes the chosen day back as if the user had typed it, so the field's own
// reading and checks of typed dates apply. Bind it to a date field with Bind.
class DateEdit : public CustomEdit {
public:
    DateEdit(Form& form, std::string name) : CustomEdit(form, std::move(name)) {}

    std::function<void()> OnButtonClick;
    // The calendar's caption, such as "Transaction Date"; empty for the plain one.
    std::string CalendarCaption;
    // A click on the calendar button; the focus moves into the date first, as with the mouse.
    void ClickButton();

    const char* TypeName() const override { return "DateEdit"; }

protected:
    // Alt+Down opens the calendar from the keyboard.
    void KeyDown(Key& key, Modifiers mods) override;

private:
    void PickFromCalendar();
};

} // namespace corvane::ui
