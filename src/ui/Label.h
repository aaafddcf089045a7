#pragma once

#include "ui/Caption.h"
#include "ui/Control.h"

#include <functional>

namespace corvane::ui {

class Label : public Control {
public:
    Label(Form& form, std::string name, std::string caption = {})
        : Control(form, std::move(name)), Caption(std::move(caption)) {}

    std::string Caption;
    // The control a click on the label (or its accelerator) focuses.
    Control* FocusControl = nullptr;
    // A label that acts as a link; nothing for a plain one.
    std::function<void()> OnClick;
    void Click() {
        if (OnClick) OnClick();
    }

    const char* TypeName() const override { return "Label"; }
    std::string Text() const override { return PlainCaption(Caption); }

protected:
    bool Focusable() const override { return false; }
};

} // namespace corvane::ui
