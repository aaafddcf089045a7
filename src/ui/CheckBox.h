#pragma once

#include "ui/Caption.h"
#include "ui/Control.h"

#include <functional>

namespace corvane::ui {

class CheckBox : public Control {
public:
    CheckBox(Form& form, std::string name, std::string caption = {})
        : Control(form, std::move(name)), Caption(std::move(caption)) {}

    std::string Caption;
    bool Checked() const { return checked_; }
    // Sets the state as code does; OnClick runs when it changes.
    void SetChecked(bool checked);
    // The user's click (or Space): turns the state over.
    virtual void Toggle();
    std::function<void()> OnClick;

    const char* TypeName() const override { return "CheckBox"; }
    std::string Text() const override { return PlainCaption(Caption); }

protected:
    void KeyPress(char& ch) override;
    // The state as shown, without OnClick: for the data-aware box following its field.
    void ShowState(bool checked) { checked_ = checked; }

private:
    bool checked_ = false;
};

} // namespace corvane::ui
