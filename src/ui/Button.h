#pragma once

#include "ui/Caption.h"
#include "ui/Control.h"
#include "ui/ModalResult.h"

#include <functional>

namespace corvane::ui {

class Button : public Control {
public:
    Button(Form& form, std::string name, std::string caption = {})
        : Control(form, std::move(name)), Caption(std::move(caption)) {}

    std::string Caption;
    // Enter presses it (on forms where Enter does not move the focus).
    bool Default = false;
    // Escape presses it.
    bool Cancel = false;
    // Set on the form once OnClick has run without raising; a modal form then closes.
    ui::ModalResult ModalResult = mrNone;
    std::function<void()> OnClick;

    // Presses the button as the keyboard does: the focus stays where it is. Nothing happens when
    // the button is disabled or hidden.
    void Click();

    const char* TypeName() const override { return "Button"; }
    std::string Text() const override { return PlainCaption(Caption); }

protected:
    void KeyDown(Key& key, Modifiers mods) override;
};

} // namespace corvane::ui
