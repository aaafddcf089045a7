#pragma once

#include "ui/Control.h"

namespace corvane::ui {

// Progress of a long run. The run calls Application::ProcessMessages after moving it, so that the
// host can paint.
class ProgressBar : public Control {
public:
    ProgressBar(Form& form, std::string name) : Control(form, std::move(name)) {}

    int Min = 0;
    int Max = 100;
    int Position = 0;
    int Step = 10;
    void StepIt() { Position = Position + Step > Max ? Max : Position + Step; }

    const char* TypeName() const override { return "ProgressBar"; }
    std::string Text() const override { return std::to_string(Position); }

protected:
    bool Focusable() const override { return false; }
};

} // namespace corvane::ui
